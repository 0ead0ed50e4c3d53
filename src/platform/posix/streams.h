// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace marlinset {

/// To be called first. A standard stream that the program was started without would become the first file
/// that it opens. /dev/null takes its place: nothing comes from it, and it refuses what is written, so that
/// whoever prints notices.
void HoldStandardStreams();

/// Writes to what takes bytes and is no file: a stream that this program was given open (/dev/stdout, to
/// wherever it is redirected), a pipe, which waits for its reader, the null device. False when the path leads
/// to none of them. Failure 61 or 75 when the bytes do not get through.
bool WriteStraight(const std::string& path, std::span<const std::uint8_t> bytes);

}  // namespace marlinset

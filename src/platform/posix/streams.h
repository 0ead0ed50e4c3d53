// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace marlinset {

/// Call this first. If a program starts without one of the standard streams, the first file that it opens
/// would become that stream. /dev/null takes its place: it delivers nothing and refuses writes, so that
/// whoever prints notices.
void HoldStandardStreams();

/// Writes to a path that takes bytes but is not a file: an open stream of this program (/dev/stdout, wherever
/// it is redirected), a pipe, which waits for its reader, or the null device. Returns false if the path is
/// none of them. Throws kErrDiskFull or kErrFileAccess if the bytes do not get through.
bool WriteStraight(const std::string& path, std::span<const std::uint8_t> bytes);

}  // namespace marlinset

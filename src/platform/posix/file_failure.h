// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/stat.h>

#include <string>

#include "base/runtime_error.h"

namespace marlinset {

/// What an error number of the system means for reading a file: failure 53 when it is not there, else 75. The
/// remedy names the file and, in a line below, the reason.
RuntimeError ReadFailure(const std::string& path, int error);
/// The same for writing: failure 61 when there is no room, else 75.
RuntimeError WriteFailure(const std::string& path, int error);
/// Failure 75 for a reason in the tool's own words.
RuntimeError FileRefused(const std::string& path, const std::string& reason);

/// Failure 75 unless it is a regular file: a folder, a device, a pipe or a socket holds nothing of its own.
void RequireRegular(const std::string& path, const struct stat& status);

/// A failure of a file in one line, for a terminal: the file, and why.
std::string InOneLine(const RuntimeError& failure);

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/stat.h>

#include <string>

#include "base/runtime_error.h"

namespace marlinset {

/// The failure of reading a file for an errno: kErrFileNotFound if it is not there, otherwise kErrFileAccess.
/// The remedy names the file and, on a line below, the reason.
RuntimeError ReadFailure(const std::string& path, int error);
/// The same for writing: kErrDiskFull if there is no room, otherwise kErrFileAccess.
RuntimeError WriteFailure(const std::string& path, int error);
/// kErrFileAccess for a reason in the tool's own words.
RuntimeError FileRefused(const std::string& path, const std::string& reason);

/// Throws kErrFileAccess unless it is a regular file; folders, devices, pipes and sockets hold no content.
void RequireRegular(const std::string& path, const struct stat& status);

/// The reason alone, for a message that names the file itself: "It is not there."
std::string ReasonOf(const RuntimeError& failure);
/// A file's failure in one line, for a terminal: the file and the reason.
std::string InOneLine(const RuntimeError& failure);

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

namespace marlinset {

/// The path at the end of symbolic links, even if nothing is there. Throws kErrFileAccess for circular links.
std::string BehindLinks(const std::string& path);

/// The canonical path of what a path leads to: behind all links, without dots and without a trailing
/// separator, as far as it exists. Circular links lead to themselves.
std::string RealPath(const std::string& path);

/// The number of an open stream of this program, if a path leads to one: /dev/stdout, /dev/fd/63.
std::optional<int> OwnStream(const std::string& path);

/// Whether a path leads to the null device, /dev/null.
bool IsNullDevice(const std::string& path);

/// NAME.bak, for the previous content of a file. If that name is too long, a mark replaces its end, which
/// distinguishes it from others with the same beginning.
std::string BackupOf(const std::string& path);

}  // namespace marlinset

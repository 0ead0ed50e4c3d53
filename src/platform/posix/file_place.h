// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

namespace marlinset {

/// The path at the end of symbolic links, also when nothing stands there. Failure 75 for a circle of links.
std::string BehindLinks(const std::string& path);

/// The one whole path of what a path leads to: behind all links, without dots and without a separator at its
/// end, as far as that is there. A circle of links leads to itself.
std::string RealPath(const std::string& path);

/// The number of a stream that this program has open, where a path leads to one: /dev/stdout, /dev/fd/63.
std::optional<int> OwnStream(const std::string& path);

/// Whether a path leads to the device that keeps nothing, /dev/null.
bool IsNullDevice(const std::string& path);

/// NAME.bak, for what a file held before. A name that is too long for that is cut, and a mark that tells it
/// from others with the same beginning takes the place of its end.
std::string BackupOf(const std::string& path);

}  // namespace marlinset

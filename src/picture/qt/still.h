// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QSize>
#include <string>

namespace marlinset {

/// The most pixels of a still. A larger one is refused before it takes memory.
inline constexpr long long kMostStillPixels = 100'000'000;

/// Reads a still from a picture file and turns it upright, as the camera has noted. Reduces a still that is
/// larger than needed to fill `enough`, in pixels. Throws kErrFileNotFound or kErrFileAccess if there is no
/// file that can be read, kErrFileFormat if its format is unknown, or it is damaged or has too many pixels.
QImage LoadStill(const std::string& path, QSize enough);

/// The names of picture files, as a file dialog filters them: "*.png *.jpg".
std::string StillPatterns();

}  // namespace marlinset

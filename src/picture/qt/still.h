// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QSize>
#include <string>

namespace marlinset {

/// A picture has at most so many pixels: a larger one is refused before it takes memory.
inline constexpr long long kMostStillPixels = 100'000'000;

/// Reads a still from a picture file, turned as its camera says. One that is larger than it takes to fill
/// `enough` is made smaller. Throws kErrFileNotFound or kErrFileAccess if there is no file that can be read,
/// kErrFileFormat if it is no picture that we read, is damaged or has too many pixels.
QImage LoadStill(const std::string& path, QSize enough);

/// The names of picture files, as a file dialog filters them: "*.png *.jpg".
std::string StillPatterns();

}  // namespace marlinset

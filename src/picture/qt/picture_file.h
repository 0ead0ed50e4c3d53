// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "picture/geometry.h"

namespace marlinset {

// Widths of a picture, in pixels.
inline constexpr int kLeastPictureWidth = 16;
inline constexpr int kMostPictureWidth = 16384;
inline constexpr int kUsualPictureWidth = 960;

/// How a picture is written.
struct PictureOrder {
  int width = kUsualPictureWidth;  ///< the height follows from the standard's shape, rounded
  std::string background = {};     ///< a still behind the windows; empty for none
  bool safe = false;               ///< draws the safe frames
  bool slate = false;              ///< shows the windows of the slate too
};

/// Writes the picture as a PNG file, or to an open stream of the program such as /dev/stdout. Throws
/// kErrInvalidCall if there is no picture for the standard, what LoadStill throws for the background,
/// kErrMemory, and what a FileWriter throws. A file that is there stays as it was unless all of it succeeds.
void WritePicture(const PicturePlan& plan, const PictureOrder& order, const std::string& path);

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QPalette>
#include <QRectF>

class QPainter;

namespace marlinset {

/// Presence of video on the unit's input, as the three pictures Image2(0..2) show it.
enum class VideoPicture { kPresent, kNone, kNeutral };

/// A small monitor: with a picture on it, crossed out, or faint. In the palette's text colour.
void PaintVideo(QPainter& painter, const QRectF& area, VideoPicture picture, const QPalette& palette);

/// What a remark begins with: a triangle with an exclamation mark, or a circle with an "i".
enum class Sign { kWarning, kNote };
/// In the palette's text colour, so that it is as quiet as the text beside it; `size` in pixels.
QIcon SignIcon(Sign sign, int size, const QPalette& palette);

/// The program's own icon: a monitor with a character window burned into its picture.
QIcon ProgramIcon();

}  // namespace marlinset

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

/// The program's own icon: a monitor with a character window burned into its picture.
QIcon ProgramIcon();

}  // namespace marlinset

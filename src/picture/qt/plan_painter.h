// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QPointF>
#include <QRectF>

#include "picture/geometry.h"

class QPainter;

namespace marlinset {

/// Where the cells of a picture lie when it is painted into `frame`. Edges lie on whole pixels, of which one
/// is `pixel` long, so that boxes are sharp and neighbours join.
class CellGrid {
 public:
  CellGrid(const CellRect& area, const QRectF& frame, double pixel = 1);
  const QRectF& Frame() const { return frame_; }
  /// Where a place of the plan lies; it may be partly or wholly outside the frame.
  QRectF RectOf(const CellRect& place) const;
  /// How far apart columns and units are, not rounded to pixels.
  QSizeF Cell() const { return {frame_.width() / area_.columns, frame_.height() / area_.units}; }

 private:
  CellRect area_;
  QRectF frame_;
  double pixel_;
};

/// The largest frame in the middle of `room`; `shape` is its width divided by its height.
QRectF FrameInside(const QRectF& room, double shape);

/// What lies behind the windows: the still, stretched to the frame because it is a frame of the same video,
/// or plain dark grey where there is none.
void PaintGround(QPainter& painter, const QRectF& frame, const QImage& still);

/// The safe frames: 90 % and 80 % of width and height, in the middle.
void PaintSafeFrames(QPainter& painter, const QRectF& frame);

/// Paints a window's box and sample into `area`, and nothing outside it.
void PaintPlannedWindow(QPainter& painter, const QRectF& area, const LetterLook& look,
                        const PlannedWindow& window);

}  // namespace marlinset

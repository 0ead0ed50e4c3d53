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
  QRectF RectOf(const CellRect& place) const;
  /// How far apart columns and units are.
  QSizeF Cell() const { return {frame_.width() / area_.columns, frame_.height() / area_.units}; }

 private:
  CellRect area_;
  QRectF frame_;
  double pixel_;
};

/// The largest frame of this shape in the middle of `room`.
QRectF FrameInside(const QRectF& room, double shape);

/// What lies behind the windows: the still, stretched to the frame because it is a frame of the same video,
/// or plain dark grey where there is none.
void PaintGround(QPainter& painter, const QRectF& frame, const QImage& still);

/// The frames inside which 90 % and 80 % of width and height lie.
void PaintSafeFrames(QPainter& painter, const QRectF& frame);

/// One window into its area, and nothing beside it: its box and its sample, in the style of the plan.
void PaintPlannedWindow(QPainter& painter, const QRectF& area, const LetterLook& look,
                        const PlannedWindow& window);

/// Whether a picture shows a window: it is on, and part of the slate only if that is shown.
bool IsShown(const PlannedWindow& window, bool slate);

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "picture/qt/plan_painter.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "picture/qt/burnt_letters.h"

namespace marlinset {
namespace {

constexpr QRgb kGround = 0xFF3C3C3C;
constexpr QRgb kWhiteLevel = 0xFFFFFFFF;
constexpr QRgb kBlackLevel = 0xFF000000;
constexpr QRgb kGreyLevel = 0xFF808080;
/// Of width and height, inside the safe frames.
constexpr double kSafeParts[] = {0.9, 0.8};
/// Lines of the safe frames: a light one in a wider dark one is visible on any still.
constexpr QRgb kSafeDark = 0x6E000000;
constexpr QRgb kSafeLight = 0xBEFFFFFF;
constexpr int kSafeDarkWidth = 3;
constexpr int kSafeLightWidth = 1;
/// Width of an outline, as a part of a cell's shorter side.
constexpr double kOutlinePart = 0.2;

QColor BoxColor(LetterLook::Box box) {
  switch (box) {
    case LetterLook::Box::kDark:
      return kBlackLevel;
    case LetterLook::Box::kGrey:
      return kGreyLevel;
    case LetterLook::Box::kLight:
      return kWhiteLevel;
    case LetterLook::Box::kNone:
      break;
  }
  return Qt::transparent;
}

}  // namespace

CellGrid::CellGrid(const CellRect& area, const QRectF& frame, double pixel)
    : area_(area), frame_(frame), pixel_(pixel) {}

QRectF CellGrid::RectOf(const CellRect& place) const {
  const QSizeF cell = Cell();
  const auto edge = [this](double at) { return std::round(at / pixel_) * pixel_; };
  return {QPointF(edge(frame_.left() + (place.left - area_.left) * cell.width()),
                  edge(frame_.top() + (place.top - area_.top) * cell.height())),
          QPointF(edge(frame_.left() + (place.Right() - area_.left) * cell.width()),
                  edge(frame_.top() + (place.Bottom() - area_.top) * cell.height()))};
}

QRectF FrameInside(const QRectF& room, double shape) {
  const double width = std::max(0.0, std::min(room.width(), room.height() * shape));
  QRectF frame(0, 0, width, width / shape);
  frame.moveCenter(room.center());
  return frame;
}

void PaintGround(QPainter& painter, const QRectF& frame, const QImage& still) {
  painter.fillRect(frame, QColor(kGround));  // shows through what is transparent in a still
  if (still.isNull()) return;
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(frame, still);
}

void PaintSafeFrames(QPainter& painter, const QRectF& frame) {
  painter.save();
  painter.setBrush(Qt::NoBrush);
  for (const double part : kSafeParts) {
    QRectF safe(0, 0, frame.width() * part, frame.height() * part);
    safe.moveCenter(frame.center());
    const QRectF onPixels = QRectF(safe.toRect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(QPen(QColor::fromRgba(kSafeDark), kSafeDarkWidth));
    painter.drawRect(onPixels);
    painter.setPen(QPen(QColor::fromRgba(kSafeLight), kSafeLightWidth));
    painter.drawRect(onPixels);
  }
  painter.restore();
}

void PaintPlannedWindow(QPainter& painter, const QRectF& area, const LetterLook& look,
                        const PlannedWindow& window) {
  if (area.isEmpty()) return;
  painter.save();
  painter.setClipRect(area, Qt::IntersectClip);
  if (look.box != LetterLook::Box::kNone) painter.fillRect(area, BoxColor(look.box));
  painter.setRenderHint(QPainter::Antialiasing);
  const QPainterPath letters = BurntText(QString::fromStdString(window.sample), area);
  const QColor fill = look.white ? kWhiteLevel : kBlackLevel;
  if (look.outlined) {
    const double side = std::min(area.width() / window.place.columns, area.height());
    const QColor outline = look.white ? kBlackLevel : kWhiteLevel;
    painter.strokePath(letters,
                       QPen(outline, side * kOutlinePart, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  }
  painter.fillPath(letters, fill);
  painter.restore();
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/widgets/icons.h"

#include <QPainter>
#include <algorithm>
#include <utility>

#include "gui/widgets/look.h"

namespace marlinset {
namespace {

/// The largest rectangle of 4 : 3 in the middle of `area`.
QRectF FourByThree(const QRectF& area) {
  const double width = std::min(area.width(), area.height() * 4 / 3);
  QRectF inner(0, 0, width, width * 3 / 4);
  inner.moveCenter(area.center());
  return inner;
}

/// On a square of 16 units.
void PaintSign(QPainter& painter, Sign sign, const QColor& ink) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(ink, 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  if (sign == Sign::kWarning) {
    painter.drawPolygon(QPolygonF({{8, 1.8}, {14.8, 14}, {1.2, 14}}));
    painter.drawLine(QPointF(8, 6.2), QPointF(8, 9.6));
    painter.drawPoint(QPointF(8, 11.9));
  } else {
    painter.drawEllipse(QPointF(8, 8), 6.4, 6.4);
    painter.drawLine(QPointF(8, 7.4), QPointF(8, 11.2));
    painter.drawPoint(QPointF(8, 4.9));
  }
}

void PaintProgram(QPainter& painter, double size) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(size / 64, size / 64);
  painter.setPen(QPen(QColor(159, 173, 186), 2));  // the edge that is visible on a dark desktop
  painter.setBrush(QColor(38, 50, 64));
  painter.drawRoundedRect(QRectF(3, 7, 58, 44), 6, 6);
  painter.drawRect(QRectF(22, 54, 20, 4));
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(74, 144, 184));
  painter.drawRect(QRectF(9, 13, 46, 32));
  painter.setBrush(Qt::black);
  painter.drawRect(QRectF(15, 32, 34, 8));
  painter.setBrush(QColor(255, 226, 64));
  for (int i = 0; i < 4; ++i) painter.drawRect(QRectF(17.5 + i * 8, 34, 5, 4));
}

}  // namespace

void PaintVideo(QPainter& painter, const QRectF& area, VideoPicture picture, const QPalette& palette) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  QColor ink = palette.color(QPalette::WindowText);
  if (picture == VideoPicture::kNeutral) ink = Blend(palette.color(QPalette::Window), ink, 0.4);
  const double line = std::max(1.0, area.height() / 11);
  const QRectF screen = FourByThree(area.adjusted(line, line, -line, -line));
  painter.setPen(QPen(ink, line));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(screen, line, line);
  const QRectF inner = screen.adjusted(1.6 * line, 1.6 * line, -1.6 * line, -1.6 * line);
  if (picture == VideoPicture::kPresent) {
    constexpr int kBars = 4;
    for (int i = 0; i < kBars; ++i) {
      const double left = inner.left() + inner.width() * i / kBars;
      const double strength = 0.95 - 0.22 * i;
      painter.fillRect(QRectF(left, inner.top(), inner.width() / kBars, inner.height()),
                       Blend(palette.color(QPalette::Window), ink, strength));
    }
  } else if (picture == VideoPicture::kNone) {
    painter.drawLine(screen.topLeft(), screen.bottomRight());
    painter.drawLine(screen.topRight(), screen.bottomLeft());
  }
  painter.restore();
}

QIcon SignIcon(Sign sign, int size, const QPalette& palette) {
  constexpr std::pair<QIcon::Mode, QPalette::ColorRole> kInks[] = {
      {QIcon::Normal, QPalette::Text}, {QIcon::Selected, QPalette::HighlightedText}};
  constexpr double kUnits = 16;
  QIcon icon;
  for (const int ratio : {1, 2, 3}) {
    for (const auto& [mode, ink] : kInks) {
      QPixmap pixmap(ratio * size, ratio * size);
      pixmap.setDevicePixelRatio(ratio);
      pixmap.fill(Qt::transparent);
      QPainter painter(&pixmap);
      painter.scale(size / kUnits, size / kUnits);
      PaintSign(painter, sign, palette.color(QPalette::Active, ink));
      painter.end();
      icon.addPixmap(pixmap, mode);
    }
  }
  return icon;
}

QIcon ProgramIcon() {
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64, 128}) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    PaintProgram(painter, size);
    painter.end();
    icon.addPixmap(pixmap);
  }
  return icon;
}

}  // namespace marlinset

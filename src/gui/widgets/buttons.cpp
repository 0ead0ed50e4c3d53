// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/widgets/buttons.h"

#include <QKeyEvent>
#include <QPainter>

#include "gui/widgets/look.h"

namespace marlinset {
namespace {

constexpr double kRadius = 3;

/// A ring in the text's colour, inside the button's edge.
void PaintFocus(QPainter& painter, const QRectF& area, const QColor& color) {
  QColor ring = color;
  ring.setAlphaF(0.75F);
  painter.setPen(QPen(ring, 1, Qt::DotLine));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(area.adjusted(3, 3, -3, -3));
}

}  // namespace

void BarButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    event->ignore();
  } else {
    QPushButton::keyPressEvent(event);
  }
}

QSize MainButton::sizeHint() const {
  return BarButton::sizeHint() + QSize(3 * SpaceUnit(*this), 0);
}

void MainButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QPalette& colors = palette();
  QColor ground = Accent(colors);
  QColor text = colors.color(QPalette::Active, QPalette::HighlightedText);
  if (!isEnabled()) {
    ground = Blend(colors.color(QPalette::Window), colors.color(QPalette::WindowText), 0.1);
    text = colors.color(QPalette::Disabled, QPalette::ButtonText);
  } else if (isDown()) {
    ground = ground.darker(118);
  } else if (underMouse()) {
    ground = Blend(ground, text, 0.08);
  }
  const QRectF area = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
  painter.setPen(isEnabled() ? QPen(ground.darker(120)) : QPen(Outline(colors)));
  painter.setBrush(ground);
  painter.drawRoundedRect(area, kRadius, kRadius);
  if (hasFocus()) PaintFocus(painter, area, text);
  painter.setPen(text);
  painter.drawText(rect(), Qt::AlignCenter | Qt::TextShowMnemonic, this->text());
}

QSize SegmentButton::sizeHint() const {
  const int unit = SpaceUnit(*this);
  const QSize letters = fontMetrics().size(Qt::TextShowMnemonic, text());
  return {letters.width() + 4 * unit, letters.height() + 2 * unit};
}

QColor SegmentButton::Ground() const {
  const QPalette& colors = palette();
  if (isChecked()) return Accent(colors);
  const QColor button = colors.color(QPalette::Button);
  const QColor text = colors.color(QPalette::ButtonText);
  return isDown()                      ? Blend(button, text, 0.16)
         : underMouse() && isEnabled() ? Blend(button, text, 0.07)
                                       : button;
}

void SegmentButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  // The outer corners are round: the rectangle extends beyond the edges that a neighbour shares.
  QRectF area = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
  QRectF shape = area;
  if (place_ != Place::kFirst) shape.setLeft(-2 * kRadius);
  if (place_ != Place::kLast) shape.setRight(width() + 2 * kRadius);
  painter.setClipRect(rect());
  const QColor edge = Outline(palette());
  painter.setPen(edge);
  painter.setBrush(Ground());
  painter.drawRoundedRect(shape, kRadius, kRadius);
  if (place_ != Place::kLast) painter.drawLine(area.topRight(), area.bottomRight());
  const QColor text = palette().color(!isEnabled()  ? QPalette::Disabled
                                      : isChecked() ? QPalette::Active
                                                    : QPalette::Current,
                                      isChecked() ? QPalette::HighlightedText : QPalette::ButtonText);
  if (hasFocus()) PaintFocus(painter, area, text);
  painter.setPen(text);
  painter.drawText(rect(), Qt::AlignCenter | Qt::TextShowMnemonic, this->text());
}

}  // namespace marlinset

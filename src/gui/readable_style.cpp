// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/readable_style.h"

#include <QPainter>
#include <QStyleOption>

#include "gui/look.h"

namespace marlinset {
namespace {

/// A faint edge for what is disabled, a plain one for the rest.
void PaintEdge(QPainter& painter, const QStyleOption& option, bool round) {
  const QPalette& palette = option.palette;
  const QColor base = palette.color(QPalette::Base);
  const bool light = base.lightness() > palette.color(QPalette::Text).lightness();
  if (light && base != MarkColor()) return;
  const double strength = option.state & QStyle::State_Enabled ? 0.5 : 0.2;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Blend(base, palette.color(QPalette::Active, QPalette::Text), strength));
  painter.setBrush(Qt::NoBrush);
  const QRectF edge = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
  if (round) {
    painter.drawEllipse(edge);
  } else {
    painter.drawRoundedRect(edge, 1.5, 1.5);
  }
  painter.restore();
}

}  // namespace

void ReadableStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                  const QWidget* widget) const {
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  const bool focused = option->state & State_HasFocus;
  if (element == PE_IndicatorRadioButton) PaintEdge(*painter, *option, true);
  if (element == PE_IndicatorCheckBox) PaintEdge(*painter, *option, false);
  if (element == PE_FrameLineEdit && !focused) PaintEdge(*painter, *option, false);
}

void ReadableStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                       QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawComplexControl(control, option, painter, widget);
  if (control == CC_SpinBox && !(option->state & State_HasFocus)) PaintEdge(*painter, *option, false);
}

}  // namespace marlinset

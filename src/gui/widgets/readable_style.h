// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProxyStyle>

namespace marlinset {

/// The desktop's style, made easier to read, for QApplication::setStyle. Check boxes and option buttons grow
/// with the text and get a visible edge, a broad coloured one in the focus; so do fields on a dark palette
/// and on a yellow mark, because the usual styles draw that edge faint, or darker than the background. A
/// selection contrasts enough with its text, and the prompt of an empty field with the field. In tables,
/// numbers keep clear of the next column, and their heads end where they do, whether or not an arrow shows a
/// sort.
class ReadableStyle : public QProxyStyle {
  Q_OBJECT
 public:
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  QRect subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const override;
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                         const QWidget* widget) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
  using QProxyStyle::polish;
  void polish(QPalette& palette) override;
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProxyStyle>

namespace marlinset {

/// The desktop's style with one thing added: on a dark palette, and on a yellow mark, check boxes, option
/// buttons and fields get an edge that can be seen. The usual styles draw that edge darker than the
/// background, where it vanishes. For QApplication::setStyle.
class ReadableStyle : public QProxyStyle {
  Q_OBJECT
 public:
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override;
};

}  // namespace marlinset

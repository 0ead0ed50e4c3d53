// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QColor;
class QPainter;
class QRect;
class QWidget;

namespace marlinset {

/// A small triangle in the upper left corner of a field or a cell: the unit does not hold this value.
void PaintCornerMark(QPainter& painter, const QRect& field, const QColor& color);

/// Puts that mark on a field, or takes it away. A screen reader says it with the field.
void SetCornerMark(QWidget& field, bool marked);

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPainterPath>
#include <QRectF>
#include <QString>

namespace marlinset {

/// The outlines of a text as character generators draw it: letters of five by seven dots with rounded
/// diagonals, each filling an equal part of `area`. Small letters look like capitals; a character that units
/// do not have is an empty box. The letters are our own, so that a picture needs no font and is the same
/// everywhere.
QPainterPath BurntText(const QString& text, const QRectF& area);

}  // namespace marlinset

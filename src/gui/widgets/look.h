// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QString>
#include <string>

class QLayout;
class QWidget;

namespace marlinset {

/// Text of the tool, which is UTF-8, as the screen's text.
QString Shown(const std::string& text);
std::string Typed(const QString& text);
/// The same for captions of buttons and boxes, where a lone "&" would mark a mnemonic.
QString ShownLiteral(const std::string& text);
/// A caption with the first `mnemonic` in it underlined; 0 for none.
QString ShownWithMnemonic(const std::string& text, char mnemonic);
/// A shown caption as a screen reader says it: without the mark of its mnemonic and its colon; "&&" is an
/// "&".
QString SpokenName(QString caption);

/// The one spacing unit in pixels, from the height of the font; groups stand two units apart.
int SpaceUnit(const QWidget& widget);
/// Gives a layout margins of `margin` units and spaces of one unit.
void SetSpaces(QLayout& layout, const QWidget& widget, int margin = 0);
/// The stretch of what takes a row's width up to its own limit, beside an empty stretch of 1.
constexpr int kNearlyAll = 1000;
/// Width of `characters` figures in the widget's font.
int FiguresWidth(const QWidget& widget, int characters);

/// The desktop's fixed-width type in the size of the other texts.
QFont FixedFont();

/// How well a text of one colour can be read on another, 1 (not at all) to 21. 4.5 is the least we accept.
double Contrast(const QColor& a, const QColor& b);
/// The desktop's highlight, darkened or lightened until its text can be read on it.
QColor Accent(const QPalette& palette);
/// The highlight as a frame around what has the focus: seen on the ground of fields.
QColor FocusColor(const QPalette& palette);
/// Of links in texts.
QColor LinkColor(const QPalette& palette);
/// A faint line between two areas.
QColor Outline(const QPalette& palette);
/// `amount` (0 to 1) of `top` over `ground`.
QColor Blend(const QColor& ground, const QColor& top, double amount);

/// The mark of what is being sent: yellow with dark text in light and dark desktops, and nothing but a
/// palette of this one widget, so that no layout and no neighbour is touched.
void SetMarked(QWidget& widget, bool marked);
QColor MarkColor();
QColor MarkTextColor();
/// What is left of the mark on a row that has gone out while the rest of its list still goes.
QColor SentColor(const QPalette& palette);

}  // namespace marlinset

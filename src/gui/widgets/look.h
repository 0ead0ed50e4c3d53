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

/// Converts text of the tool, which is UTF-8, to text for the screen.
QString Shown(const std::string& text);
std::string Typed(const QString& text);
/// The same for captions of buttons and boxes, where a single "&" would mark a mnemonic.
QString ShownLiteral(const std::string& text);
/// A caption with the first `mnemonic` in it underlined; 0 for none.
QString ShownWithMnemonic(const std::string& text, char mnemonic);
/// A shown caption as a screen reader says it: without its mnemonic's mark and its colon; "&&" is an
/// "&".
QString SpokenName(QString caption);

/// The only spacing unit in pixels, from the height of the font; groups are two units apart.
int SpaceUnit(const QWidget& widget);
/// Gives a layout margins of `margin` units and spacing of one unit.
void SetSpaces(QLayout& layout, const QWidget& widget, int margin = 0);
/// The stretch of an item that takes a row's width up to its own limit, beside an empty stretch of 1.
constexpr int kNearlyAll = 1000;
/// Width of `characters` digits in the widget's font.
int FiguresWidth(const QWidget& widget, int characters);

/// The desktop's fixed-width font in the size of the other texts.
QFont FixedFont();

/// The contrast of one colour on another, 1 (unreadable) to 21. We require at least 4.5.
double Contrast(const QColor& a, const QColor& b);
/// The desktop's highlight, darkened or lightened until its text can be read on it.
QColor Accent(const QPalette& palette);
/// The highlight as a frame around the focus: visible on the background of fields.
QColor FocusColor(const QPalette& palette);
/// Of links in texts.
QColor LinkColor(const QPalette& palette);
/// A faint line between two areas.
QColor Outline(const QPalette& palette);
/// Mixes `amount` (0 to 1) of `top` over `ground`.
QColor Blend(const QColor& ground, const QColor& top, double amount);

/// Marks what is being sent: yellow with dark text on light and dark desktops. It changes only the palette of
/// this widget, so that it affects no layout and no neighbour.
void SetMarked(QWidget& widget, bool marked);
QColor MarkColor();
QColor MarkTextColor();
/// The paler mark of a row that has been sent while the rest of its list is still being sent.
QColor SentColor(const QPalette& palette);

}  // namespace marlinset

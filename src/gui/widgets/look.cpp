// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/widgets/look.h"

#include <QApplication>
#include <QFontDatabase>
#include <QLayout>
#include <QWidget>
#include <algorithm>
#include <cmath>

namespace marlinset {
namespace {

constexpr double kLeastContrast = 4.5;

double Linear(double channel) {
  return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

/// Relative luminance as WCAG 2 defines it.
double Luminance(const QColor& color) {
  return 0.2126 * Linear(color.redF()) + 0.7152 * Linear(color.greenF()) + 0.0722 * Linear(color.blueF());
}

/// `color`, darkened or lightened until it contrasts with `other`.
QColor SetOff(QColor color, const QColor& other) {
  const QColor away = Luminance(other) > Luminance(color) ? Qt::black : Qt::white;
  for (int i = 0; i < 50 && Contrast(color, other) < kLeastContrast; ++i) color = Blend(color, away, 0.06);
  return color;
}

}  // namespace

QString Shown(const std::string& text) {
  return QString::fromStdString(text);
}

std::string Typed(const QString& text) {
  return text.toStdString();
}

QString ShownLiteral(const std::string& text) {
  return Shown(text).replace(QLatin1Char('&'), QLatin1String("&&"));
}

QString ShownWithMnemonic(const std::string& text, char mnemonic) {
  QString shown = ShownLiteral(text);
  const qsizetype at = mnemonic == 0 ? -1 : shown.indexOf(QLatin1Char(mnemonic), 0, Qt::CaseInsensitive);
  if (at >= 0) shown.insert(at, QLatin1Char('&'));
  return shown;
}

QString SpokenName(QString caption) {
  constexpr QChar kNoLetter;
  caption.replace(QLatin1String("&&"), kNoLetter)
      .remove(QLatin1Char('&'))
      .replace(kNoLetter, QLatin1Char('&'));
  if (caption.endsWith(QLatin1Char(':'))) caption.chop(1);
  return caption;
}

int SpaceUnit(const QWidget& widget) {
  return std::max(4, widget.fontMetrics().height() / 3);
}

void SetSpaces(QLayout& layout, const QWidget& widget, int margin) {
  const int unit = SpaceUnit(widget);
  layout.setSpacing(unit);
  layout.setContentsMargins(margin * unit, margin * unit, margin * unit, margin * unit);
}

int FiguresWidth(const QWidget& widget, int characters) {
  return widget.fontMetrics().horizontalAdvance(QLatin1Char('0')) * characters;
}

QFont FixedFont() {
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  const QFont other = QApplication::font();
  if (other.pointSizeF() > 0) font.setPointSizeF(other.pointSizeF());
  return font;
}

double Contrast(const QColor& a, const QColor& b) {
  const auto [dark, light] = std::minmax({Luminance(a), Luminance(b)});
  return (light + 0.05) / (dark + 0.05);
}

QColor Accent(const QPalette& palette) {
  return SetOff(palette.color(QPalette::Active, QPalette::Highlight),
                palette.color(QPalette::Active, QPalette::HighlightedText));
}

QColor FocusColor(const QPalette& palette) {
  return SetOff(palette.color(QPalette::Active, QPalette::Highlight), palette.color(QPalette::Base));
}

QColor LinkColor(const QPalette& palette) {
  return SetOff(palette.color(QPalette::Link), palette.color(QPalette::Base));
}

QColor Outline(const QPalette& palette) {
  return Blend(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.22);
}

QColor Blend(const QColor& ground, const QColor& top, double amount) {
  const auto mix = [amount](int a, int b) {
    return std::clamp(static_cast<int>(std::lround(a + (b - a) * amount)), 0, 255);
  };
  return {mix(ground.red(), top.red()), mix(ground.green(), top.green()), mix(ground.blue(), top.blue())};
}

QColor MarkColor() {
  return {255, 226, 64};
}

QColor MarkTextColor() {
  return {24, 24, 24};
}

QColor SentColor(const QPalette& palette) {
  return Blend(palette.color(QPalette::Base), MarkColor(), 0.25);
}

void SetMarked(QWidget& widget, bool marked) {
  QPalette palette;
  if (marked) {
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button}) {
      palette.setColor(role, MarkColor());
    }
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::PlaceholderText}) {
      palette.setColor(role, MarkTextColor());
    }
  }
  widget.setAutoFillBackground(marked);
  widget.setPalette(palette);
}

}  // namespace marlinset

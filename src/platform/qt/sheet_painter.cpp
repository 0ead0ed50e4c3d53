// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/sheet_painter.h"

#include <QFontMetricsF>
#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPainter>
#include <algorithm>

#include "base/runtime_error.h"

namespace marlinset {
namespace {

constexpr double kMillimetresPerInch = 25.4;
constexpr double kMillimetresPerPoint = kMillimetresPerInch / 72;
constexpr double kMarginMillimetres = 12;
constexpr double kTextPoints = 9;
constexpr double kTitlePoints = 13;
/// Paints in hundredths of a millimetre, so that fonts keep integer sizes.
constexpr double kUnits = 100;
/// Qt treats anything less as no space.
constexpr double kLetterSpace = 1;
/// A text is narrowed down to this before it is cut.
constexpr double kNarrowest = 0.6;

QFont FontOf(PrintLook look) {
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setStyleHint(QFont::SansSerif);
  const double points = look == PrintLook::kTitle ? kTitlePoints : kTextPoints;
  font.setPixelSize(static_cast<int>(points * kMillimetresPerPoint * kUnits));
  font.setBold(look == PrintLook::kBold || look == PrintLook::kTitle);
  // Keeps letters separate: a document in which "fi" is one glyph can't be searched for it. Spaced text has
  // no ligatures.
  font.setLetterSpacing(QFont::AbsoluteSpacing, kLetterSpace);
  return font;
}

Qt::Alignment AlignmentOf(PrintAlign align) {
  switch (align) {
    case PrintAlign::kCentre:
      return Qt::AlignHCenter | Qt::AlignVCenter;
    case PrintAlign::kRight:
      return Qt::AlignRight | Qt::AlignVCenter;
    case PrintAlign::kLeft:
      break;
  }
  return Qt::AlignLeft | Qt::AlignVCenter;
}

void PaintText(QPainter& painter, const QRectF& area, const PrintItem& item) {
  painter.setFont(FontOf(item.look));
  painter.setPen(item.look == PrintLook::kFaint ? QColor(80, 80, 80) : QColor(Qt::black));
  const QFontMetricsF metrics(painter.font());
  // One line, whatever line breaks the text contained.
  QString text = QString::fromStdString(item.text).replace(QLatin1Char('\n'), QLatin1Char(' '));
  const double needed = metrics.horizontalAdvance(text);
  const double narrowed = needed <= area.width() ? 1 : std::max(kNarrowest, area.width() / needed);
  if (needed * narrowed > area.width()) {
    text = metrics.elidedText(text, Qt::ElideRight, area.width() / narrowed);
  }
  painter.save();
  painter.translate(area.left(), area.top());
  painter.scale(narrowed, 1);
  painter.drawText(QRectF(0, 0, area.width() / narrowed, area.height()),
                   static_cast<int>(AlignmentOf(item.align)) | Qt::TextSingleLine | Qt::TextDontClip, text);
  painter.restore();
}

/// The cross is a letter, so that a document's text contains it too.
void PaintCheck(QPainter& painter, const QRectF& area, const PrintItem& item) {
  const double side = std::min(area.width(), area.height()) * 0.66;
  QRectF box(0, 0, side, side);
  box.moveCenter(area.center());
  painter.setPen(QPen(Qt::black, 0.2 * kUnits));
  painter.drawRect(box);
  if (!item.on) return;
  PrintItem cross = item;
  cross.text = "x";
  cross.look = PrintLook::kBold;
  cross.align = PrintAlign::kCentre;
  PaintText(painter, box.adjusted(-side, -side * 0.15, side, -side * 0.15), cross);
}

void PaintItem(QPainter& painter, const PrintItem& item) {
  const QRectF area(item.x * kUnits, item.y * kUnits, item.width * kUnits, item.height * kUnits);
  switch (item.kind) {
    case PrintKind::kText:
      return PaintText(painter, area, item);
    case PrintKind::kCheck:
      return PaintCheck(painter, area, item);
    case PrintKind::kFrame:
      painter.setPen(QPen(QColor(120, 120, 120), 0.2 * kUnits));
      painter.drawRoundedRect(area, kUnits, kUnits);
      return;
    case PrintKind::kRule:
      painter.setPen(QPen(QColor(190, 190, 190), 0.15 * kUnits));
      painter.drawLine(area.topLeft(), area.topRight());
      return;
  }
}

/// Maps the sheet's measure to the device: unchanged, or scaled down for smaller paper.
void SetScale(QPainter& painter, const QPagedPaintDevice& device) {
  const QRectF paper = device.pageLayout().paintRect(QPageLayout::Millimeter);
  const double fit = std::min({1.0, paper.width() / kSheetWidth, paper.height() / kSheetHeight}) /
                     (kMillimetresPerInch * kUnits);
  painter.resetTransform();
  const double left =
      std::max(0.0, (paper.width() - kSheetWidth) / 2) / kMillimetresPerInch * device.logicalDpiX();
  painter.translate(left, 0);
  painter.scale(fit * device.logicalDpiX(), fit * device.logicalDpiY());
  painter.setRenderHint(QPainter::Antialiasing);
}

}  // namespace

QPageLayout RecordLayout(const QPagedPaintDevice& device) {
  QPageLayout layout = device.pageLayout();
  layout.setUnits(QPageLayout::Millimeter);
  layout.setOrientation(QPageLayout::Portrait);
  layout.setMargins({kMarginMillimetres, kMarginMillimetres, kMarginMillimetres, kMarginMillimetres});
  return layout;
}

void PaintForms(QPagedPaintDevice& device, const std::vector<PrintedForm>& forms) {
  QPainter painter;
  if (!painter.begin(&device)) throw PrinterError();
  bool first = true;
  for (const PrintedForm& form : forms) {
    for (const PrintSheet& sheet : form.sheets) {
      if (!first && !device.newPage()) throw PrinterError();
      first = false;
      SetScale(painter, device);
      for (const PrintItem& item : sheet) PaintItem(painter, item);
    }
  }
  if (!painter.end()) throw PrinterError();
}

}  // namespace marlinset

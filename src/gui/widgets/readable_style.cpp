// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/widgets/readable_style.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOption>
#include <algorithm>

#include "gui/widgets/look.h"

namespace marlinset {
namespace {

/// Whether a field's own edge is visible on its background.
bool ShowsEdges(const QPalette& palette) {
  const QColor base = palette.color(QPalette::Base);
  return base.lightness() > palette.color(QPalette::Text).lightness() && base != MarkColor();
}

void PaintFrame(QPainter& painter, const QRect& rect, const QPen& pen, bool round) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(pen);
  painter.setBrush(Qt::NoBrush);
  const double half = pen.widthF() / 2;
  const QRectF edge = QRectF(rect).adjusted(half, half, -half, -half);
  if (round) {
    painter.drawEllipse(edge);
  } else {
    painter.drawRoundedRect(edge, 1.5, 1.5);
  }
  painter.restore();
}

/// A faint edge for disabled widgets, a plain one for the rest.
void PaintEdge(QPainter& painter, const QStyleOption& option, bool round) {
  const QPalette& palette = option.palette;
  const double strength = option.state & QStyle::State_Enabled ? 0.5 : 0.2;
  const QColor base = palette.color(QPalette::Base);
  PaintFrame(painter, option.rect, Blend(base, palette.color(QPalette::Active, QPalette::Text), strength),
             round);
}

/// A tick or a dot, and in the focus a frame: the usual styles show none before the Tab key is pressed, and
/// then a faint one.
void PaintIndicatorEdge(QPainter& painter, const QStyleOption& option, bool round) {
  constexpr int kFocusWidth = 2;
  if (option.state & QStyle::State_HasFocus) {
    PaintFrame(painter, option.rect, QPen(FocusColor(option.palette), kFocusWidth), round);
  } else {
    PaintEdge(painter, option, round);
  }
}

/// The head of a column whose cells are aligned to the right; nothing for anything else.
const QStyleOptionHeader* RightHead(const QStyleOption* option) {
  const auto* head = qstyleoption_cast<const QStyleOptionHeader*>(option);
  return head && head->orientation == Qt::Horizontal && head->textAlignment & Qt::AlignRight ? head : nullptr;
}

bool IsRightCell(const QStyleOption* option) {
  const auto* cell = qstyleoption_cast<const QStyleOptionViewItem*>(option);
  return cell && cell->displayAlignment & Qt::AlignRight;
}

/// The gap between numbers, and their head, and the next column.
int ColumnGap(const QStyleOption& option) {
  return option.fontMetrics.height();
}

}  // namespace

QRect ReadableStyle::subElementRect(SubElement element, const QStyleOption* option,
                                    const QWidget* widget) const {
  QRect rect = QProxyStyle::subElementRect(element, option, widget);
  if (element == SE_ItemViewItemText && IsRightCell(option)) {
    const int margin = proxy()->pixelMetric(PM_FocusFrameHMargin, option, widget) + 1;
    rect.setRight(option->rect.right() - ColumnGap(*option) + margin);
  }
  return rect;
}

void ReadableStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                                const QWidget* widget) const {
  const QStyleOptionHeader* head = element == CE_Header ? RightHead(option) : nullptr;
  if (!head) return QProxyStyle::drawControl(element, option, painter, widget);
  // The desktop's arrow would follow the text and push it aside.
  painter->save();
  painter->setClipRect(head->rect, Qt::IntersectClip);
  proxy()->drawControl(CE_HeaderSection, head, painter, widget);
  QStyleOptionHeader part = *head;
  part.sortIndicator = QStyleOptionHeader::None;
  part.rect.setRight(head->rect.right() - ColumnGap(*head));
  proxy()->drawControl(CE_HeaderLabel, &part, painter, widget);
  if (head->sortIndicator != QStyleOptionHeader::None) {
    part = *head;
    part.rect = proxy()->subElementRect(SE_HeaderArrow, head, widget);
    part.rect.moveLeft(head->rect.left() + proxy()->pixelMetric(PM_HeaderMargin, head, widget));
    proxy()->drawPrimitive(PE_IndicatorHeaderArrow, &part, painter, widget);
  }
  painter->restore();
}

QSize ReadableStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                      const QWidget* widget) const {
  const QSize whole = QProxyStyle::sizeFromContents(type, option, size, widget);
  const QStyleOptionHeader* head = type == CT_HeaderSection ? RightHead(option) : nullptr;
  if (head) {
    QStyleOptionHeader sorted = *head;  // with room for the arrow, shown or not
    sorted.sortIndicator = QStyleOptionHeader::SortDown;
    return QProxyStyle::sizeFromContents(type, &sorted, size, widget) + QSize(ColumnGap(*option), 0);
  }
  return type == CT_ItemViewItem && IsRightCell(option) ? whole + QSize(ColumnGap(*option), 0) : whole;
}

int ReadableStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  const int usual = QProxyStyle::pixelMetric(metric, option, widget);
  switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight: {
      const QFontMetrics letters(widget ? widget->font() : QApplication::font());
      return std::max(usual, letters.ascent());
    }
    default:
      return usual;
  }
}

void ReadableStyle::polish(QPalette& palette) {
  QProxyStyle::polish(palette);
  const QColor accent = Accent(palette);
  const bool same = palette.color(QPalette::Inactive, QPalette::Highlight) ==
                    palette.color(QPalette::Active, QPalette::Highlight);
  palette.setColor(QPalette::Active, QPalette::Highlight, accent);
  if (same) palette.setColor(QPalette::Inactive, QPalette::Highlight, accent);
  // Some dark desktops leave it black.
  constexpr double kPrompt = 0.65;
  palette.setColor(QPalette::PlaceholderText,
                   Blend(palette.color(QPalette::Active, QPalette::Base),
                         palette.color(QPalette::Active, QPalette::Text), kPrompt));
}

void ReadableStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                  const QWidget* widget) const {
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  const bool focused = option->state & State_HasFocus;
  if (element == PE_IndicatorRadioButton) PaintIndicatorEdge(*painter, *option, true);
  if (element == PE_IndicatorCheckBox) PaintIndicatorEdge(*painter, *option, false);
  if (element == PE_FrameLineEdit && !focused && !ShowsEdges(option->palette))
    PaintEdge(*painter, *option, false);
}

void ReadableStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                       QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawComplexControl(control, option, painter, widget);
  const bool focused = option->state & State_HasFocus;
  if (control == CC_SpinBox && !focused && !ShowsEdges(option->palette)) PaintEdge(*painter, *option, false);
}

}  // namespace marlinset

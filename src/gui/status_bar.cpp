// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/status_bar.h"

#include <QPainter>

#include "gui/widgets/look.h"

namespace marlinset {

StatusPanelView::StatusPanelView(FrmStart& form, StatusPanel& panel, QWidget* parent)
    : QWidget(parent), form_(form), panel_(panel) {
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  auto* binding = new Binding(*this, panel, [this] { ShowControl(); });
  binding->Show();
}

void StatusPanelView::ShowControl() {
  picture_.reset();
  QString tip = Shown(panel_.Text());
  for (const int i : form_.Image2.Indices()) {
    const PictureBox& picture = form_.Image2(i);
    if (panel_.Picture() != picture.FullName()) continue;
    picture_ = static_cast<VideoPicture>(i);
    if (!tip.isEmpty()) tip += QLatin1Char('\n');
    tip += Shown(picture.ToolTip());
  }
  setToolTip(tip);
  setAccessibleName(Shown(panel_.Text()));
  update();
}

QRect StatusPanelView::TextArea() const {
  const int unit = SpaceUnit(*this);
  const int picture = picture_ ? fontMetrics().height() * 4 / 3 + unit : 0;
  return rect().adjusted(unit + picture, 0, -unit, 0);
}

QString StatusPanelView::ReadableText() const {
  return fontMetrics().elidedText(Shown(panel_.Text()), Qt::ElideRight, TextArea().width());
}

QSize StatusPanelView::sizeHint() const {
  return {fontMetrics().averageCharWidth() * 24, fontMetrics().height() + SpaceUnit(*this)};
}

QSize StatusPanelView::minimumSizeHint() const {
  return {fontMetrics().averageCharWidth() * 10, sizeHint().height()};
}

void StatusPanelView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (picture_) {
    const double high = fontMetrics().height();
    const QRectF area(SpaceUnit(*this), (height() - high) / 2, high * 4 / 3, high);
    PaintVideo(painter, area, *picture_, palette());
  }
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(TextArea(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, ReadableText());
  if (panel_.Index() != form_.StatBar.UBound()) {
    painter.setPen(Outline(palette()));
    painter.drawLine(rect().right(), 2, rect().right(), rect().bottom() - 2);
  }
}

StatusBarView::StatusBarView(FrmStart& form, QWidget* parent) : QStatusBar(parent) {
  setObjectName(Shown(form.StatBar.Name()));
  for (const int i : form.StatBar.Indices()) addWidget(new StatusPanelView(form, form.StatBar(i), this), 1);
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/widgets/group.h"

#include <QFrame>
#include <QGridLayout>
#include <QPainter>
#include <QResizeEvent>
#include <QVBoxLayout>

#include "gui/widgets/look.h"
#include "gui/widgets/widget_bindings.h"

namespace marlinset {

Group::Group(Frame& frame, QWidget* parent) : QWidget(parent), frame_(frame), title_(new QLabel(this)) {
  QFont bold = font();
  bold.setBold(true);
  title_->setFont(bold);
  title_->setTextFormat(Qt::PlainText);
  title_->setText(Shown(frame.Caption()));
  auto* rows = new QVBoxLayout(this);
  SetSpaces(*rows, *this, 2);
  rows->addWidget(title_);
  grid_ = new QGridLayout;
  SetSpaces(*grid_, *this);
  grid_->setHorizontalSpacing(2 * SpaceUnit(*this));
  grid_->setColumnStretch(2, 1);  // fields keep their natural width
  rows->addLayout(grid_);
  Bind(*this, frame);
}

void Group::AddRow(QLabel* label, QWidget* field) {
  const int row = grid_->rowCount();
  label->setBuddy(field);
  grid_->addWidget(label, row, 0);
  grid_->addWidget(field, row, 1);
  Name(*field, label->text());
}

void Group::AddTitled(QWidget* field, char mnemonic, int columns) {
  title_->setText(ShownWithMnemonic(frame_.Caption(), mnemonic));
  title_->setBuddy(field);
  grid_->addWidget(field, grid_->rowCount(), 0, 1, columns);
  field->setAccessibleName(SpokenName(title_->text()));
}

void Group::Name(QWidget& field, const QString& label) const {
  field.setAccessibleName(SpokenName(ShownLiteral(frame_.Caption())) + QStringLiteral(", ") +
                          SpokenName(label));
}

void Group::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Outline(palette()));
  painter.setBrush(Blend(palette().color(QPalette::Window), palette().color(QPalette::Base), 0.35));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
}

QLabel* MakeLabel(const QString& text, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  label->setTextFormat(Qt::PlainText);
  return label;
}

QLabel* MakeLabel(Label& control, QWidget* parent, char mnemonic) {
  auto* label = new QLabel(parent);
  Bind(*label, control, mnemonic);
  return label;
}

QLabel* MakeLabelFor(const Control& field, QWidget* parent, char mnemonic) {
  return MakeLabel(ShownWithMnemonic(field.Caption(), mnemonic), parent);
}

void AlignLabels(const QList<Group*>& groups) {
  int widest = 0;
  for (const Group* group : groups) {
    for (const QLabel* label : group->findChildren<QLabel*>()) {
      if (label->buddy()) widest = std::max(widest, label->sizeHint().width());
    }
  }
  for (const Group* group : groups) group->Grid().setColumnMinimumWidth(0, widest);
}

SideBySide::SideBySide(QWidget* first, QWidget* second, QWidget* parent)
    : QWidget(parent), first_(first), second_(second), box_(new QBoxLayout(QBoxLayout::LeftToRight, this)) {
  SetSpaces(*box_, *this);
  box_->setSpacing(2 * SpaceUnit(*this));
  box_->setSizeConstraint(QLayout::SetNoConstraint);
  box_->addWidget(first);
  box_->addWidget(second);
  box_->addStretch(1);
}

void SideBySide::LetFirstGrow(int widest) {
  widest_ = widest;
  first_->setMaximumWidth(widest);
  box_->setStretch(0, kNearlyAll);
  box_->setStretch(2, widest < QWIDGETSIZE_MAX ? 1 : 0);  // the first leaves the rest empty
}

int SideBySide::WidthForBoth() const {
  return first_->minimumSizeHint().width() + box_->spacing() + second_->minimumSizeHint().width();
}

QSize SideBySide::sizeHint() const {
  return {WidthForBoth(), std::max(first_->sizeHint().height(), second_->sizeHint().height())};
}

QSize SideBySide::minimumSizeHint() const {
  const QSize first = first_->minimumSizeHint();
  const QSize second = second_->minimumSizeHint();
  const bool stacked = width() < WidthForBoth();
  return {std::max(first.width(), second.width()), stacked
                                                       ? first.height() + box_->spacing() + second.height()
                                                       : std::max(first.height(), second.height())};
}

void SideBySide::resizeEvent(QResizeEvent* event) {
  const auto direction = width() < WidthForBoth() ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight;
  if (direction != box_->direction()) {
    box_->setDirection(direction);
    first_->setMaximumWidth(direction == QBoxLayout::LeftToRight ? widest_ : QWIDGETSIZE_MAX);
    updateGeometry();
  }
  QWidget::resizeEvent(event);
}

QWidget* MakeColumn(const QList<QWidget*>& widgets, QWidget* parent) {
  auto* column = new QWidget(parent);
  auto* box = new QVBoxLayout(column);
  SetSpaces(*box, *column);
  box->setSpacing(2 * SpaceUnit(*column));
  for (QWidget* widget : widgets) box->addWidget(widget);
  box->addStretch(1);
  return column;
}

void FillPage(QWidget& page, QWidget* content, Qt::Alignment at) {
  auto* rows = new QVBoxLayout(&page);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->addWidget(content, 0, at);
  if (at) rows->addStretch(1);
}

QWidget* MakeRule(QWidget* parent) {
  auto* rule = new QFrame(parent);
  rule->setFixedHeight(1);
  rule->setAutoFillBackground(true);
  rule->setBackgroundRole(QPalette::Mid);
  return rule;
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/fields.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyleOptionSpinBox>
#include <QWheelEvent>
#include <algorithm>
#include <climits>
#include <cstdlib>

#include "gui/binding.h"
#include "gui/look.h"

namespace marlinset {
namespace {

constexpr int kSpinFigures = 6;

bool TypesText(const QKeyEvent& event) {
  const QString text = event.text();
  return event.key() != Qt::Key_Space && !text.isEmpty() && text.at(0).isPrint() &&
         !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
}

}  // namespace

ComboField::ComboField(ComboBox& control, int characters, QWidget* parent) : QComboBox(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  setMinimumContentsLength(characters);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  auto* binding = new Binding(*this, control, [this, &control] { ShowControl(control); });
  binding->Show();
  connect(this, &QComboBox::activated, binding, [binding, &control](int index) {
    binding->Act([&control, index] { control.OperatorSelect(index); });
  });
}

void ComboField::ShowControl(const ComboBox& control) {
  const QSignalBlocker silent(this);
  QStringList entries;
  for (const std::string& entry : control.List()) entries << Shown(entry);
  QStringList present;
  for (int i = 0; i < count(); ++i) present << itemText(i);
  if (entries != present) {
    clear();
    addItems(entries);
  }
  const int index = control.ListIndex();
  const QString text = Shown(control.Text());
  const bool listed = index >= 0 && text == entries.at(index);
  // What no entry stands for: a text that was typed from outside, or an empty list.
  setPlaceholderText(listed ? QString() : entries.isEmpty() && text.isEmpty() ? QStringLiteral("–") : text);
  setCurrentIndex(listed ? index : -1);
}

void ComboField::showPopup() {
  const int entry = view()->sizeHintForColumn(0) + view()->verticalScrollBar()->sizeHint().width();
  view()->setMinimumWidth(std::max(width(), entry + 2 * SpaceUnit(*this)));
  QComboBox::showPopup();
}

/// What no entry stands for is a value as well; desktops paint such texts half transparent or not at all.
void ComboField::initStyleOption(QStyleOptionComboBox* option) const {
  QComboBox::initStyleOption(option);
  QPalette& colors = option->palette;
  colors.setColor(QPalette::PlaceholderText,
                  Blend(colors.color(QPalette::Button), colors.color(QPalette::ButtonText), 0.75));
}

void ComboField::wheelEvent(QWheelEvent* event) {
  if (hasFocus()) {
    QComboBox::wheelEvent(event);
  } else {
    event->ignore();
  }
}

void ComboField::keyPressEvent(QKeyEvent* event) {
  if (TypesText(*event)) {
    event->ignore();
  } else {
    QComboBox::keyPressEvent(event);
  }
}

SpinField::SpinField(SpinControl& spin, TextBox& echo, QWidget* parent)
    : QAbstractSpinBox(parent), spin_(spin), echo_(echo) {
  setFocusPolicy(Qt::StrongFocus);
  setAlignment(Qt::AlignRight);
  lineEdit()->setAcceptDrops(false);  // see Bind of a text box
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  binding_ = new Binding(*this, spin, [this] { ShowControl(); });
  binding_->Add(echo, lineEdit());
  binding_->Show();
  connect(lineEdit(), &QLineEdit::textEdited, binding_, [this] { typing_ = true; });
  connect(this, &QAbstractSpinBox::editingFinished, binding_, [this] {
    if (!staysInUse_) Complete();
  });
}

void SpinField::ShowControl() {
  const QString text = Shown(echo_.Text());
  if (typing_ && text == echoShown_) return;  // a half-typed number outlives a mark or a new limit
  typing_ = false;
  echoShown_ = text;
  if (lineEdit()->text() != text) lineEdit()->setText(text);
  update();
}

void SpinField::Complete() {
  if (!typing_) return;
  typing_ = false;
  const int radix = radix_ ? radix_() : 10;
  bool isNumber = false;
  qlonglong number = lineEdit()->text().toLongLong(&isNumber, radix);
  if (isNumber && radix == 16) number = static_cast<int>(static_cast<unsigned>(number));
  echoShown_.clear();
  binding_->Act([this, isNumber, number] {
    if (isNumber) spin_.OperatorSpin(static_cast<int>(std::clamp<qlonglong>(number, INT_MIN, INT_MAX)));
  });
}

void SpinField::TakeBack() {
  typing_ = false;
  binding_->Show();
}

void SpinField::stepBy(int steps) {
  Complete();
  binding_->Act([this, steps] { spin_.OperatorStep(steps > 0, std::abs(steps)); });
  if (hasFocus()) lineEdit()->selectAll();
}

QAbstractSpinBox::StepEnabled SpinField::stepEnabled() const {
  StepEnabled enabled = StepNone;
  if (typing_ || spin_.Value() != spin_.Max()) enabled |= StepUpEnabled;
  if (typing_ || spin_.Value() != spin_.Min()) enabled |= StepDownEnabled;
  return enabled;
}

QValidator::State SpinField::validate(QString& text, int& /*position*/) const {
  static const QRegularExpression kDecimal(QStringLiteral("^-?[0-9]{0,10}$"));
  static const QRegularExpression kHexadecimal(QStringLiteral("^[0-9A-Fa-f]{0,8}$"));
  const bool hex = radix_ && radix_() == 16;
  if (!(hex ? kHexadecimal : kDecimal).match(text).hasMatch()) return QValidator::Invalid;
  return text.isEmpty() || text == QLatin1String("-") ? QValidator::Intermediate : QValidator::Acceptable;
}

QSize SpinField::sizeHint() const {
  QStyleOptionSpinBox option;
  initStyleOption(&option);
  const QSize text(FiguresWidth(*this, kSpinFigures) + 4, lineEdit()->sizeHint().height());
  return style()->sizeFromContents(QStyle::CT_SpinBox, &option, text, this);
}

void SpinField::wheelEvent(QWheelEvent* event) {
  if (hasFocus()) {
    QAbstractSpinBox::wheelEvent(event);
  } else {
    event->ignore();
  }
}

void SpinField::focusOutEvent(QFocusEvent* event) {
  staysInUse_ = !GoesForGood(*event);
  QAbstractSpinBox::focusOutEvent(event);
  staysInUse_ = false;
}

void SpinField::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && typing_) {
    TakeBack();
    event->accept();
    return;
  }
  QAbstractSpinBox::keyPressEvent(event);
}

void FinishTyping() {
  if (auto* field = qobject_cast<SpinField*>(QApplication::focusWidget())) field->Complete();
}

}  // namespace marlinset

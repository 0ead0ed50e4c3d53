// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/widgets/fields.h"

#include <QAbstractItemView>
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

#include "gui/widgets/binding.h"
#include "gui/widgets/look.h"

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
  connect(this, &QComboBox::activated, binding, [this, binding](int index) {
    binding->Act({OperatorAction::Kind::kSelect, index, Typed(itemText(index))});
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
  // A value without an entry: a text typed from outside, or an empty list.
  setPlaceholderText(listed ? QString() : entries.isEmpty() && text.isEmpty() ? QStringLiteral("–") : text);
  setCurrentIndex(listed ? index : -1);
}

void ComboField::showPopup() {
  const int entry = view()->sizeHintForColumn(0) + view()->verticalScrollBar()->sizeHint().width();
  view()->setMinimumWidth(std::max(width(), entry + 2 * SpaceUnit(*this)));
  QComboBox::showPopup();
}

/// A text without an entry is a value too; desktops paint such texts half transparent or not at all.
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
  } else if (event->isAutoRepeat() && Binding::Of(*this).Pending()) {
    event->accept();  // a key held down changes the list only as fast as the choices are carried out
  } else {
    QComboBox::keyPressEvent(event);
  }
}

SpinField::SpinField(SpinControl& spin, TextBox& echo, QWidget* parent, std::shared_ptr<Subject> subject)
    : QAbstractSpinBox(parent), spin_(&spin), echo_(&echo) {
  setFocusPolicy(Qt::StrongFocus);
  setAlignment(Qt::AlignRight);
  lineEdit()->setAcceptDrops(false);  // see Bind of a text box
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  binding_ = new Binding(
      *this, spin, [this] { ShowControl(); }, std::move(subject));
  binding_->Add(echo, lineEdit());
  echoShown_ = binding_->GetAwaited().text;
  lineEdit()->setText(echoShown_);
  binding_->Show();
  connect(lineEdit(), &QLineEdit::textEdited, binding_, [this] {
    typing_ = true;
    OperatorQueue::OfProgram().HoldTyping(
        *this, [this] { Complete(); },
        [this] {
          const Control* const target = binding_->Target();
          const auto number = TypedNumber();
          return typing_ && target && number ? PendingEdits{{target, WhereItStays(*number)}} : PendingEdits();
        });
  });
  connect(this, &QAbstractSpinBox::editingFinished, binding_, [this] {
    if (!staysInUse_) Complete();
  });
}

void SpinField::Follow(SpinControl& spin, TextBox& echo) {
  spin_ = &spin;
  echo_ = &echo;
  lineEdit()->setObjectName(Shown(echo.FullName()));
  binding_->Follow({&spin, &echo});
}

void SpinField::ShowControl() {
  const QString text = Shown(echo_->Text());
  if (typing_ && text == echoShown_) return;  // a half-typed number outlives a mark or a new limit
  typing_ = false;
  echoShown_ = text;
  if (lineEdit()->text() != text) {
    const bool selected = lineEdit()->hasSelectedText();  // typing continues to replace the value
    lineEdit()->setText(text);
    if (selected) lineEdit()->selectAll();
  }
  update();
}

void SpinField::Complete() {
  if (!typing_ || binding_->Detached()) return;
  typing_ = false;
  echoShown_.clear();
  if (const auto number = TypedNumber()) {
    binding_->Act(
        {.kind = OperatorAction::Kind::kSpin, .number = *number, .leadsTo = NoteWhereItLeads(*number)},
        Turn::kInOrder, [this] { KeepWhatIsTyped(); });
  } else {
    TakeBack();
  }
}

std::optional<int> SpinField::TypedNumber() const {
  const int radix = Radix();
  bool isNumber = false;
  const qlonglong number = lineEdit()->text().toLongLong(&isNumber, radix);
  if (!isNumber) return std::nullopt;
  if (radix == 16) return static_cast<int>(static_cast<unsigned>(number));
  return static_cast<int>(std::clamp<qlonglong>(number, INT_MIN, INT_MAX));
}

void SpinField::TakeBack() {
  typing_ = false;
  OperatorQueue::OfProgram().DropTyping(*this);
  ShowAgain();
}

void SpinField::ShowAgain() {
  if (binding_->Pending() || !binding_->Present()) {
    lineEdit()->setText(binding_->GetAwaited().text);
  } else {
    binding_->Show();
  }
}

void SpinField::stepBy(int steps) {
  if (binding_->Detached() || (heldDown_ && binding_->Pending())) return;
  Complete();
  const int from = SeenValue();
  const bool rising = (steps > 0) == (spin_->Max() >= spin_->Min());
  const qlonglong way = static_cast<qlonglong>(spin_->Increment()) * std::abs(steps);
  const int end = NoteWhereItLeads(from + (rising ? way : -way));
  binding_->Act({.kind = OperatorAction::Kind::kStep, .number = steps, .leadsTo = end}, Turn::kInOrder,
                [this] { KeepWhatIsTyped(); });
  lineEdit()->setText(binding_->GetAwaited().text);
  if (hasFocus()) lineEdit()->selectAll();
}

/// A number typed after an action is newer than the action's result.
void SpinField::KeepWhatIsTyped() {
  if (typing_) echoShown_ = Shown(echo_->Text());
}

/// Replaces provisional limits before the first step.
int SpinField::WhereItStays(qlonglong value) const {
  const bool any = spin_->Provisional();
  return static_cast<int>(
      std::clamp<qlonglong>(value, any ? INT_MIN : spin_->Lowest(), any ? INT_MAX : spin_->Highest()));
}

int SpinField::SeenValue() const {
  return binding_->Pending() || !binding_->Present() ? binding_->GetAwaited().value : spin_->Value();
}

/// Returns the value within the limits. The rules write its echo; until they have, this writes it as they
/// wrote the last one: some show no sign, but none of those has a choice of radix.
int SpinField::NoteWhereItLeads(qlonglong wanted) {
  const int value = WhereItStays(wanted);
  const bool signless = !radix_ && echo_->Text() == std::to_string(std::abs(spin_->Value()));
  Awaited& awaited = binding_->GetAwaited();
  awaited.value = value;
  awaited.text = QString::number(signless ? std::abs(value) : value);
  if (Radix() == 16) awaited.text = QString::number(static_cast<unsigned>(value), 16).toUpper();
  return value;
}

QAbstractSpinBox::StepEnabled SpinField::stepEnabled() const {
  StepEnabled enabled = StepNone;
  const bool any = typing_ || spin_->Provisional();
  if (any || SeenValue() != spin_->Max()) enabled |= StepUpEnabled;
  if (any || SeenValue() != spin_->Min()) enabled |= StepDownEnabled;
  return enabled;
}

QValidator::State SpinField::validate(QString& text, int& /*position*/) const {
  static const QRegularExpression kDecimal(QStringLiteral("^-?[0-9]{0,10}$"));
  static const QRegularExpression kHexadecimal(QStringLiteral("^[0-9A-Fa-f]{0,8}$"));
  const bool hex = Radix() == 16;
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
  heldDown_ = event->isAutoRepeat();
  QAbstractSpinBox::keyPressEvent(event);
  heldDown_ = false;
}

void SpinField::timerEvent(QTimerEvent* event) {
  heldDown_ = true;
  QAbstractSpinBox::timerEvent(event);
  heldDown_ = false;
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/control_types.h"

#include <algorithm>
#include <cstdint>

#include "base/runtime_error.h"
#include "base/text.h"

namespace marlinset {
namespace {

constexpr char32_t kBackspace = 8;

/// The text after one key press at its end. Enter, Esc and similar keys type nothing.
std::string Typed(const std::string& text, char32_t code) {
  if (code == kBackspace) return LeftOf(text, LengthOf(text) - std::min<std::size_t>(LengthOf(text), 1));
  if (code < U' ') return text;
  return text + TextOfCode(code);
}

}  // namespace

bool Button::OperatorClick() {
  return AsOperator([this] { Press(); });
}

bool MenuItem::OperatorClick() {
  return AsOperator([this] { Press(); });
}

bool Label::OperatorClick() {
  return AsOperator([this] { Raise(&ControlEvents::click); });
}

void CheckBox::SetValue(int value) {
  if (value == value_) return;
  TakeValue(value);
  Raise(&ControlEvents::click);
}

void CheckBox::TakeValue(int value) {
  if (value < 0 || value > 2) throw InvalidPropertyValue();
  Store(value_, value);
}

bool CheckBox::OperatorCheck(bool on) {
  return AsOperator([this, on] { SetValue(on ? 1 : 0); });
}

int OptionGroup::Selected() const {
  for (const OptionButton* member : members_) {
    if (member->Value()) return member->Index();
  }
  return kNoIndex;
}

OptionButton::~OptionButton() {
  if (group_) std::erase(group_->members_, this);
}

void OptionButton::Join(OptionGroup& group) {
  group_ = &group;
  group.members_.push_back(this);
}

void OptionButton::SetValue(bool value) {
  if (value == value_) return;
  TakeValue(value);
  if (value) Raise(&ControlEvents::click);
}

void OptionButton::TakeValue(bool value) {
  if (value == value_) return;
  if (value && group_) {
    for (OptionButton* other : group_->members_) {
      if (other != this) other->Store(other->value_, false);
    }
  }
  Store(value_, value);
}

bool OptionButton::OperatorClick() {
  return AsOperator([this] { SetValue(true); });
}

void ComboBox::Clear() {
  list_.clear();
  text_.clear();
  index_ = -1;
  NoteChange();
}

void ComboBox::AddItem(std::string item) {
  list_.push_back(std::move(item));
  NoteChange();
}

void ComboBox::SetListIndex(int index) {
  Preselect(index);
  Raise(&ControlEvents::click);
}

void ComboBox::Preselect(int index) {
  if (index < -1 || index >= ListCount()) throw InvalidPropertyValue();
  index_ = index;
  text_ = index < 0 ? std::string() : list_[static_cast<std::size_t>(index)];
  NoteChange();
}

void ComboBox::TakeText(const std::string& text) {
  const auto found = std::ranges::find(list_, text);
  index_ = found == list_.end() ? -1 : static_cast<int>(found - list_.begin());
  text_ = text;
  NoteChange();
}

void ComboBox::PutBack(int index) {
  if (index != index_) {
    SetListIndex(index);
    return;
  }
  text_ = index < 0 ? std::string() : list_[static_cast<std::size_t>(index)];
  NoteChange();  // even if the text is the same: until then a widget shows what was typed
}

bool ComboBox::OperatorSelect(int index) {
  if (index < 0 || index >= ListCount()) return false;
  return AsOperator([this, index] { SetListIndex(index); });
}

bool ComboBox::OperatorType(std::string text) {
  return AsOperator([this, &text] {
    if (text == text_) return;
    text_ = std::move(text);
    NoteChange();
    Raise(&ControlEvents::change);
  });
}

bool ComboBox::OperatorKey(char32_t code) {
  return AsOperator([this, code] {
    KeyPress press{code};
    Events()->key.Emit(Index(), press);
    if (!press.cancelled) OperatorType(Typed(text_, code));
  });
}

void ListView::SetColumns(std::vector<std::string> columns) {
  columns_ = std::move(columns);
  rows_.clear();
  selected_ = -1;
  NoteChange();
}

void ListView::AddRow(Row row) {
  rows_.push_back(std::move(row));
  NoteChange();
}

void ListView::RemoveRow(int row) {
  if (row < 0 || row >= Count()) throw InvalidPropertyValue();
  rows_.erase(rows_.begin() + row);
  selected_ = -1;
  NoteChange();
}

void ListView::Select(int row) {
  if (row < -1 || row >= Count()) throw InvalidPropertyValue();
  Store(selected_, row);
}

bool ListView::OperatorSelect(int row) {
  if (row < 0 || row >= Count()) return false;
  return AsOperator([this, row] { Select(row); });
}

std::vector<std::string> ListView::Entries() const {
  std::vector<std::string> texts;
  for (const Row& row : rows_) texts.push_back(row.empty() ? std::string() : row.front());
  return texts;
}

int SpinControl::Lowest() const {
  return std::min(min_, max_);
}
int SpinControl::Highest() const {
  return std::max(min_, max_);
}

void SpinControl::SetValue(int value) {
  if (value == value_) return;
  TakeValue(value);
  Raise(&ControlEvents::change);
}

void SpinControl::TakeValue(int value) {
  if (value == value_) return;
  Store(value_, value);
  Raise(&ControlEvents::moved);
}

void SpinControl::Pull() {
  const int inside = std::clamp(value_, Lowest(), Highest());
  if (inside == value_) return;
  Store(value_, inside);
  Announce();
  Raise(&ControlEvents::pulled);
}

void SpinControl::Announce() {
  Raise(&ControlEvents::moved);
}

void SpinControl::SetMin(int min) {
  Store(min_, min);
  Pull();
}

void SpinControl::SetMax(int max) {
  Store(max_, max);
  Pull();
}

void SpinControl::SetLimitsAround(int min, int max) {
  Store(min_, min);
  Store(max_, max);
}

bool SpinControl::OperatorStep(bool up, int times) {
  const std::weak_ptr<const void> life = Life();
  bool moves = true;  // until it reaches the limit
  const auto click = [&] {
    Settle();
    const bool rising = up == (max_ >= min_);
    const std::int64_t next = std::int64_t{value_} + (rising ? increment_ : -increment_);
    const auto value = static_cast<int>(std::clamp<std::int64_t>(next, Lowest(), Highest()));
    moves = value != value_;
    SetValue(value);
  };
  // Each click separately, so that a failing one does not affect the others.
  int clicks = 0;
  while (clicks < times && moves && !life.expired() && AsOperator(click)) ++clicks;
  return clicks > 0;
}

bool SpinControl::OperatorSpin(int value) {
  return AsOperator([this, value] {
    Settle();
    SetValue(std::clamp(value, Lowest(), Highest()));
  });
}

void SpinControl::Settle() {
  if (provisional_) Raise(&ControlEvents::settle);
}

void TextBox::SetText(std::string text) {
  if (text == text_) return;
  Store(text_, std::move(text));
  Raise(&ControlEvents::change);
}

bool TextBox::OperatorType(std::string text) {
  return AsOperator([this, &text] { SetText(std::move(text)); });
}

bool TextBox::OperatorKey(char32_t code) {
  return AsOperator([this, code] {
    if (Passes(code)) SetText(Typed(text_, code));
  });
}

bool TextBox::TakesKey(char32_t code) {
  bool passes = false;
  AsOperator([&] { passes = Passes(code); });
  return passes;
}

bool TextBox::Passes(char32_t code) const {
  KeyPress press{code};
  Events()->key.Emit(Index(), press);
  return !press.cancelled;
}

void ScrollBar::SetValue(int value) {
  if (value == value_) return;
  Store(value_, value);
  Raise(&ControlEvents::change);
}

bool ScrollBar::OperatorScroll(int value) {
  return AsOperator([this, value] { SetValue(std::clamp(value, 0, max_)); });
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/control.h"

namespace marlinset {

/// The order of a button's column, if the button heads a table that it sorts.
enum class SortArrow { kNone, kRising, kFalling };

/// A button. Press, for code, runs the handler at once, even if the button is disabled or hidden.
class Button : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::kButton; }
  void Press() { Raise(&ControlEvents::click); }
  SortArrow Arrow() const { return arrow_; }
  void SetArrow(SortArrow arrow) { Store(arrow_, arrow); }
  bool OperatorClick() override;

 protected:
  void PackKind(FieldPacker& fields) const override;
  void RestoreKind(FieldReader& fields) override;

 private:
  SortArrow arrow_ = SortArrow::kNone;
};

/// An entry of a menu: a tick, and a handler that runs when the operator chooses it or code presses it.
class MenuItem : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::kMenuItem; }
  bool Checked() const { return checked_; }
  /// Sets the tick; never runs the handler.
  void SetChecked(bool checked) { Store(checked_, checked); }
  void Press() { Raise(&ControlEvents::click); }
  bool OperatorClick() override;

 protected:
  void PackKind(FieldPacker& fields) const override;
  void RestoreKind(FieldReader& fields) override;

 private:
  bool checked_ = false;
};

/// A check box with the values 0 (off), 1 (on) and 2 (neither).
class CheckBox : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::kCheckBox; }
  int Value() const { return value_; }
  bool On() const { return value_ == 1; }
  /// Runs Click if the value really changes. Throws InvalidPropertyValue for a value other than 0, 1, 2.
  void SetValue(int value);
  /// The same without Click, for a value that comes with others and whose rules must not run.
  void TakeValue(int value);
  /// Ticks or unticks the box; does nothing if it is so already.
  bool OperatorCheck(bool on) override;

 protected:
  void PackKind(FieldPacker& fields) const override;
  void RestoreKind(FieldReader& fields) override;

 private:
  int value_ = 0;
};

class OptionButton;

/// The option buttons of one choice: at most one of them is on.
class OptionGroup {
 public:
  /// The index of the button that is on, kNoIndex if none is.
  int Selected() const;

 private:
  friend class OptionButton;
  std::vector<OptionButton*> members_;
};

/// One option of a choice.
class OptionButton : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::kOptionButton; }
  ~OptionButton() override;
  /// Makes the button part of a choice; until then it belongs to none.
  void Join(OptionGroup& group);
  bool Value() const { return value_; }
  /// True clears the others of the choice without an event; if this one was not set yet, it runs its Click.
  void SetValue(bool value);
  /// The same without Click.
  void TakeValue(bool value);
  bool OperatorClick() override;

 protected:
  void PackKind(FieldPacker& fields) const override;
  void RestoreKind(FieldReader& fields) override;

 private:
  OptionGroup* group_ = nullptr;
  bool value_ = false;
};

/// A drop-down list whose text box can be typed into.
class ComboBox : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::kComboBox; }
  const std::string& Text() const { return text_; }
  const std::vector<std::string>& List() const { return list_; }
  int ListCount() const { return static_cast<int>(list_.size()); }
  /// The selected entry, -1 when none is.
  int ListIndex() const { return index_; }
  /// Empties list and text; no event.
  void Clear();
  void AddItem(std::string item);
  /// Selects an entry and runs Click, even if it is selected already; -1 selects none. Throws
  /// InvalidPropertyValue for any other index that the list does not have.
  void SetListIndex(int index);
  /// Selects an entry without Click, for a list that opens with a selection that nobody made.
  void Preselect(int index);
  /// Shows a text without Click or Change: the entry with this text is selected, or none if the list does not
  /// offer it.
  void TakeText(const std::string& text);
  /// Undoes typing: the box shows the entry's text again. Raises no event if `index` is selected already;
  /// otherwise selects it.
  void PutBack(int index);
  /// The operator chooses an entry from the list.
  bool OperatorSelect(int index) override;
  /// The operator changes the text of the box; the selected entry stays.
  bool OperatorType(std::string text) override;
  /// One key press; types into the text unless a handler cancels it.
  bool OperatorKey(char32_t code) override;
  std::vector<std::string> Entries() const override { return list_; }

 protected:
  void PackKind(FieldPacker& fields) const override;
  void RestoreKind(FieldReader& fields) override;

 private:
  std::string text_;
  std::vector<std::string> list_;
  int index_ = -1;
};

/// A list of rows with several columns, of which one row may be selected.
class ListView : public Control {
 public:
  using Row = std::vector<std::string>;
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::kListView; }
  const std::vector<std::string>& Columns() const { return columns_; }
  const std::vector<Row>& Rows() const { return rows_; }
  int Count() const { return static_cast<int>(rows_.size()); }
  /// The selected row, -1 when none is.
  int Selected() const { return selected_; }
  /// Empties the list and names its columns.
  void SetColumns(std::vector<std::string> columns);
  void AddRow(Row row);
  /// Removes a row; then none is selected. Throws InvalidPropertyValue for a row that the list does not have.
  void RemoveRow(int row);
  /// -1 selects none. Throws InvalidPropertyValue for any other row that the list does not have.
  void Select(int row);
  bool OperatorSelect(int row) override;
  /// The texts of the first column.
  std::vector<std::string> Entries() const override;

 protected:
  void PackKind(FieldPacker& fields) const override;
  void RestoreKind(FieldReader& fields) override;

 private:
  std::vector<std::string> columns_;
  std::vector<Row> rows_;
  int selected_ = -1;
};

/// A value with two arrows. `Min` may exceed `Max`; the control then counts the other way.
class SpinControl : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::kSpin; }
  int Value() const { return value_; }
  int Min() const { return min_; }
  int Max() const { return max_; }
  int Increment() const { return increment_; }
  int Lowest() const;
  int Highest() const;
  /// Takes any value, even outside the limits; runs Change on a real change.
  void SetValue(int value);
  /// The same without Change; OnMoved reports it.
  void TakeValue(int value);
  /// Sets a limit and pulls the value inside. A pull runs no Change, but OnMoved reports it.
  void SetMin(int min);
  void SetMax(int max);
  /// Sets limits and leaves the value as it is, even outside.
  void SetLimitsAround(int min, int max);
  /// The limits are placeholders: OnSettle is raised before the operator's next move.
  bool Provisional() const { return provisional_; }
  void SetProvisional(bool provisional) { Store(provisional_, provisional); }
  void SetIncrement(int increment) { Store(increment_, increment); }
  /// Reports the present value again (OnMoved), for a row that was just built.
  void Announce();
  /// `times` clicks on an arrow: up goes towards Max, down towards Min; each click that moves is a change of
  /// its own.
  bool OperatorStep(bool up, int times = 1) override;
  /// Brings the spin to `value` with one change, kept inside the limits.
  bool OperatorSpin(int value) override;
  /// Has provisional limits replaced by the real ones, before a rule moves the spin for the operator.
  void Settle();

 protected:
  void PackKind(FieldPacker& fields) const override;
  void RestoreKind(FieldReader& fields) override;

 private:
  void Pull();
  int value_ = 0;
  int min_ = 0;
  int max_ = 100;
  int increment_ = 1;
  bool provisional_ = false;
};

/// A text box.
class TextBox : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::kTextBox; }
  const std::string& Text() const { return text_; }
  /// Runs Change on a real change.
  void SetText(std::string text);
  /// The same without Change.
  void TakeText(std::string text) { Store(text_, std::move(text)); }
  /// The operator replaces the text; one change.
  bool OperatorType(std::string text) override;
  /// One key press; types at the end of the text unless a handler cancels it.
  bool OperatorKey(char32_t code) override;
  /// Whether the key handlers let a key press pass: for a widget that types by itself, at its own
  /// cursor.
  bool TakesKey(char32_t code);

 protected:
  void PackKind(FieldPacker& fields) const override;
  void RestoreKind(FieldReader& fields) override;

 private:
  bool Passes(char32_t code) const;
  std::string text_;
};

/// A fixed text, which is its caption.
class Label : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::kLabel; }
  bool OperatorClick() override;
};

/// A group of controls, or a band of the tool bar.
class Frame : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::kFrame; }
};

/// A separator between two rows.
class Line : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::kLine; }
};

/// A picture, a coloured patch or a sheet that scrolls.
class PictureBox : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::kPicture; }
  /// Position of a scrolling sheet in the sheet's units.
  int Top() const { return top_; }
  void SetTop(int top) { Store(top_, top); }

 protected:
  void PackKind(FieldPacker& fields) const override;
  void RestoreKind(FieldReader& fields) override;

 private:
  int top_ = 0;
};

/// A scroll bar.
class ScrollBar : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::kScrollBar; }
  int Value() const { return value_; }
  int Max() const { return max_; }
  void SetMax(int max) { Store(max_, max); }
  void SetValue(int value);
  bool OperatorScroll(int value) override;

 protected:
  void PackKind(FieldPacker& fields) const override;
  void RestoreKind(FieldReader& fields) override;

 private:
  int value_ = 0;
  int max_ = 0;
};

/// One panel of the status bar: a text and the picture beside it, identified by its control ("Image2(1)").
class StatusPanel : public Control {
 public:
  using Control::Control;
  ControlKind Kind() const override { return ControlKind::kStatusPanel; }
  const std::string& Text() const { return text_; }
  void SetText(std::string text) { Store(text_, std::move(text)); }
  const std::string& Picture() const { return picture_; }
  void SetPicture(std::string picture) { Store(picture_, std::move(picture)); }

 protected:
  void PackKind(FieldPacker& fields) const override;
  void RestoreKind(FieldReader& fields) override;

 private:
  std::string text_;
  std::string picture_;
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "controls/signal.h"

namespace marlinset {

class FieldPacker;
class FieldReader;
class Form;

/// A colour as 0x00BBGGRR, or the desktop's own colour of a window's background.
using Color = std::uint32_t;
constexpr Color kRed = 255;
constexpr Color kGreen = 0xFF00;
constexpr Color kYellow = 0xFFFF;
constexpr Color kWhite = 0xFFFFFF;
constexpr Color kWindowColor = 0x80000005;

enum class ControlKind {
  kButton,
  kCheckBox,
  kComboBox,
  kFrame,
  kLabel,
  kLine,
  kListView,
  kMenuItem,
  kOptionButton,
  kPicture,
  kScrollBar,
  kSpin,
  kStatusPanel,
  kTextBox,
};

/// A key press on its way to a control; a handler may cancel it. Code 8 is backspace, others are code points
/// of characters.
struct KeyPress {
  char32_t code;
  bool cancelled = false;
};

/// What a control, or all elements of a control array together, can report to the rules behind the panel. The
/// number is the element's index, kNoIndex for a single control.
struct ControlEvents {
  Signal<int> click;
  Signal<int> change;
  Signal<int> moved;   ///< a spin's value changed, for whatever reason; raised before `change`
  Signal<int> pulled;  ///< new limits have moved a spin's value; no `change` follows
  Signal<int> settle;  ///< the operator is about to move a spin whose limits are provisional
  Signal<int> mouseMove;
  Signal<int> lostFocus;
  Signal<int, KeyPress&> key;
};

constexpr int kNoIndex = -1;
/// "comVS", or "comTB(1)" for an element of an array.
std::string FullNameOf(std::string_view name, int index);

/// What rules connect to: a control or a control array.
class EventSource {
 public:
  using Handler = std::function<void()>;
  using IndexHandler = std::function<void(int)>;

  void OnClick(IndexHandler handler) { events_->click.Connect(std::move(handler)); }
  void OnClick(Handler handler) { events_->click.Connect(Plain(std::move(handler))); }
  void OnChange(IndexHandler handler) { events_->change.Connect(std::move(handler)); }
  void OnChange(Handler handler) { events_->change.Connect(Plain(std::move(handler))); }
  /// A spin's value moved, by a change or a pull: the handler updates echo and stored position.
  void OnMoved(IndexHandler handler) { events_->moved.Connect(std::move(handler)); }
  /// New limits moved a spin's value. That is not a change: no rules run, nothing is sent.
  void OnPulled(IndexHandler handler) { events_->pulled.Connect(std::move(handler)); }
  /// The operator is about to move a spin whose limits are provisional: the handler sets the real ones.
  void OnSettle(IndexHandler handler) { events_->settle.Connect(std::move(handler)); }
  void OnMouseMove(IndexHandler handler) { events_->mouseMove.Connect(std::move(handler)); }
  void OnMouseMove(Handler handler) { events_->mouseMove.Connect(Plain(std::move(handler))); }
  void OnLostFocus(IndexHandler handler) { events_->lostFocus.Connect(std::move(handler)); }
  void OnKey(std::function<void(int, KeyPress&)> handler) { events_->key.Connect(std::move(handler)); }

 protected:
  explicit EventSource(std::shared_ptr<ControlEvents> events) : events_(std::move(events)) {}
  const std::shared_ptr<ControlEvents>& Events() const { return events_; }

 private:
  static IndexHandler Plain(Handler handler) {
    return [handler = std::move(handler)](int) { handler(); };
  }
  std::shared_ptr<ControlEvents> events_;
};

/// A control of a form: the part that rules, files and senders see. A widget shows it, repaints on `Changed`
/// and calls only the operator's entry points (Operator...). They run under the guard, do nothing while the
/// control is disabled or hidden, and return whether the control took the action. They throw NotSupported if
/// that kind of control does not know the action.
class Control : public EventSource {
 public:
  /// A single control.
  Control(Form& form, std::string name);
  /// An element of a control array, which shares the array's events.
  Control(Form& form, std::string name, int index, std::shared_ptr<ControlEvents> events);
  virtual ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  virtual ControlKind Kind() const = 0;
  Form& Owner() const { return form_; }
  const std::string& Name() const { return name_; }
  int Index() const { return index_; }
  /// "comVS", or "comTB(1)" for an element of an array.
  std::string FullName() const { return FullNameOf(name_, index_); }

  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled) { Store(enabled_, enabled); }
  /// The control's own flag, whatever panel is shown.
  bool Visible() const { return visible_; }
  void SetVisible(bool visible) { Store(visible_, visible); }
  Color BackColor() const { return backColor_; }
  void SetBackColor(Color color) { Store(backColor_, color); }
  /// The text on or beside the control; "&" does not mark a mnemonic here.
  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption) { Store(caption_, std::move(caption)); }
  const std::string& ToolTip() const { return toolTip_; }
  void SetToolTip(std::string toolTip) { Store(toolTip_, std::move(toolTip)); }

  /// The mouse moves over the control, which may be disabled.
  void OperatorHover();
  /// The control loses the focus; being disabled or hidden also takes it away.
  void OperatorLeave();
  /// Each kind says what these do to it.
  virtual bool OperatorClick();
  virtual bool OperatorCheck(bool on);
  virtual bool OperatorSelect(int entry);
  virtual bool OperatorType(std::string text);
  virtual bool OperatorKey(char32_t code);
  virtual bool OperatorSpin(int value);
  virtual bool OperatorStep(bool up, int times);
  virtual bool OperatorScroll(int value);
  /// The texts of the entries that an operator can select.
  virtual std::vector<std::string> Entries() const;

  /// Packs all that rules and operator change: flags, caption, and what the control's kind has besides. Not
  /// the colour, which marks what happens at the moment, nor the tool tip.
  void PackState(FieldPacker& fields) const;
  /// Takes a state that was packed before. Runs no handler, so no rule acts on it and nothing is sent; a
  /// screen follows.
  void RestoreState(FieldReader& fields);

  /// Something that a screen shows has changed.
  Signal<> Changed;

  /// Expires with the control. An operator's action can wait for the unit, and opening a file meanwhile
  /// removes the rows of the previous one.
  std::weak_ptr<const void> Life() const { return life_; }

 protected:
  template <class T>
  void Store(T& field, T value) {
    if (field == value) return;
    field = std::move(value);
    NoteChange();
  }
  /// Notifies the screen and the form.
  void NoteChange();
  void Raise(Signal<int> ControlEvents::*event) const;
  /// Runs an operator's action under the form's guard; returns false if the control does not take it now.
  bool AsOperator(const std::function<void()>& action);
  bool TakesInput() const { return enabled_ && visible_; }
  /// The part of the state that only this kind has.
  virtual void PackKind(FieldPacker& /*fields*/) const {}
  virtual void RestoreKind(FieldReader& /*fields*/) {}

 private:
  friend class Form;
  Form& form_;
  std::string name_;
  int index_;
  bool enabled_ = true;
  bool visible_ = true;
  Color backColor_ = kWindowColor;
  std::string caption_;
  std::string toolTip_;
  std::shared_ptr<const void> life_ = std::make_shared<char>();
  int touch_ = kNoIndex;  ///< place in the form's list of touched controls
};

}  // namespace marlinset

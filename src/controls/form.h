// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "controls/control.h"

namespace marlinset {

class Guard;

/// A window of the tool, independent of any screen: its caption and its controls, found by name and index.
class Form : public EventSource {
 public:
  Form(std::string name, Guard& guard);
  virtual ~Form() = default;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const std::string& Name() const { return name_; }
  Guard& GetGuard() const { return guard_; }
  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption);
  bool Visible() const { return visible_; }
  void SetVisible(bool visible);

  /// The control of that name ("comVS") or element of that array ("chOnOff", 3); null if there is none.
  Control* Find(std::string_view name, int index = kNoIndex) const;
  /// All controls by full name, in alphabetical order.
  std::vector<Control*> Controls() const;

  /// The mouse moves over the form itself, not over a control.
  void OperatorHover();

  Signal<> Changed;
  /// The operator closes the window while something waits: the wait gives up, then the close request follows.
  Signal<> Closing;

  /// A control's look or value changed, or a control was added or removed. Raised once, then not again until
  /// ListenAgain.
  Signal<> Touched;
  /// The same, each time: for a screen that shows many controls at once.
  Signal<> Altered;
  void ListenAgain() { touched_ = false; }

  /// Controls by array and element that were added, removed or changed.
  struct Touches {
    std::vector<Control*> changed;                  ///< null for one that has gone since
    std::vector<std::pair<std::string, int>> gone;  ///< removed; another may be there again
  };
  /// From now on the form notes which controls change, for TakeTouches.
  void NoteTouches() { noting_ = true; }
  /// The controls touched since the last call. Costs what was touched, whatever the size of the form.
  Touches TakeTouches();

 private:
  friend class Control;
  void Touch(Control& control);
  void RaiseTouched();
  void Register(Control& control);
  void Unregister(const Control& control);

  std::string name_;
  Guard& guard_;
  std::string caption_;
  bool visible_ = false;
  bool touched_ = false;
  bool noting_ = false;
  Touches touches_;
  std::map<std::string, Control*, std::less<>> controls_;
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>

#include "controls/signal.h"

namespace marlinset {

class Control;
class Dialogs;

/// The one place where failures stop. Run executes every handler of an operator's action, a timer or the
/// line. If a routine fails and none catches it, Run shows number, two blanks and description, with the
/// remedy below; that handler ends, while the program and the configuration live on.
class Guard {
 public:
  explicit Guard(Dialogs& dialogs) : dialogs_(dialogs) {}
  /// Runs a handler of a timer or of the line. Returns whether `body` completed.
  bool Run(const std::function<void()>& body) { return Execute(nullptr, body); }
  /// Runs what the operator does to a control, which `body` may destroy.
  bool RunFor(const Control& control, const std::function<void()>& body) { return Execute(&control, body); }
  /// Names the action of the running handler as the operator would, where its control's caption does not.
  void Name(const std::string& action) { Named.Emit(action); }
  /// How many handlers are running: more than one if a handler pumps and another runs in that wait.
  int AtWork() const { return atWork_; }

  /// A handler begins: the operator's on this control, or, with null, one of a timer or of the line. It may
  /// begin in the wait of another.
  Signal<const Control*> Begins;
  /// The handler that began last is over, and its box is closed.
  Signal<> Over;
  /// The handler that began last has been given this name.
  Signal<const std::string&> Named;
  /// After Over: a handler has ended, unless it ended the program.
  Signal<> Ended;

 private:
  bool Execute(const Control* control, const std::function<void()>& body);
  bool Contain(const std::function<void()>& body);

  Dialogs& dialogs_;
  int atWork_ = 0;
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "controls/signal.h"

namespace marlinset {

class Dialogs;

/// The one place where failures stop. Run executes every handler of an operator's action, a timer or the
/// line. If a routine fails and none catches it, Run shows number, two blanks and description, with the
/// remedy below; that handler ends, while the program and the configuration live on.
class Guard {
 public:
  explicit Guard(Dialogs& dialogs) : dialogs_(dialogs) {}
  /// Returns whether `body` completed.
  bool Run(const std::function<void()>& body);
  /// How many handlers are running: more than one if a handler pumps and another runs in that wait.
  int AtWork() const { return atWork_; }

  /// A handler has ended, and its box is closed.
  Signal<> Ended;

 private:
  bool Contain(const std::function<void()>& body);

  Dialogs& dialogs_;
  int atWork_ = 0;
};

}  // namespace marlinset

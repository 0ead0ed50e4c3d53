// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "controls/signal.h"

namespace marlinset {

class Dialogs;

/// The one edge at which failures stop. Every handler of an operator's action, of a timer and of the line
/// runs in Run: a failure that no routine handled is shown as its number, two blanks and its description, the
/// remedy below; the handler ends there, the program lives and the configuration stays as it is.
class Guard {
 public:
  explicit Guard(Dialogs& dialogs) : dialogs_(dialogs) {}
  /// Returns whether `body` came to its end.
  bool Run(const std::function<void()>& body);
  /// How many handlers are at work: more than one when a handler pumps and another runs in that wait.
  int AtWork() const { return atWork_; }

  /// A handler has ended, its box included.
  Signal<> Ended;

 private:
  bool Contain(const std::function<void()>& body);

  Dialogs& dialogs_;
  int atWork_ = 0;
};

}  // namespace marlinset

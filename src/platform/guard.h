// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

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

 private:
  Dialogs& dialogs_;
};

}  // namespace marlinset

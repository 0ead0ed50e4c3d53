// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>
#include <functional>
#include <ostream>
#include <string>
#include <string_view>

#include "unit/unit_model.h"

namespace marlinset {

/// The lines on standard input that steer the unit: one word, most with one argument. What `state` and
/// `trace` answer goes to `out`, one line each; a line that is not understood is reported on `errors`.
class UnitConsole {
 public:
  UnitConsole(UnitModel& unit, std::function<void()> unplug, std::ostream& out, std::ostream& errors);

  void Execute(std::string_view line, LineTime now);
  /// Keeps a frame for the next `trace`; the oldest go when nobody asks.
  void Remember(const Bytes& frame);

 private:
  struct Command;
  static const Command kCommands[];
  void PrintTrace();

  UnitModel& unit_;
  std::function<void()> unplug_;
  std::ostream& out_;
  std::ostream& errors_;
  std::deque<Bytes> frames_;
};

}  // namespace marlinset

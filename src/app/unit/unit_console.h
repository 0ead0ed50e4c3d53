// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>
#include <functional>
#include <ostream>
#include <string>
#include <string_view>

#include "unit/unit_model.h"

namespace marlinset {

/// The cable between unit and tool.
struct UnitCable {
  std::function<void()> unplug;
  std::function<std::string()> plug;  ///< returns the device
};

/// The lines on standard input that steer the unit: one word, most with one argument. What `state`, `trace`
/// and `plug` answer goes to `out`; a line that is not understood is reported on `errors`.
class UnitConsole {
 public:
  /// `readable`: who asks for the state reads it himself.
  UnitConsole(UnitModel& unit, UnitCable cable, bool readable, std::ostream& out, std::ostream& errors);

  void Execute(std::string_view line, LineTime now);
  /// Keeps a frame for the next `trace`; the oldest go when nobody asks. The cable may be pulled behind it.
  void Remember(const Bytes& frame);

 private:
  struct Command;
  static const Command kCommands[];
  void PrintTrace();
  void PrintState(int form);
  void Unplug(int messages);
  void Plug();

  UnitModel& unit_;
  UnitCable cable_;
  bool readable_;
  int unplugIn_ = 0;  ///< messages until the cable is pulled, 0: nobody wants to
  std::ostream& out_;
  std::ostream& errors_;
  std::deque<Bytes> frames_;
};

}  // namespace marlinset

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

/// Carries out the lines on standard input that control the unit: one word, most with one argument. The
/// answers of `state`, `trace` and `plug` go to `out`, complaints about unknown lines to `errors`.
class UnitConsole {
 public:
  /// `readable`: a person reads the state.
  UnitConsole(UnitModel& unit, UnitCable cable, bool readable, std::ostream& out, std::ostream& errors);

  void Execute(std::string_view line, LineTime now);
  /// Keeps a frame for the next `trace`, dropping the oldest if nobody asks. May pull the cable after it.
  void Remember(const Bytes& frame);

 private:
  struct Command;
  static const Command kCommands[];
  void Unplug(int messages);
  void Plug();
  void PrintState(int form);
  void PrintTrace();

  UnitModel& unit_;
  UnitCable cable_;
  bool readable_;
  int unplugIn_ = 0;  ///< messages until the cable is pulled; 0: never
  std::ostream& out_;
  std::ostream& errors_;
  std::deque<Bytes> frames_;
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "cli/rack.h"

namespace marlinset {

/// How one unit of a rack ended.
struct UnitResult {
  std::string name = {};
  std::string end = "failed";  ///< as `send --json` names it
  std::string model = {};      ///< empty if the unit was not identified
  int messages = 0;
  int unacknowledged = 0;
  double seconds = 0;                  ///< from the start of its process to its end
  std::vector<std::string> told = {};  ///< lines for the operator: its boxes, faults and doubtful messages

  bool Good() const { return end == "complete" && unacknowledged == 0; }
};

/// How a rack is sent.
struct RackOrders {
  std::size_t jobs = 1;  ///< units at a time
  /// The program that sends to one unit, and the words of its command line: a `send --json`.
  std::function<std::vector<std::string>(const RackUnit&)> words;
  /// Called for each unit as it ends.
  std::function<void(const UnitResult&)> ended;
  /// Called for each signal that asks this program to end, with how many there have been.
  std::function<void(int count)> interrupted;
};

/// Sends to each unit from a process of its own, in their order. The first signal that asks this program to
/// end goes on to each running process, once, and no further unit is started; later ones are only reported.
/// Such signals stay blocked afterwards. Returns the results in the order of the units.
std::vector<UnitResult> RunUnits(const std::vector<RackUnit>& units, const RackOrders& orders);

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <string>
#include <vector>

namespace marlinset {

/// What came of one run.
struct StormReport {
  std::vector<std::string> faults;   ///< what must not be, each with the step after which it was seen
  std::map<std::string, int> boxes;  ///< the boxes that came up, by text
  int steps = 0;
  bool closed = false;  ///< the operator ended the tool on the way
};

/// A whole run of the tool on the virtual clock: operator, files, time and the faults of a line at random, in
/// each other's way. Checks after each step that the panels hold together; at the end the line is mended,
/// and a whole send has to bring the unit to what the panels show, a saved file the panels to what they
/// were. The same seed is the same run.
StormReport RunStorm(unsigned seed, bool trace = false);

}  // namespace marlinset

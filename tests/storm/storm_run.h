// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <string>
#include <vector>

#include "tests/storm/world.h"

namespace marlinset {

/// What came of one run.
struct StormReport {
  std::vector<std::string> faults;   ///< what must not be, each with the step after which it was seen
  std::map<std::string, int> boxes;  ///< the boxes that came up, by text
  int steps = 0;
  bool closed = false;  ///< the operator ended the tool on the way
};

/// Thrown through everything when a step does not end.
struct Hang {};

/// What all storms have in common: steps at random until they are over or the operator ends the tool; then
/// calm, and a look at what has to hold. After each step the panels have to hold together. The same seed is
/// the same run.
class StormRun {
 public:
  StormRun(unsigned seed, bool trace, int mostSteps) : world_(seed, trace), mostSteps_(mostSteps) {}
  virtual ~StormRun() = default;
  StormReport Run();

 protected:
  virtual void Start() = 0;
  virtual void Step() = 0;
  /// Nobody acts any more; what was to happen in a later step happens now.
  virtual void Calm() = 0;
  /// After the calm, when the tool goes on.
  virtual void Judge() = 0;
  virtual void WhileABoxStands() {}

  void Fault(const std::string& what);
  void Faults(const std::vector<std::string>& all) {
    for (const std::string& what : all) Fault(what);
  }
  bool Ended() const { return rig_.pump.Ending(); }
  /// Everything back as it should be: line, unit, no window over the main window, a standard that can be
  /// sent, and nothing in the panels that files do not hold.
  void Mend();
  /// Call after the last send: the unit and a second tool have to hold what the panels show.
  void ExpectSent();

  World world_;
  ToolRig& rig_ = world_.rig;
  FrmStart& form_ = rig_.form;
  StormReport report_;

 private:
  BoxAnswer Answer(const MessageBox& box);
  void ExpectSound();
  void ExpectRows();
  void ExpectClosed();

  int mostSteps_;
  bool calm_ = false;
};

/// PROGRAM [RUNS [FIRST_SEED]]: many runs, and all boxes that came up, with their counts. One run alone is
/// traced. Fails when a run had a fault.
int RunStorms(int argc, char** argv, StormReport (*run)(unsigned seed, bool trace));

}  // namespace marlinset

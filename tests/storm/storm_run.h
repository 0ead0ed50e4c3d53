// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <string>
#include <vector>

#include "tests/storm/world.h"

namespace marlinset {

struct StormReport {
  std::vector<std::string> faults;   ///< what must not be, each with the step after which it was seen
  std::map<std::string, int> boxes;  ///< the boxes that came up, by text
  int steps = 0;
  bool closed = false;  ///< the operator ended the tool on the way
};

/// Ends a step that does not end by itself.
struct Hang {};

/// A storm: random steps until there have been enough or the operator ends the tool, each followed by a look
/// at the panels; then calm, and a last judgement. The same seed is the same run.
class StormRun {
 public:
  StormRun(unsigned seed, bool trace, int mostSteps) : world_(seed, trace), mostSteps_(mostSteps) {}
  virtual ~StormRun() = default;
  StormReport Run();

 protected:
  virtual void Start() = 0;
  virtual void Step() = 0;
  /// Nobody acts any more; what was scheduled happens now.
  virtual void Calm() = 0;
  /// Follows the calm if the tool still runs.
  virtual void Judge() = 0;
  virtual void WhileABoxStands() {}

  void Fault(const std::string& what);
  void Faults(const std::vector<std::string>& all) {
    for (const std::string& what : all) Fault(what);
  }
  bool Ended() const { return rig_.pump.Ending(); }
  /// Repairs line and unit, closes other windows, and leaves only what can be sent and saved in the panels.
  void Mend();
  /// After the last send: the unit holds what the panels show, and so does a second tool.
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

/// PROGRAM [RUNS [FIRST_SEED]]: counts all boxes, fails if a run had a fault, traces a single run.
int RunStorms(int argc, char** argv, StormReport (*run)(unsigned seed, bool trace));

}  // namespace marlinset

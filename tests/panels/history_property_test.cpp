// SPDX-License-Identifier: GPL-3.0-or-later
// Whatever an operator does can be undone and redone, in part and in full.
#include <gmock/gmock.h>

#include "cli/control_json.h"
#include "cli/variables_json.h"
#include "files/panel_document.h"
#include "files/qcf_writer.h"
#include "history/scope.h"
#include "tests/storm/world.h"

namespace marlinset {
namespace {

/// All that belongs to the configuration, by name.
using Configuration = std::map<std::string, Json>;

Configuration ConfigurationOf(const ToolRig& rig) {
  Configuration found;
  for (const Control* control : rig.form.Controls()) {
    if (!BelongsToConfiguration(*control)) continue;
    Json& json = found[control->FullName()] = ControlJson(*control);
    json.erase("color");
  }
  for (const char* array : {"CharWindows", "SystemParameters"}) {
    Json rows = *RecordsJson(rig.tool, array);
    for (Json& row : rows) row.erase("Highlighted");
    for (std::size_t i = 0; i < rows.size(); ++i) found[array + std::to_string(i)] = std::move(rows[i]);
  }
  for (const char* variable : {"OperatingMode", "ParDisType", "CurCharMaxRow", "VsLastIndex", "TbLastIndex",
                               "UbLastIndex", "VitcLineDefault", "NextParameterClass"}) {
    found[variable] = *VariableJson(rig.tool, variable);
  }
  try {
    found["file"] = WriteDocument(DocumentOfPanels(rig.vars, rig.form));
  } catch (const RuntimeError& failure) {
    found["file"] = failure.Description();
  }
  return found;
}

void ExpectSame(const Configuration& wanted, const Configuration& found) {
  if (wanted == found) return;
  for (const auto& [name, state] : wanted) {
    const auto here = found.find(name);
    EXPECT_EQ(here == found.end() ? Json() : here->second, state) << name;
  }
  for (const auto& [name, state] : found) EXPECT_TRUE(wanted.contains(name)) << name << state;
}

class Trial {
 public:
  explicit Trial(unsigned seed) : world_(seed, false) {
    rig_.dialogs.onShow = [this](const MessageBox& box) {
      if (box.buttons == BoxButtons::kYesNo) return world_.OneIn(3) ? BoxAnswer::kNo : BoxAnswer::kYes;
      return BoxAnswer::kOk;
    };
    rig_.tool.Start("", world_.OneIn(2));
  }

  void Run(int steps) {
    for (int i = 0; i < steps && !testing::Test::HasFailure() && !rig_.pump.Ending(); ++i) Step();
    if (rig_.pump.Ending()) return;
    while (rig_.form.mnuRedo.Enabled()) {
      Redo();
      Undo();
      states_.push_back(ConfigurationOf(rig_));
      Redo();
    }
    const Configuration end = ConfigurationOf(rig_);
    const std::size_t undone = states_.size();
    for (; !states_.empty(); states_.pop_back()) {
      SCOPED_TRACE("undo to " + std::to_string(states_.size()));
      Undo();
      ExpectSame(states_.back(), ConfigurationOf(rig_));
    }
    EXPECT_FALSE(rig_.form.mnuUndo.Enabled());
    for (std::size_t i = 0; i < undone; ++i) Redo();
    ExpectSame(end, ConfigurationOf(rig_));
    EXPECT_FALSE(rig_.form.mnuRedo.Enabled());
  }
  std::size_t entries = 0;

 private:
  std::size_t Count() const { return rig_.tool.history.UndoNames().size(); }
  void Undo() {
    EXPECT_TRUE(rig_.form.mnuUndo.OperatorClick());
    EXPECT_EQ(rig_.vars.ConfigSaved, rig_.tool.unsavedChanges.IsStored());
  }
  void Redo() { EXPECT_TRUE(rig_.form.mnuRedo.OperatorClick()); }

  void Act(int what) {
    if (what < 9) return Edit(world_);
    if (what < 14) return Operate(world_);
    if (what < 16) return rig_.pump.Pass(2000);
    what < 17 ? UseFiles(world_) : UseLink(world_);
  }

  void Step() {
    const Configuration before = ConfigurationOf(rig_);
    Act(world_.Pick(18));
    SCOPED_TRACE("after " + world_.Last());
    while (Count() < states_.size()) states_.pop_back();  // the operator has undone something
    const std::size_t added = Count() - states_.size();
    if (added > 1) ADD_FAILURE() << "one action, " << added << " entries";
    if (added == 0) return;
    ++entries;
    const Configuration after = ConfigurationOf(rig_);
    Undo();
    states_.push_back(ConfigurationOf(rig_));
    if (world_.Last() != "mnuRedo") ExpectSame(before, states_.back());
    Redo();
    ExpectSame(after, ConfigurationOf(rig_));
    EXPECT_LT(rig_.tool.history.LatestSize(), 64U * 1024U);
  }

  World world_;
  ToolRig& rig_ = world_.rig;
  std::vector<Configuration> states_;  ///< before each entry
};

TEST(HistoryProperty, UndoneInFullIsTheBeginningAndRedoneInFullTheEnd) {
  std::size_t entries = 0;
  for (unsigned seed = 1; seed <= 4; ++seed) {
    SCOPED_TRACE(seed);
    Trial trial(seed);
    trial.Run(40);
    entries += trial.entries;
    if (HasFailure()) return;
  }
  EXPECT_GT(entries, 25U);
}

}  // namespace
}  // namespace marlinset

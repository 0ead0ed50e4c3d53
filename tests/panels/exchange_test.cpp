// SPDX-License-Identifier: GPL-3.0-or-later
// Another file beside the panels: what differs, and what taking it over leaves.
#include <filesystem>
#include <fstream>

#include "cli/control_json.h"
#include "files/panel_document.h"
#include "files/qcf_writer.h"
#include "tests/panels/panel_rig.h"
#include "tests/storm/world.h"

namespace marlinset {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::vector<std::uint8_t> Composition(const ToolRig& rig) {
  return WriteDocument(DocumentOfPanels(rig.vars, rig.form));
}

/// All that a screen shows, except what the action itself is called.
std::map<std::string, Json> LookAt(const ToolRig& rig) {
  std::map<std::string, Json> look;
  for (const Control* control : rig.form.Controls()) {
    if (control->Name() != "mnuUndo" && control->Name() != "mnuRedo") {
      look[control->FullName()] = ControlJson(*control);
    }
  }
  return look;
}

std::vector<ComparedValue> TwoSided(std::vector<ComparedValue> differences) {
  std::erase_if(differences, [](const ComparedValue& row) { return row.OneSided(); });
  return differences;
}

std::string NamesOf(const std::vector<ComparedValue>& differences) {
  std::string names;
  for (const ComparedValue& row : differences) {
    names += row.name + ": " + (row.here ? TextOf(*row.here) : "-") + " -> " +
             (row.there ? TextOf(*row.there) : "-") + "\n";
  }
  return names;
}

std::string Write(const std::string& path, std::span<const std::uint8_t> bytes) {
  const std::string text(bytes.begin(), bytes.end());
  std::ofstream(path, std::ios::binary) << text;
  return path;
}

/// Another setup of chance, without a parameter that a load cannot read.
std::string OtherSetup(const TempFolder& folder, unsigned seed) {
  World other(seed, false);
  other.rig.tool.Start("", false);
  for (int i = 0; i < 60; ++i) Edit(other);
  for (SystemParameterRec& parameter : other.rig.vars.SystemParameters) {
    parameter.Value = std::int16_t(std::abs(parameter.Value % 4096));
  }
  return Write(folder.File("other" + std::to_string(seed) + ".qcf"), Composition(other.rig));
}

TEST(TakeOverProperty, LeavesOnlyWhatOneSideHasAndGoesBackByteForByte) {
  const TempFolder folder;
  std::size_t taken = 0;
  for (unsigned seed = 1; seed <= 12; ++seed) {
    SCOPED_TRACE(seed);
    const std::string path = seed % 6 == 0   ? SAMPLE_FOLDER "version_1.qcf"
                             : seed % 6 == 1 ? SAMPLE_FOLDER "version_2.qcf"
                                             : OtherSetup(folder, seed + 100);
    World world(seed, false);
    ToolRig& rig = world.rig;
    rig.tool.Start("", false);
    for (int i = 0; i < 40; ++i) Edit(world);
    const OtherFile other = rig.tool.comparison.Read(path);
    const auto before = LookAt(rig);
    const auto bytes = Composition(rig);
    const std::vector<NewValue> values = TakeOver::All(rig.tool.comparison.With(other));
    EXPECT_EQ(before, LookAt(rig)) << "a comparison changes nothing";
    rig.tool.takeOver.Set("Take Over", values);
    EXPECT_EQ(NamesOf(TwoSided(rig.tool.comparison.With(other))), "");
    taken += values.size();
    if (values.empty()) continue;
    EXPECT_FALSE(rig.vars.ConfigSaved);
    const auto after = LookAt(rig);
    rig.form.mnuUndo.OperatorClick();
    EXPECT_EQ(before, LookAt(rig));
    EXPECT_EQ(bytes, Composition(rig));
    rig.form.mnuRedo.OperatorClick();
    EXPECT_EQ(after, LookAt(rig));
  }
  EXPECT_GT(taken, 100U);
}

}  // namespace
}  // namespace marlinset

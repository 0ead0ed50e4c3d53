// SPDX-License-Identifier: GPL-3.0-or-later
// The tool with a reference database as units were delivered with: an Access file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/files/sample.h"

namespace marlinset {
namespace {

using ::testing::AnyOf;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

struct AccessDatabase : ::testing::Test {
  AccessDatabase() {
    std::filesystem::copy_file(SAMPLE_FOLDER "access/shotsys.mdb", folder.File("shotsys.mdb"));
  }

  TempFolder folder;
};

TEST_F(AccessDatabase, StartsAndSendsTheWholeConfiguration) {
  ToolRig rig({}, folder.Path());
  ASSERT_TRUE(rig.tool.Start("", false));
  EXPECT_THAT(rig.Boxes(), IsEmpty());
  EXPECT_EQ(rig.tool.form.comVS.ListCount(), 7) << "one standard of eight is not offered";
  EXPECT_EQ(rig.tool.form.lName(1).Caption(), "Video User Bits") << "the row before has device 0";
  rig.tool.form.bSConfig.Press();
  EXPECT_EQ(rig.tool.wholeSend.Result().end, SendEnd::kComplete);
  EXPECT_EQ(rig.tool.wholeSend.Result().unacknowledged, 0);
  EXPECT_THAT(rig.Boxes(), IsEmpty());
}

/// What this database's rows hold beyond a file's means is told; with those values mended a file comes back.
TEST_F(AccessDatabase, SavesAndLoadsOnceItsRowsFitTheFile) {
  struct {
    bool mendWindows, mendParameters;
    ReadEnd end;
    std::vector<std::string> saveBoxes, loadBoxes;
  } const cases[] = {
      {false, false, ReadEnd::kNone, {"Error during save, save aborted!"}, {}},
      {true, false, ReadEnd::kNotReadable, {}, {"Data Process Error, file may be corrupt"}},
      {true, true, ReadEnd::kLoaded, {}, {}},
  };
  for (const auto& c : cases) {
    ToolRig rig({}, folder.Path());
    ASSERT_TRUE(rig.tool.Start("", false));
    Variables& data = rig.tool.variables;
    FrmStart& form = rig.tool.form;
    for (int row = 0; c.mendWindows && row <= UBound(data.CharWindows); ++row) {
      if (form.udVer(row).Value() < 0) form.udVer(row).SetValue(32);
    }
    for (SystemParameterRec& parameter : data.SystemParameters) {
      if (c.mendParameters && parameter.Value < 0) parameter.Value = 5;
    }
    std::vector<int> values;
    for (const SystemParameterRec& parameter : data.SystemParameters) values.push_back(parameter.Value);

    rig.fileDialog.choices.emplace_back(folder.File("mine.qcf"));
    rig.tool.configurationFile.SaveConfig("SaveAs");
    EXPECT_EQ(rig.Boxes(), c.saveBoxes);
    if (!c.saveBoxes.empty()) continue;
    rig.dialogs.shown.clear();
    for (SystemParameterRec& parameter : data.SystemParameters) parameter.Value = 1;
    rig.tool.configurationFile.ReadConfigFile();
    EXPECT_EQ(rig.tool.configurationFile.LastRead(), c.end);
    EXPECT_EQ(rig.Boxes(), c.loadBoxes);
    if (c.end != ReadEnd::kLoaded) continue;
    std::vector<int> loaded;
    for (const SystemParameterRec& parameter : data.SystemParameters) loaded.push_back(parameter.Value);
    EXPECT_EQ(loaded, values);
  }
}

/// The start-up's two messages for a database that is of no use.
TEST_F(AccessDatabase, ADamagedOneEndsTheStartWithItsMessage) {
  for (const auto& name : {"damaged_catalog", "damaged_definitions", "damaged_rows", "damaged_map"}) {
    const std::string path = folder.File("shotsys.mdb");
    std::filesystem::copy_file(SAMPLE_FOLDER "access/" + std::string(name) + ".mdb", path,
                               std::filesystem::copy_options::overwrite_existing);
    ToolRig rig({}, folder.Path());
    bool started = false;
    try {
      started = rig.tool.Start("");
    } catch (const ProgramEnd& end) {
      EXPECT_EQ(end.status, 1);
    }
    EXPECT_FALSE(started) << name;
    EXPECT_THAT(rig.Boxes(), ElementsAre(AnyOf(StartsWith("3343  Unrecognized database '" + path),
                                               "DataBase Error. Expected file at Path " + path +
                                                   " Error code = 3343 App Terminated")))
        << name;
  }
}

}  // namespace
}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
// The Access file that comes with a unit, in place of the shipped database.

#include <filesystem>

#include "tests/files/sample.h"

namespace marlinset {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

const std::string kFieldDatabase = SAMPLE_FOLDER "access/shotsys.mdb";

TEST(FieldDatabase, StartsAndSendsTheWholeConfiguration) {
  const TempFolder program;
  std::filesystem::copy_file(kFieldDatabase, program.File("shotsys.mdb"));
  ToolRig rig({}, program.Path());
  ASSERT_TRUE(rig.tool.Start("", false));
  EXPECT_EQ(rig.tool.form.comVS.ListCount(), 7) << "one standard of eight is not offered";
  EXPECT_EQ(rig.tool.form.lName(1).Caption(), "Video User Bits") << "the row before has device 0";
  rig.tool.form.bSConfig.Press();
  EXPECT_EQ(rig.tool.wholeSend.Result().end, SendEnd::kComplete);
  EXPECT_EQ(rig.tool.wholeSend.Result().Doubtful(), 0);
  EXPECT_THAT(rig.Boxes(), IsEmpty());
  rig.fileDialog.choices = {program.File("setup.qcf")};
  rig.tool.form.mnuSave.OperatorClick();
  EXPECT_THAT(rig.Boxes(), ElementsAre(StartsWith("Error during save, save aborted!")))
      << "the window of number -1";
}

/// libmdb crashes or hangs on two of them unless it is asked for little.
TEST(FieldDatabase, ADamagedOneEndsTheStartWithItsMessage) {
  for (const std::string name : {"damaged_catalog", "damaged_definitions", "damaged_rows", "damaged_map"}) {
    const TempFolder program;
    const std::string path = program.File("shotsys.mdb");
    std::filesystem::copy_file(SAMPLE_FOLDER "access/" + name + ".mdb", path);
    ToolRig rig({}, program.Path());
    bool started = false;
    try {
      started = rig.tool.Start("");
    } catch (const ProgramEnd& end) {
      EXPECT_EQ(end.status, 1);
    }
    EXPECT_FALSE(started) << name;
    EXPECT_THAT(rig.Boxes(), ElementsAre(testing::AnyOf(StartsWith("3343  Unrecognized database '" + path),
                                                        "DataBase Error. Expected file at Path " + path +
                                                            " Error code = 3343 App Terminated")));
  }
}

}  // namespace
}  // namespace marlinset

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

}  // namespace
}  // namespace marlinset

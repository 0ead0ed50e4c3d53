// SPDX-License-Identifier: GPL-3.0-or-later
// The Access file that units come with, in the place of the shipped database.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "files/panel_document.h"
#include "files/qcf_writer.h"
#include "tests/files/sample.h"

namespace marlinset {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

constexpr auto kCorrupt = "Data Process Error, file may be corrupt";
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
}

/// As the operator mends it in Access: the two bytes before the text of the row.
void Mend(std::string& database, std::string_view row, int value, int mended) {
  const auto stored = [&](int number) {
    std::string bytes{static_cast<char>(number), static_cast<char>(number >> 8)};
    for (const char letter : row) bytes += {letter, '\0'};
    return bytes;
  };
  const std::size_t at = database.rfind(stored(value));  // an older one is deleted
  ASSERT_NE(at, std::string::npos) << row;
  database.replace(at, stored(value).size(), stored(mended));
}

TEST(FieldDatabase, HasRowsThatNoFileHoldsUntilTheyAreMended) {
  const FileBytes sample = BytesOfFile(kFieldDatabase);
  std::string database(sample.begin(), sample.end());
  TempFolder folder;
  const std::string path = folder.File("setup.qcf");
  const auto saveAndLoad = [&] {
    folder.Write("shotsys.mdb", database);
    ToolRig rig({}, folder.Path());
    FrmStart& form = rig.tool.form;
    EXPECT_TRUE(rig.tool.Start("", false));
    form.tWinMess.OperatorType("ROLL 4");
    rig.fileDialog.choices = {path, path};
    form.mnuSave.OperatorClick();
    form.mnuNew.OperatorClick();
    form.mnuOpen.OperatorClick();
    if (rig.Boxes().empty()) {
      EXPECT_EQ(WriteDocument(DocumentOfPanels(rig.tool.variables, form)), BytesOfFile(path));
      EXPECT_EQ(form.tWinMess.Text(), "ROLL 4");
    }
    return rig.Boxes();
  };
  Mend(database, "Factory Word 0", -1, 1);
  EXPECT_THAT(saveAndLoad(), ElementsAre(StartsWith("Error during save, save aborted!"),
                                         StartsWith("Default folder could not found."),
                                         StartsWith("Qcf file location was not set")))
      << "no file of it";
  Mend(database, "Camera Roll", -8, 8);
  Mend(database, "Scene/Take", 1000, 40);
  EXPECT_THAT(saveAndLoad(), ElementsAre(kCorrupt));
  Mend(database, "Genlock Vertical Phase", -12, 12);
  Mend(database, "Offset Frames", -32768, 0);
  Mend(database, "Audio Delay", -3, 3);
  EXPECT_THAT(saveAndLoad(), IsEmpty());
}

/// Two of them bring down or hang who asks the library too much.
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

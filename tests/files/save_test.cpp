// SPDX-License-Identifier: GPL-3.0-or-later
#include <filesystem>

#include "tests/files/sample.h"
#include "tests/support/table.h"

namespace marlinset {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr auto kFailed = "Error during save, save aborted!";

struct Saving : ::testing::Test, FileRig {
  Saving() { settings.SaveSetting("Load", folder.Path() + "/"); }
};

TEST_F(Saving, DialogsOpenInTheFolderLastUsedAndGuardWhatIsThere) {
  SaveAs("a.qcf");
  EXPECT_EQ(fileDialog.shown.back().flags, kOverwritePrompt);
  EXPECT_THAT(files.folders, ElementsAre(folder.Path() + "/"));
  EXPECT_EQ(vars.FileChannel, 1);
  tool.configurationFile.SaveConfig("Save");
  EXPECT_EQ(fileDialog.Flags, kHideReadOnly);
  fileDialog.FilterIndex = 2;
  files.refuseFolders = true;  // the dialog opens where it can then
  tool.configurationFile.LoadConfig();
  EXPECT_EQ(fileDialog.shown.back().flags, kHideReadOnly);
  EXPECT_EQ(fileDialog.FilterIndex, 1);
  EXPECT_THAT(TakeBoxes(), IsEmpty());
}

TEST_F(Saving, AFailedSaveLeavesTheFileAsItWas) {
  SaveAs("show.qcf");
  const FileBytes old = Read("show.qcf");
  SaveAs("show.qcf");
  form.tWinMess.SetText("another message");
  const auto fails = [&](const char* why) {
    SaveAs("show.qcf");
    EXPECT_THAT(TakeBoxes(), ElementsAre(kFailed)) << why;
    EXPECT_EQ(Read("show.qcf"), old) << why;
  };
  files.refuseBackups = true;
  fails("a folder that takes no file");
  files.refuseBackups = false;
  form.udVer(3).SetValue(256);
  fails("a number without room");
  EXPECT_EQ(dialogs.shown.size(), 0U);
  form.udVer(3).SetValue(32);
  files.room = 700;
  fails("a full disk");
  files.room = std::nullopt;
  const FileBytes foreign = {'h', 'i'};
  Write("show.qcf", foreign);
  SaveAs("show.qcf");
  EXPECT_THAT(TakeBoxes(), IsEmpty());
  EXPECT_EQ(Read("show.qcf.bak"), foreign) << "whatever stood there is kept";
}

TEST_F(Saving, AFileThatOthersHaveChangedIsAskedAbout) {
  const FileBytes foreign = {'h', 'i'};
  for (const TableRow& row : TableOf("changed_files")) {
    const std::string name = row[0] + ".qcf";
    const bool asked = row[5] == "asked";
    if (row[1] == "known") SaveAs(name);
    std::filesystem::remove(folder.File(name));
    if (row[2] == "there") Write(name, foreign);
    fileDialog.confirms = row[4] == "confirmed";
    for (const bool yes : {false, true}) {
      vars.CurrentFile = row[0];
      fileDialog.choices = {folder.File(name)};
      dialogs.answers = {yes ? BoxAnswer::kYes : BoxAnswer::kNo};
      const bool declined = asked && !yes;
      EXPECT_EQ(tool.configurationFile.SaveConfig(row[3]), declined ? SaveEnd::kDeclined : SaveEnd::kStored);
      EXPECT_EQ(TakeBoxes().size(), asked ? 1U : 0U) << name;
      EXPECT_EQ(Read(name) == foreign, declined) << name;
    }
    fileDialog.confirms = true;
  }
}

TEST_F(Saving, SaveAsksBeforeItWritesInAnotherFolderThanTheOpenFile) {
  std::filesystem::create_directory(folder.File("sub"));
  const auto save = [this](BoxAnswer answer) {
    settings.SaveSetting("Load", folder.File("sub/"));
    dialogs.answers = {answer};
    return tool.configurationFile.SaveConfig("Save");
  };
  SaveAs("show.qcf");
  EXPECT_EQ(save(BoxAnswer::kNo), SaveEnd::kDeclined) << "though nothing is there";
  EXPECT_THAT(dialogs.shown.back().remedy,
              testing::StartsWith("Open: " + folder.File("show.qcf") +
                                  "\nTo be written: " + folder.File("sub/show.qcf") + "\n"));
  EXPECT_THAT(TakeBoxes(), ElementsAre(folder.File("sub/show.qcf") +
                                       " is in another folder than the file that is open. Write it there?"));
  EXPECT_EQ(save(BoxAnswer::kYes), SaveEnd::kStored);
  TakeBoxes();
  EXPECT_EQ(save(BoxAnswer::kNo), SaveEnd::kStored) << "which is the open file from now on";
  vars.CurrentFile = folder.File("New.qcf");
  tool.configurationFile.UpdateFileTitle();
  EXPECT_EQ(save(BoxAnswer::kNo), SaveEnd::kStored) << "no file is open";
  EXPECT_THAT(TakeBoxes(), IsEmpty());
}

}  // namespace
}  // namespace marlinset

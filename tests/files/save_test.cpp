// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "files/qcf_reader.h"
#include "tests/files/sample.h"

namespace marlinset {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr auto kFailed = "Error during save, save aborted!";

struct Saving : ::testing::Test, FileRig {
  Saving() { settings.SaveSetting("Load", folder.Path() + "/"); }
};

TEST_F(Saving, TheShippedDefaultIsWhatTheToolWrites) {
  SaveAs("mine.qcf");
  const FileBytes shipped = BytesOfFile(SHIPPED_DATABASE_FOLDER "System Default Video.qcf");
  ASSERT_FALSE(shipped.empty());
  EXPECT_EQ(Read("mine.qcf"), shipped);
  EXPECT_EQ(Load(shipped), ReadEnd::kLoaded);
  EXPECT_THAT(TakeBoxes(), IsEmpty()) << "nothing is missing in it";
}

TEST_F(Saving, AsksAndNamesTheFile) {
  SaveAs("a.b.qcf");
  EXPECT_THAT(TakeBoxes(), IsEmpty());
  const FakeFileDialog::Shown& shown = fileDialog.shown.back();
  EXPECT_EQ(shown.fileName, "Unsaved.qcf");
  EXPECT_EQ(shown.filter, "Brandal Marlinset File|*.qcf");
  EXPECT_EQ(vars.FileChannel, 1);
  EXPECT_EQ(shown.initDir, folder.Path() + "/");
  EXPECT_EQ(shown.flags, kOverwritePrompt);
  EXPECT_THAT(files.folders, ElementsAre(folder.Path() + "/"));
  EXPECT_EQ(vars.CurrentFile, "a");
  EXPECT_EQ(form.Caption(), "7340 Marlinset - a");
  EXPECT_EQ(Panel(4), "File a Saved ");
  EXPECT_EQ(fileDialog.FileName, folder.File("a.b.qcf"));
  tool.configurationFile.SaveConfig("Save");
  EXPECT_EQ(fileDialog.FileName, folder.File("a.qcf")) << "what the title says";
  EXPECT_EQ(Read("a.qcf"), Read("a.b.qcf"));
  EXPECT_EQ(fileDialog.shown.size(), 1U) << "no question";
  EXPECT_EQ(fileDialog.Flags, kHideReadOnly);
}

TEST_F(Saving, NeverOverASystemDefaultAndNothingWhenCancelled) {
  settings.SaveSetting("Load", "");
  fileDialog.FileName = "before.qcf";
  fileDialog.choices = {folder.File("system default.qcf"), folder.File(" SYSTEM DEFAULTS.qcf"), std::nullopt};
  tool.configurationFile.SaveConfig("SaveAs");
  constexpr auto kRefused = "Cannot overwrite a system default QCF file. Please choose another file name";
  EXPECT_THAT(TakeBoxes(), ElementsAre(kRefused, kRefused));
  EXPECT_TRUE(Read("system default.qcf").empty());
  EXPECT_EQ(fileDialog.FileName, "before.qcf");
  EXPECT_THAT(files.folders, IsEmpty()) << "the dialog opens where it likes";
  SaveAs("My System Default.qcf");
  EXPECT_FALSE(Read("My System Default.qcf").empty());
}

TEST_F(Saving, OverALongerFileKeepsItsEndAndReadsBack) {
  form.tWinMess.SetText("a long message that is written over");
  SaveAs("show.qcf");
  const FileBytes longer = Read("show.qcf");
  form.tWinMess.SetText("short");
  SaveAs("show.qcf");
  const FileBytes both = Read("show.qcf");
  ASSERT_EQ(both.size(), longer.size());
  EXPECT_EQ(ReadDocument(both).tail.size(), 30U) << "as many bytes as the message is shorter";
  EXPECT_EQ(Read("show.qcf.bak"), longer);
  form.tWinMess.SetText("");
  EXPECT_EQ(Load(both), ReadEnd::kLoaded);
  EXPECT_EQ(form.tWinMess.Text(), "short");
  EXPECT_THAT(TakeBoxes(), IsEmpty());
}

TEST_F(Saving, AFailedSaveKeepsTheOldContentBeside) {
  SaveAs("show.qcf");
  const FileBytes old = Read("show.qcf");
  form.tWinMess.SetText("another message");
  const auto fails = [&](const char* why) {
    SaveAs("show.qcf");
    EXPECT_THAT(TakeBoxes(), ElementsAre(kFailed)) << why;
  };
  files.refuseCopies = true;
  fails("a folder that takes no file");
  EXPECT_EQ(Read("show.qcf"), old) << "untouched";
  files.refuseCopies = false;
  form.udVer(3).SetValue(256);
  SaveAs("show.qcf");
  EXPECT_EQ(dialogs.shown.back().remedy,
            folder.File("show.qcf") + "\nA number on the panels is beyond what a file can hold.");
  EXPECT_THAT(TakeBoxes(), ElementsAre(kFailed));
  EXPECT_EQ(Read("show.qcf.bak"), old);
  form.udVer(3).SetValue(32);
  files.room = 700;
  fails("a full disk");
  EXPECT_NE(Read("show.qcf"), old);
  fails("still full");
  files.room = std::nullopt;
  files.writeElsewhere = "/dev/full";
  fails("a device without room");
  EXPECT_EQ(Read("show.qcf.bak"), old) << "not replaced by what was half written";
  files.writeElsewhere = std::nullopt;
  SaveAs("show.qcf");
  EXPECT_THAT(TakeBoxes(), IsEmpty());
  SaveAs("show.qcf");
  EXPECT_EQ(Read("show.qcf.bak"), Read("show.qcf"));
}

TEST_F(Saving, WhatOthersPutThereIsKeptWhateverItIs) {
  SaveAs("show.qcf");
  SaveAs("show.qcf");
  const FileBytes foreign = {'h', 'i'};
  Write("show.qcf", foreign);
  SaveAs("show.qcf");
  EXPECT_EQ(Read("show.qcf.bak"), foreign) << "in the place of an older copy";

  files.room = 100;
  SaveAs("show.qcf");
  files.room = std::nullopt;
  EXPECT_THAT(TakeBoxes(), ElementsAre(kFailed));
  const FileBytes restored = Sample(2);
  Write("show.qcf", restored);
  SaveAs("show.qcf");
  EXPECT_EQ(Read("show.qcf.bak"), restored) << "no longer what the failed save had left";
}

TEST_F(Saving, ReportsWhatItCannotWriteTo) {
  std::filesystem::create_directory(folder.File("folder.qcf"));
  for (const auto& [name, remedy] : {std::pair{"folder.qcf", "Path/File access error"},
                                     {"no/such/folder.qcf", "Path/File access error"},
                                     {"undotted", "The name needs the extension .qcf."},
                                     {"vanished.qcf", "/\nThe folder last used is not there any more."}}) {
    files.refuseFolders = name == std::string("vanished.qcf");
    SaveAs(name);
    EXPECT_THAT(dialogs.shown.back().remedy, testing::EndsWith(remedy));
    EXPECT_THAT(TakeBoxes(), ElementsAre(kFailed)) << name;
    EXPECT_FALSE(std::filesystem::is_regular_file(folder.File(name)));
  }
}

/// A program that is killed in the middle of a save.
TEST_F(Saving, KilledAnywhereItLeavesTheOldContentOrTheNewOne) {
  struct Killed {};  // goes through everything, as the end of a process does
  SaveAs("show.qcf");
  const FileBytes before = Read("show.qcf");
  form.tWinMess.SetText("ANOTHER AND A LONGER ONE");
  SaveAs("new.qcf");
  const FileBytes after = Read("new.qcf");
  ASSERT_NE(before, after);
  files.whenFull = [] { throw Killed{}; };
  bool survived = false;
  for (std::size_t lifetime = 0; !survived; lifetime += lifetime < 300 ? 1 : 97) {
    std::filesystem::remove(folder.File("show.qcf.bak"));
    Write("show.qcf", before);
    vars.CurrentFile = "show";
    files.room = lifetime;
    try {
      tool.configurationFile.SaveConfig("Save");
      survived = true;
    } catch (const Killed&) {
      EXPECT_TRUE(Read("show.qcf") == before || Read("show.qcf.bak") == before) << lifetime;
    }
  }
  EXPECT_EQ(Read("show.qcf"), after);
}

}  // namespace
}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "files/qcf_reader.h"
#include "tests/files/sample.h"

namespace marlinset {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr auto kFailed = "Error during save, save aborted!";

struct Saving : ::testing::Test, FileRig {
  void SetUp() override {
    ASSERT_TRUE(started);
    settings.SaveSetting("Load", folder.Path() + "/");
  }
};

TEST(SystemDefaultName, IsKnownByItsBeginning) {
  for (const char* name : {"System Default", "  sYSTEM dEFAULT Video.qcf", "SYSTEM DEFAULTS"}) {
    EXPECT_TRUE(IsSystemDefaultName(name)) << name;
  }
  for (const char* name : {"", "System", "My System Default.qcf", "System  Default"}) {
    EXPECT_FALSE(IsSystemDefaultName(name)) << name;
  }
}

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

TEST_F(Saving, BeginsBesideTheProgramOrWhereverTheDialogLikes) {
  FileRig first;
  first.SaveAs("first.qcf");
  EXPECT_EQ(first.fileDialog.shown.back().initDir, SHIPPED_DATABASE_FOLDER);
  settings.SaveSetting("Load", "");
  files.folders.clear();
  SaveAs("second.qcf");
  EXPECT_EQ(fileDialog.shown.back().initDir, "");
  EXPECT_THAT(files.folders, IsEmpty());
}

TEST_F(Saving, NeverOverASystemDefault) {
  fileDialog.choices = {folder.File("system default.qcf"), folder.File(" System Default Video.qcf")};
  SaveAs("other.qcf");
  EXPECT_THAT(TakeBoxes(),
              ElementsAre("Cannot overwrite a system default QCF file. Please choose another file name",
                          "Cannot overwrite a system default QCF file. Please choose another file name"));
  EXPECT_FALSE(Read("other.qcf").empty());
  EXPECT_TRUE(Read("system default.qcf").empty());
}

TEST_F(Saving, ACancelledDialogLeavesNoTrace) {
  fileDialog.FileName = "before.qcf";
  fileDialog.choices = {folder.File("System Default.qcf"), std::nullopt};
  tool.configurationFile.SaveConfig("SaveAs");
  EXPECT_EQ(TakeBoxes().size(), 1U);
  EXPECT_EQ(fileDialog.FileName, "before.qcf");
  EXPECT_EQ(vars.CurrentFile, "Unsaved");
  tool.configurationFile.SaveConfig("saveas");
  EXPECT_EQ(fileDialog.shown.size(), 2U) << "no such flow";
}

TEST_F(Saving, ABackslashSeparatesFoldersToo) {
  vars.CurrentFile = "C:\\configs\\show.qcf";
  tool.configurationFile.UpdateFileTitle();
  EXPECT_EQ(vars.CurrentFile, "show");
  EXPECT_EQ(settings.GetSetting("load", ""), "C:\\configs\\");
  vars.CurrentFile = "bare.qcf";
  tool.configurationFile.UpdateFileTitle();
  EXPECT_EQ(vars.CurrentFile, "bare.qcf");
  EXPECT_EQ(settings.GetSetting("Load", "?"), "");
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
  fails("a position that fits into no byte");
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
  SaveAs("folder.qcf");
  SaveAs("no/such/folder.qcf");
  SaveAs("undotted");
  EXPECT_TRUE(Read("undotted").empty());
  settings.SaveSetting("Load", folder.Path() + "/");
  files.refuseFolders = true;
  SaveAs("vanished.qcf");
  EXPECT_THAT(TakeBoxes(), ElementsAre(kFailed, kFailed, kFailed, kFailed));
  EXPECT_TRUE(Read("vanished.qcf").empty());
}

TEST_F(Saving, ATextOfExactly65536CharactersCannotBeWritten) {
  for (const auto& [length, boxes] : {std::pair(65535U, 0U), {65536U, 1U}, {65537U, 0U}}) {
    form.tWinMess.SetText(std::string(length, 'x'));
    SaveAs("text.qcf");
    EXPECT_EQ(TakeBoxes().size(), boxes) << length;
  }
}

/// Whatever an operator composes comes back as it was.
class Composed : public ::testing::TestWithParam<const char*> {
 protected:
  int Pick(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

  void Choose(ComboBox& box) {
    if (box.ListCount() > 0) box.OperatorSelect(Pick(box.ListCount()));
  }
  void Compose(FileRig& rig) {
    FrmStart& form = rig.form;
    Choose(form.comVS);
    for (int i = 0; i < 5; ++i) {
      Choose(form.comTB(i));
      if (i != 3) Choose(form.ComUB(i));
      if (i != 3) Choose(form.ComWin(i));
    }
    Choose(form.ComWin(4));
    for (int i = 0; i < 3; ++i) Choose(form.ComDownConv(i));
    for (const int line : FrmStart::kVitcLineIndices) {
      SpinControl& spin = form.upVitc1(line);
      spin.SetValue(spin.Lowest() + Pick(spin.Highest() - spin.Lowest() + 1));
    }
    for (CheckBox* box : {&form.chVITC, &form.chEnable, &form.chPrev}) box->SetValue(Pick(2));
    form.UpDown1.SetValue(Pick(256));
    form.UDDur.SetValue(Pick(2) == 0 ? Pick(201) : Pick(1000000) + 1);
    form.tWinMess.SetText(FromCodePage({static_cast<std::uint8_t>(Pick(256)), 0x80, 0x81, 'x'}));
    for (int row = 0; row <= UBound(rig.vars.CharWindows); ++row) {
      form.chOnOff(row).OperatorCheck(Pick(2) == 1);
      form.chSlate(row).OperatorCheck(Pick(2) == 1);
      form.chDblSize(row).SetValue(Pick(2));
      form.udVer(row).SetValue(Pick(256));
      form.udHor(row).SetValue(Pick(256));
    }
    for (SystemParameterRec& parameter : rig.vars.SystemParameters) {
      parameter.Value = static_cast<std::int16_t>(Pick(128) * 256 + 16 + Pick(240));
    }
  }

 private:
  std::mt19937 random_{7340};
};

TEST_P(Composed, SaveLoadSaveGivesEqualBytes) {
  FileRig rig(GetParam());
  ASSERT_TRUE(rig.started);
  for (int round = 0; round < 5; ++round) {
    rig.tool.panels.SetDefaults();
    Compose(rig);
    rig.SaveAs("first.qcf");
    const FileBytes first = rig.Read("first.qcf");
    rig.tool.panels.SetDefaults();
    ASSERT_EQ(rig.Load(first), ReadEnd::kLoaded);
    // The list of font sizes is that of the standard which stood before the load.
    rig.SaveAs("second.qcf");
    EXPECT_EQ(rig.Read("second.qcf"), first) << "round " << round;
    EXPECT_THAT(rig.TakeBoxes(), IsEmpty());
    std::filesystem::remove(rig.folder.File("first.qcf"));
    std::filesystem::remove(rig.folder.File("second.qcf"));
  }
}

INSTANTIATE_TEST_SUITE_P(Modes, Composed, ::testing::Values("", "KEYK", "MCAM", "TEST"));

}  // namespace
}  // namespace marlinset

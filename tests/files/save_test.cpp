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

TEST_F(Saving, ReportsWhatItCannotWriteTo) {
  std::filesystem::create_directory(folder.File("folder.qcf"));
  for (const auto& [name, remedy] : {std::pair{"folder.qcf", "/folder.qcf\nThis is a folder."},
                                     {"no/such/folder.qcf", "/no/such/folder.qcf\nIts folder is not there."},
                                     {"undotted", "The name needs the extension .qcf."},
                                     {"vanished.qcf", "/\nThe folder last used is not there any more."}}) {
    files.refuseFolders = name == std::string("vanished.qcf");
    SaveAs(name);
    EXPECT_THAT(dialogs.shown.back().remedy, testing::EndsWith(remedy));
    EXPECT_THAT(TakeBoxes(), ElementsAre(kFailed)) << name;
    EXPECT_FALSE(std::filesystem::is_regular_file(folder.File(name)));
  }
}

/// A dialog that has confirmed the file is not repeated; in a script nobody has confirmed anything.
TEST_F(Saving, AFileThatOthersHaveChangedIsAskedAbout) {
  const FileBytes foreign = {'h', 'i'};
  struct Case {
    const char* name;
    bool known, there;
    const char* flow;
    bool confirmed, asked;
  };
  for (const Case& c :
       {Case{"changed", true, true, "Save", false, true},
        Case{"confirmed", true, true, "SaveAs", true, false},
        Case{"by script", true, true, "SaveAs", false, true}, Case{"gone", true, false, "Save", false, false},
        Case{"unknown", false, true, "Save", false, true},
        Case{"unknown, by script", false, true, "SaveAs", false, false}}) {
    const std::string name = std::string(c.name) + ".qcf";
    if (c.known) SaveAs(name);
    std::filesystem::remove(folder.File(name));
    if (c.there) Write(name, foreign);
    fileDialog.confirms = c.confirmed;
    for (const bool yes : {false, true}) {
      vars.CurrentFile = c.name;
      fileDialog.choices = {folder.File(name)};
      dialogs.answers = {yes ? BoxAnswer::kYes : BoxAnswer::kNo};
      const bool declined = c.asked && !yes;
      EXPECT_EQ(tool.configurationFile.SaveConfig(c.flow), declined ? SaveEnd::kDeclined : SaveEnd::kStored);
      EXPECT_EQ(TakeBoxes().size(), c.asked ? 1U : 0U) << name;
      EXPECT_EQ(Read(name) == foreign, declined) << name;
    }
    fileDialog.confirms = true;
  }
}

TEST_F(Saving, AFileIsKnownByWhereItsNameLeads) {
  namespace fs = std::filesystem;
  using Make = void (*)(const fs::path& file, const fs::path& alias);
  const Make link = [](const fs::path& file, const fs::path& alias) { fs::create_symlink(file, alias); };
  const Make hardLink = [](const fs::path& file, const fs::path& alias) {
    fs::create_hard_link(file, alias);
  };
  const Make replace = [](const fs::path& file, const fs::path& alias) {
    fs::rename(file, alias);
    fs::create_symlink(alias, file);
  };
  const Make none = [](const fs::path&, const fs::path&) {};
  struct Case {
    const char* what;
    Make make;
    const char* flow;
    const char* name;
    bool changed, asked;
  };
  for (const Case& c : {Case{"link", link, "SaveAs", "alias.qcf", true, true},
                        Case{"hard link", hardLink, "SaveAs", "alias.qcf", true, true},
                        Case{"spelling", none, "SaveAs", "./show.qcf", true, true},
                        Case{"link as it was", link, "Save", "alias.qcf", false, false},
                        Case{"hard link as it was", hardLink, "Save", "alias.qcf", false, false},
                        Case{"a link in its place", replace, "Save", "show.qcf", false, true}}) {
    for (const char* name : {"alias.qcf", "show.qcf"}) fs::remove(folder.File(name));
    fileDialog.choices.clear();
    fileDialog.confirms = true;
    SaveAs("show.qcf");
    fileDialog.confirms = false;
    c.make(folder.File("show.qcf"), folder.File("alias.qcf"));
    if (c.changed) Write("show.qcf", {'h', 'i'});
    vars.CurrentFile = fs::path(c.name).stem();
    fileDialog.choices = {folder.File(c.name)};
    tool.configurationFile.SaveConfig(c.flow);
    EXPECT_EQ(TakeBoxes().size(), c.asked ? 1U : 0U) << c.what;
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

TEST_F(Saving, AFolderThatHasGoneStandsInTheWayOnce) {
  settings.SaveSetting("Load", folder.File("gone/"));
  files.refuseFolders = true;
  SaveAs("a.qcf");
  EXPECT_EQ(dialogs.shown.back().remedy,
            folder.File("gone/") + "\nThe folder last used is not there any more.");
  EXPECT_THAT(TakeBoxes(), ElementsAre(kFailed));
  EXPECT_EQ(settings.GetSetting("Load", ""), vars.AppPath);
  SaveAs("a.qcf");
  EXPECT_THAT(TakeBoxes(), ElementsAre(kFailed)) << "the program's own folder has gone, too";
  fileDialog.choices = {folder.File("a.qcf")};
  SaveAs("a.qcf");
  EXPECT_FALSE(Read("a.qcf").empty());
}

}  // namespace
}  // namespace marlinset

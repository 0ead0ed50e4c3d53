// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/recovery.h"

#include <filesystem>

#include "tests/support/temp_folder.h"
#include "tests/support/tool_rig.h"

namespace marlinset {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// Outlives the runs: what is kept now, and what earlier runs left.
class FakeKeeper : public WorkKeeper {
 public:
  std::optional<UnsavedWork> kept;
  std::vector<LeftWork> left;
  std::string declined;
  int keepings = 0;
  bool full = false;

  void Keep(const UnsavedWork& work) override {
    if (full) throw RuntimeError(kErrDiskFull, "Disk full");
    kept = work;
    ++keepings;
  }
  void Drop() override { kept.reset(); }
  void Leave() override {
    if (!kept) return;
    const std::string name = "left" + std::to_string(left.size()) + ".qcf";
    folder_.Write(name, {reinterpret_cast<const char*>(kept->bytes.data()), kept->bytes.size()});
    left.insert(left.begin(), {folder_.File(name), kept->title, kept->fileName, "noon", kept->mark});
    kept.reset();
  }
  std::vector<LeftWork> Left() override { return left; }
  void DeclineLeft(const std::string& file) override { declined = file; }
  void DropLeft(const std::string& file) override {
    std::erase_if(left, [&](const LeftWork& work) { return work.file == file; });
  }

 private:
  TempFolder folder_;
};

struct OneRun : ToolRig {
  explicit OneRun(WorkKeeper& keeper, std::deque<BoxAnswer> answers = {}, bool resume = true)
      : ToolRig({}, SHIPPED_DATABASE_FOLDER) {
    tool.platform.work = &keeper;
    dialogs.answers = std::move(answers);
    tool.Start("", resume);
  }
  void Edit(const std::string& message) { form.tWinMess.OperatorType(message); }

  static constexpr std::int64_t kHalfMinute = 30000;
};

struct RecoveryTest : testing::Test {
  TempFolder folder_;
  FakeKeeper keeper_;
};

TEST_F(RecoveryTest, OffersWhatAToolThatDiedHadNotSaved) {
  {
    OneRun run(keeper_);
    run.fileDialog.choices = {folder_.File("show.qcf")};
    run.form.mnuSave.OperatorClick();
    run.pump.Pass(2 * OneRun::kHalfMinute);
    EXPECT_EQ(keeper_.keepings, 0) << "nothing is unsaved";
    run.Edit("TAKE 7");
    run.pump.Pass(5 * OneRun::kHalfMinute);
    EXPECT_EQ(keeper_.keepings, 1) << "the same is kept once";
  }
  keeper_.Leave();
  OneRun run(keeper_, {BoxAnswer::kYes});
  EXPECT_THAT(run.Boxes(), ElementsAre("Unsaved changes to \"show\" of noon were kept when the program "
                                       "ended. Restore them?"));
  EXPECT_EQ(run.form.tWinMess.Text(), "TAKE 7");
  EXPECT_EQ(run.form.Caption(), "7340 Marlinset - show");
  EXPECT_EQ(run.fileDialog.FileName, folder_.File("show.qcf"));
  EXPECT_TRUE(run.tool.unsavedChanges.Modified());
  run.form.tWinMess.OperatorType("TAKE 8");
  run.form.mnuUndo.OperatorClick();
  EXPECT_FALSE(run.tool.variables.ConfigSaved) << "it is in no file yet";
  EXPECT_THAT(keeper_.left, IsEmpty());
  ASSERT_TRUE(keeper_.kept) << "until it is saved, this run keeps it";
  run.dialogs.shown.clear();
  run.form.mnuSav.OperatorClick();
  EXPECT_NE(folder_.Read("show.qcf").find("TAKE 7"), std::string::npos) << "where the work came from";
  EXPECT_THAT(run.Boxes(), IsEmpty());
  run.pump.Pass(OneRun::kHalfMinute);
  EXPECT_FALSE(keeper_.kept);
}

TEST(RecoveryOfFiles, ASaveAfterARestoreAsksAsItWouldHaveBefore) {
  enum class File { kAsItWas, kChanged, kGone, kNew };
  const std::tuple<File, bool, bool> kCases[] = {{File::kAsItWas, false, false},
                                                 {File::kChanged, false, true},
                                                 {File::kGone, false, false},
                                                 {File::kNew, false, true},
                                                 {File::kChanged, true, false}};
  for (const auto& [file, ofEarlierVersion, asked] : kCases) {
    const TempFolder folder;
    FakeKeeper keeper;
    {
      OneRun run(keeper);
      run.settings.SaveSetting("Load", folder.Path() + "/");
      run.fileDialog.choices = {folder.File("New.qcf")};
      (file == File::kNew ? run.form.mnuNew : run.form.mnuSave).OperatorClick();
      run.Edit("TAKE 7");
      run.tool.recovery.Leave();
    }
    if (ofEarlierVersion) keeper.left.front().mark.clear();
    if (file == File::kChanged || file == File::kNew) folder.Write("New.qcf", "somebody's");
    if (file == File::kGone) std::filesystem::remove(folder.File("New.qcf"));
    for (const int crash : {1, 2}) {
      OneRun run(keeper, {BoxAnswer::kYes});
      run.dialogs.shown.clear();
      run.form.mnuSav.OperatorClick();
      EXPECT_EQ(run.Boxes().size(), asked ? 1U : 0U) << static_cast<int>(file) << ", crash " << crash;
      if (!asked) break;
      run.tool.recovery.Leave();
    }
  }
}

TEST_F(RecoveryTest, KeepsAnEditThatNobodyContinuesButNotWhileTheUnitIsWaitedFor) {
  OneRun run(keeper_);
  run.Edit("ONE");
  run.pump.Pass(2000);
  EXPECT_EQ(keeper_.keepings, 1);
  for (int second = 1; second <= 32; ++second) {
    run.Edit(std::to_string(second));
    run.pump.Pass(1000);
    EXPECT_EQ(keeper_.keepings, second < 31 ? 1 : 2) << "somebody types for " << second << " s";
  }
  run.pump.Pass(2000);
  EXPECT_EQ(keeper_.keepings, 3);
  run.form.dPause.SetInterval(10000);
  run.form.dPause.SetEnabled(true);
  run.Edit("WHILE SENDING");
  run.pump.Pass(9000);
  EXPECT_EQ(keeper_.keepings, 3);
  run.pump.Pass(3000);
  EXPECT_EQ(keeper_.keepings, 4);
  run.Edit("THE END");
  run.tool.recovery.Leave();
  EXPECT_EQ(keeper_.keepings, 5) << "at once";
  EXPECT_THAT(keeper_.left, SizeIs(1));
  run.Edit("NOBODY IS LEFT");
  run.pump.Pass(OneRun::kHalfMinute);
  EXPECT_EQ(keeper_.keepings, 5);
}

TEST_F(RecoveryTest, KeepsEditsThatHaveNotReachedThePanels) {
  PendingEdits pending;
  Signal<> changed;
  OneRun run(keeper_);
  run.tool.recovery.IncludePending([&] { return pending; }, changed);
  const auto sees = [&](const PendingEdits& edits) {
    pending = edits;
    changed.Emit();
    run.pump.Pass(2000);
  };
  const std::string same = run.form.tWinMess.Text();
  sees({{&run.form.tWinMess, same}});
  EXPECT_FALSE(keeper_.kept) << "it changes nothing";
  sees({{&run.form.tWinMess, "SEEN"}, {&run.form.udVer(0), 999}});
  EXPECT_TRUE(keeper_.kept);
  sees({});
  EXPECT_FALSE(keeper_.kept) << "the rules have refused it";
  pending = {{&run.form.tWinMess, "AT THE END"}};
  run.tool.recovery.Leave();
  OneRun next(keeper_, {BoxAnswer::kYes});
  EXPECT_EQ(next.form.tWinMess.Text(), "AT THE END");
}

TEST_F(RecoveryTest, AsksForEachUntilTheOperatorTakesOneThatCanBeRead) {
  for (const char* message : {"FIRST", "SECOND", "THIRD", "FOURTH"}) {
    FakeKeeper own;
    OneRun run(own);
    run.Edit(message);
    run.pump.Pass(OneRun::kHalfMinute);
    keeper_.kept = own.kept;
    keeper_.Leave();
  }
  keeper_.left[1].file = folder_.Write("cut.qcf", "damaged");
  OneRun run(keeper_, {BoxAnswer::kNo, BoxAnswer::kYes, BoxAnswer::kOk, BoxAnswer::kYes}, false);
  EXPECT_THAT(run.Boxes(), SizeIs(4)) << "three offers, and what is wrong with the second";
  EXPECT_EQ(run.form.tWinMess.Text(), "SECOND");
  EXPECT_TRUE(run.tool.recovery.Restored()) << "no file of the desktop's takes its place";
  EXPECT_EQ(keeper_.declined, keeper_.left.front().file) << "the newest";
  EXPECT_THAT(keeper_.left, SizeIs(3)) << "only the one that was taken is gone";
}

TEST_F(RecoveryTest, KeepsWhatAFailedSaveHasNotStored) {
  const auto failToSave = [this](OneRun& run, MenuItem& command) {
    run.files.room = 10;
    run.fileDialog.choices = {folder_.File("full.qcf")};
    run.dialogs.answers = {BoxAnswer::kYes};
    command.OperatorClick();
    EXPECT_THAT(run.Boxes(), testing::Contains("Error during save, save aborted!"));
  };
  {
    OneRun run(keeper_);
    run.Edit("AT THE END");
    failToSave(run, run.form.mnuExit);
  }
  keeper_.Leave();
  OneRun run(keeper_, {BoxAnswer::kYes});
  EXPECT_EQ(run.form.tWinMess.Text(), "AT THE END");
  failToSave(run, run.form.mnuNew);
  EXPECT_EQ(run.form.tWinMess.Text(), "");
  EXPECT_THAT(keeper_.left, SizeIs(1)) << "New went on without it";
}

TEST_F(RecoveryTest, LeavesNothingThatWasStoredOrIsNotWanted) {
  const std::pair<MenuItem FrmStart::*, BoxAnswer> kWays[] = {{&FrmStart::mnuExit, BoxAnswer::kYes},
                                                              {&FrmStart::mnuExit, BoxAnswer::kNo},
                                                              {&FrmStart::mnuNew, BoxAnswer::kNo}};
  for (const auto& [command, answer] : kWays) {
    OneRun run(keeper_);
    EXPECT_FALSE(run.tool.recovery.Restored());
    run.form.comVS.OperatorSelect(1);  // which no question counts
    EXPECT_TRUE(run.tool.variables.ConfigSaved);
    run.pump.Pass(OneRun::kHalfMinute);
    ASSERT_TRUE(keeper_.kept);
    run.Edit("X");
    run.fileDialog.choices = {folder_.File("x.qcf")};
    run.dialogs.answers = {answer};
    (run.form.*command).OperatorClick();
    run.pump.Pass(OneRun::kHalfMinute);
    EXPECT_FALSE(keeper_.kept);
  }
}

TEST_F(RecoveryTest, KeepsNothingOfAConfigurationThatIsHalfRead) {
  OneRun run(keeper_);
  const std::string file = folder_.Write("damaged.qcf", "no configuration");
  run.dialogs.onShow = [&](const MessageBox&) {
    run.Edit("BETWEEN");
    run.pump.Pass(OneRun::kHalfMinute);
    return BoxAnswer::kOk;
  };
  run.tool.fileCommands.OpenNamed(file);
  EXPECT_EQ(keeper_.keepings, 0);
}

TEST_F(RecoveryTest, SaysOnceThatNothingCanBeKept) {
  OneRun run(keeper_);
  keeper_.full = true;
  run.Edit("X");
  run.pump.Pass(2000);
  EXPECT_EQ(run.Panel(4), "Save changes: Disk full, nothing is kept aside");
  run.form.StatBar(4).SetText("");
  run.pump.Pass(OneRun::kHalfMinute);
  EXPECT_EQ(run.Panel(4), "");
  keeper_.full = false;
  run.pump.Pass(OneRun::kHalfMinute);
  EXPECT_TRUE(keeper_.kept) << "there is room by now";
  EXPECT_THAT(run.Boxes(), IsEmpty());
}

}  // namespace
}  // namespace marlinset

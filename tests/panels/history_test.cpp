// SPDX-License-Identifier: GPL-3.0-or-later
// What is an entry of the history, what it is called, and what going back does to files and to the unit.
#include "base/text.h"
#include "tests/panels/panel_rig.h"
#include "tests/support/temp_folder.h"

namespace marlinset {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Names = std::vector<std::string>;

TEST(History, NamesEachActionThatChangesTheConfiguration) {
  const std::pair<const char*, Names> cases[] = {
      {"spin udVer(0) 44", {"Vertical of Video Timecode"}},
      {"check chOnOff(1) 1", {"On/Off of Video User Bits"}},
      {"choose ComWin(2) #1; click mnuCharOff", {"Char Off", "Character Style"}},
      {"click oVITC(1); check chEnable 1; spin UpDown1 14", {"White Flag Line", "White Flag", "VITC Mode"}},
      {"choose comTB(2) #1; click mnuNew", {"New", "VITC 1st Line Time Bits"}},
      // What the operator sees, sends or saves is no change.
      {"click bDesc; click bValue; click oView(2); click mnuHD7340Q; click mnuCom2; scroll VScroll2 300", {}},
      {"click bSConfig; hover chOnOff(0); click mnuInter; wait 6000; click mnuOff", {}},
      {"click mnuInter; check chPrev 1; click mnuOff", {"Mode Off", "Slate Preview"}},
      // Quick changes of one field are one.
      {"step UDDur down 3; wait 999; spin UDDur 7; wait 999; spin UDDur 6", {"Slate Duration"}},
      {"spin UDDur 5; wait 1000; spin UDDur 6", {"Slate Duration", "Slate Duration"}},
      {"spin UDDur 5; undo; redo; spin UDDur 6", {"Slate Duration", "Slate Duration"}},
      {"type tWinMess T; type tWinMess Ta; spin UDDur 5; type tWinMess Tak",
       {"Text Window Message", "Slate Duration", "Text Window Message"}},
  };
  for (const auto& [actions, names] : cases) {
    SCOPED_TRACE(actions);
    PanelRig rig;
    rig.tool.form.UDDur.SetValue(1);
    rig.dialogs.onShow = [](const MessageBox&) { return BoxAnswer::kYes; };
    rig.Do(actions);
    EXPECT_EQ(rig.tool.history.UndoNames(), names);
    EXPECT_EQ(rig.form.mnuUndo.Caption(), names.empty() ? "Undo" : "Undo " + names.front());
    EXPECT_EQ(rig.form.mnuUndo.Enabled(), !names.empty());
    EXPECT_THAT(rig.tool.history.RedoNames(), IsEmpty());
  }
}

TEST(History, KeepsTheLatestTwoHundred) {
  PanelRig rig;
  rig.form.UDDur.SetValue(1);
  for (int i = 2; i < 204; ++i) rig.Do("spin UDDur " + std::to_string(i % 2 + 1) + "; wait 1000");
  EXPECT_EQ(rig.tool.history.UndoNames().size(), 200U);
}

TEST(History, BringsRowsBackInTheOrderThatWasShown) {
  PanelRig rig;
  const auto order = [&] {
    std::string text;
    for (const SystemParameterRec& parameter : rig.vars.SystemParameters)
      text += parameter.Description + rig.form.bClass.Caption();
    return text + rig.form.tVal(5).Text() + rig.form.bValue.Caption();
  };
  rig.Do("click bDesc");
  const std::string byDescription = order();
  rig.Do("spin udVal(5) 77");
  const std::string changed = order();
  rig.Do("click bValue; click bClass");
  const std::string byClass = order();
  rig.Do("undo");
  EXPECT_EQ(order(), byDescription);
  rig.Do("click bClass; redo");
  EXPECT_EQ(order(), byClass) << "what followed comes back with it";
  EXPECT_NE(changed, byClass);
}

struct HistoryOfFiles : testing::Test {
  HistoryOfFiles() {
    rig.settings.SaveSetting("Load", folder.Path() + "/");
    rig.dialogs.onShow = [](const MessageBox& box) { return FakeDialogs::Default(box.buttons); };
  }
  void Use(MenuItem& command, std::string_view name) {
    rig.fileDialog.choices = {folder.File(name)};
    command.OperatorClick();
  }
  std::string State() const {
    return rig.vars.CurrentFile + " " + std::to_string(rig.form.UDDur.Value()) +
           (rig.vars.ConfigSaved ? " saved" : " edited");
  }
  std::string After(const std::string& actions) {
    rig.Do(actions);
    return State();
  }
  TempFolder folder;
  PanelRig rig;
  FrmStart& form = rig.form;
};

TEST_F(HistoryOfFiles, TellsWhatIsSavedWhateverWayItCameAbout) {
  rig.Do("spin UDDur 5; wait 1000");
  Use(form.mnuSave, "a.qcf");
  rig.Do("spin UDDur 6; wait 1000; choose comTB(0) #1");
  EXPECT_EQ(After("undo"), "a 6 edited");
  EXPECT_EQ(After("undo"), "a 5 saved");
  EXPECT_EQ(After("undo"), "a 0 edited") << "saving keeps the history, and is no part of it";
  EXPECT_EQ(After("redo"), "a 5 saved");

  rig.Do("spin UDDur 8");
  rig.Do("click mnuNew");  // No to the question about saving
  EXPECT_EQ(State(), "New 0 saved");
  EXPECT_EQ(After("undo"), "a 8 edited") << "nothing is lost by a hasty No";
  EXPECT_THAT(form.Caption(), testing::EndsWith("a"));
  EXPECT_EQ(After("undo"), "a 5 saved");
  EXPECT_EQ(After("redo; redo"), "New 0 saved");
}

TEST_F(HistoryOfFiles, KnowsWhatASaveThatStoredNothingLeftOnTheDisk) {
  // Whether the disk is full and others write the open file meanwhile, and what the way back leads to.
  const std::tuple<const char*, bool, bool, const char*, const char*> cases[] = {
      {"mnuSav", true, false, "a 5 saved", "a 6 edited"},
      {"mnuSave", true, false, "b 5 saved", "b 6 edited"},
      {"mnuSav", false, true, "a 5 edited", "a 6 edited"},  // declined: nobody has the 5 any more
      {"mnuSave", true, true, "b 5 edited", "b 6 edited"},
  };
  for (const auto& [command, full, foreign, undone, redone] : cases) {
    SCOPED_TRACE(std::string(command) + (foreign ? " foreign" : ""));
    rig.files.room.reset();
    form.UDDur.SetValue(5);
    Use(form.mnuSave, "a.qcf");
    rig.Do("wait 1000; spin UDDur 6");
    if (full) rig.files.room = 10;
    if (foreign) folder.Write("a.qcf", "x");
    rig.fileDialog.choices = {folder.File("b.qcf")};
    rig.Do(std::string("click ") + command);
    EXPECT_TRUE(rig.tool.unsavedChanges.Modified());
    EXPECT_EQ(After("undo"), undone);
    EXPECT_EQ(After("redo"), redone);
  }
}

/// New twice: both have the same name.
TEST_F(HistoryOfFiles, KnowsTwoSetupsOfOneNameApart) {
  rig.Do("click mnuNew; choose comVS NTSC; click mnuNew");
  EXPECT_EQ(After("undo"), "New 0 edited");
  EXPECT_EQ(After("undo"), "New 0 saved");
  EXPECT_EQ(After("redo; redo"), "New 0 saved");
  rig.Do("spin UDDur 5");
  Use(form.mnuSave, "a.qcf");
  EXPECT_EQ(After("spin UDDur 6; undo"), "a 5 saved") << "quick changes, but a save lies between them";
  rig.Do("wait 1000; spin UDDur 6; spin UDDur 5");
  EXPECT_EQ(After("undo"), "a 0 edited") << "what changed nothing in the end is no entry";
}

TEST_F(HistoryOfFiles, SavesBehindAnUndoneOpenAsBeforeIt) {
  Use(form.mnuSave, "a.qcf");
  rig.Do("spin UDDur 8");
  std::filesystem::create_directory(folder.File("other"));
  Use(form.mnuSave, "other/b.qcf");
  const std::string inB = folder.Read("other/b.qcf");
  Use(form.mnuOpen, "a.qcf");
  EXPECT_THAT(rig.tool.history.UndoNames(), ElementsAre("Open a.qcf", "Slate Duration"));
  EXPECT_EQ(After("undo"), "b 8 saved");
  rig.Do("spin UDDur 9; click mnuSav");
  EXPECT_NE(folder.Read("other/b.qcf"), inB) << "in its own folder";
  EXPECT_THAT(rig.TakeBoxes(), IsEmpty());

  Use(form.mnuOpen, "a.qcf");
  Use(form.mnuSave, "other/b.qcf");
  EXPECT_EQ(After("undo"), "b 9 edited") << "the file holds something else by now";
}

TEST(HistoryOnAir, SendsWhatTheUnitDoesNotHold) {
  const std::tuple<const char*, Names, Names> cases[] = {
      {"choose ComWin(2) #1", {"2 8 35 0"}, {"2 8 35 1"}},
      {"spin UDDur 9", {"2 8 36 0 0"}, {"2 8 36 0 9"}},
      {"check chVITC 0", {"1 5 46"}, {"1 5 47"}},
  };
  for (const bool known : {true, false}) {
    for (const auto& [action, undone, redone] : cases) {
      SCOPED_TRACE(std::string(action) + (known ? " known" : " unknown"));
      PanelRig rig;
      if (known) rig.form.bSConfig.OperatorClick();
      rig.GoInteractive();
      rig.Do(action);
      rig.Sent();
      rig.Do("undo");
      EXPECT_EQ(rig.Sent(), undone);
      rig.Do("redo");
      EXPECT_EQ(rig.Sent(), redone);
      rig.line.Unit().Faults().drop = 1;
      rig.Do("undo");
      EXPECT_EQ(rig.TakeBoxes().size(), 1U) << "the panel's box";
      EXPECT_THAT(rig.tool.history.RedoNames(), testing::SizeIs(1)) << "the panels keep it";
      rig.form.mnuOff.OperatorClick();
      rig.Sent();
      rig.Do("redo; undo");
      EXPECT_THAT(rig.Sent(), IsEmpty()) << "off line";
    }
  }
}

/// What was changed off line goes along with an undo on air: the font size between Off and On, then all
/// windows.
TEST(HistoryOnAir, EndsASendOfManyMessagesInOneBox) {
  using Deed = void (*)(PanelRig & rig);
  const Deed stop = [](PanelRig& rig) { rig.form.bStop.OperatorClick(); };
  const Deed vanish = [](PanelRig& rig) { rig.line.Vanish(); };
  const Deed fallSilent = [](PanelRig& rig) { rig.line.Unit().Faults().mute = true; };
  const Deed leave = [](PanelRig& rig) { rig.form.mnuOff.OperatorClick(); };
  const char* const kSilent = "VITC Enable error 47";
  const std::string stopped = "The send was stopped after ";
  const char* const kRest = "Press Send Changes to send the rest.";
  struct {
    int after;
    Deed happen;
    int goOut;  ///< 0: all
    Names boxes;
    const char* remedy;
  } const cases[] = {
      {99, nullptr, 0, {}, ""},
      {2, stop, 4, {stopped + "4 of "}, kRest},
      {0, fallSilent, 1, {kSilent, stopped + "1 of "}, kRest},
      {1, vanish, 1, {"Open Com Port before sending cmmands."}, "The panels keep the changes."},
      {1, leave, 1, {}, ""},
  };
  Names all;
  for (const auto& c : cases) {
    SCOPED_TRACE(&c - cases);
    PanelRig rig;
    rig.form.bSConfig.OperatorClick();
    rig.Do("check chVITC 0; choose ComWin(3) #1; spin UDDur 9");
    rig.GoInteractive();
    rig.Sent();
    rig.dialogs.onShow = [&](const MessageBox& box) {
      if (box.text == kSilent) stop(rig);
      return BoxAnswer::kOk;
    };
    const SendResult& result = rig.tool.wholeSend.Result();
    int sent = 0;
    rig.tool.commands.MessageSent.Connect([&](const SentMessage&) {
      EXPECT_EQ(result.messages, ++sent);
      EXPECT_TRUE(rig.form.bStop.Enabled());
      if (sent == c.after) c.happen(rig);
    });
    if (c.after == 0) c.happen(rig);
    rig.Do("undo");
    Names expected = all;
    if (c.goOut > 0) expected.resize(static_cast<std::size_t>(c.goOut));
    const Names out = rig.Sent();
    if (all.empty()) all = expected = out;
    EXPECT_EQ(out, expected);
    EXPECT_EQ(result.planned, static_cast<int>(all.size()));
    const Names boxes = rig.dialogs.Texts();
    ASSERT_EQ(boxes.size(), c.boxes.size());
    for (std::size_t i = 0; i < boxes.size(); ++i) EXPECT_THAT(boxes[i], testing::StartsWith(c.boxes[i]));
    EXPECT_THAT(boxes.empty() ? "" : rig.dialogs.shown.back().remedy, testing::EndsWith(c.remedy));
    EXPECT_NE(rig.form.UDDur.Value(), 9) << "the panels keep it";
    EXPECT_FALSE(rig.form.bStop.Enabled() || rig.tool.wholeSend.Running());
    EXPECT_EQ(rig.form.bSChanges.Enabled(), rig.tool.held.Known());
  }
  EXPECT_EQ(Names(all.begin(), all.begin() + 4), (Names{"1 5 47", "2 8 34 0", "2 8 32 1", "2 8 34 1"}));
}

TEST(HistoryOnAir, RestsWhileAnotherActionWaits) {
  PanelRig rig;
  rig.GoInteractive();
  rig.Do("choose ComWin(2) #1");
  rig.line.Unit().Faults().mute = true;
  bool offered = true;
  rig.pump.onHandle = [&] { offered = offered && rig.form.mnuUndo.Enabled(); };
  rig.Do("spin UDDur 9");
  EXPECT_FALSE(offered);
  EXPECT_TRUE(rig.form.mnuUndo.Enabled());
}

/// A click in the wait of another is possible for Mode > Off, the views and Close.
TEST(HistoryOnAir, GoesBackBehindBothOfTwoActionsThatRanInEachOther) {
  PanelRig rig;
  rig.GoInteractive();
  rig.Do("check chPrev 1; wait 1000");
  const int before = rig.form.udVal(5).Value();
  rig.pump.At(rig.pump.Now() + 5, [&] { rig.form.mnuOff.OperatorClick(); });
  rig.Do("spin udVal(5) 77");
  const std::string parameter = rig.form.lDesc(5).Caption();
  EXPECT_THAT(rig.tool.history.UndoNames(), ElementsAre("Mode Off", parameter, "Slate Preview"));
  rig.Do("undo");
  EXPECT_TRUE(rig.form.chPrev.On());
  EXPECT_EQ(rig.form.udVal(5).Value(), 77);
  rig.Do("undo");
  EXPECT_EQ(rig.form.udVal(5).Value(), before);

  rig.Do("click bDesc");
  rig.GoInteractive();
  rig.pump.At(rig.pump.Now() + 5, [&] { rig.form.udVal(5).OperatorSpin(78); });
  rig.Do("click bClass");
  rig.Do("undo");
  for (int row = 0; row <= UBound(rig.vars.SystemParameters); ++row) {
    const SystemParameterRec& record = At(rig.vars.SystemParameters, row);
    if (IsInternalClass(record.Class)) continue;
    EXPECT_EQ(rig.form.lDesc(row).Caption(), record.Description) << "not half sorted";
  }
}

TEST(HistoryOnAir, HasAnEntryForAStandardTakenOverFromTheUnit) {
  PanelRig rig;
  rig.form.bSConfig.OperatorClick();
  rig.GoInteractive();
  rig.vars.MainFormActive = true;
  rig.line.Unit().SetManual(true);
  rig.line.Unit().SetStandard(5);
  rig.dialogs.onShow = [](const MessageBox&) { return BoxAnswer::kYes; };
  const std::string before = rig.form.comVS.Text();
  rig.pump.Pass(6000);
  EXPECT_NE(rig.form.comVS.Text(), before);
  EXPECT_THAT(rig.tool.history.UndoNames(), ElementsAre("Video Standard"));
  rig.dialogs.onShow = [](const MessageBox&) { return BoxAnswer::kNo; };
  rig.Do("undo");
  EXPECT_EQ(rig.form.comVS.Text(), before);
}

}  // namespace
}  // namespace marlinset

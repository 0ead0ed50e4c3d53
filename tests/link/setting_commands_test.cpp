// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include "tests/support/link_rig.h"

namespace marlinset {
namespace {

using enum CommandId;
using testing::ElementsAre;
using testing::IsEmpty;

/// What a panel's handler sends with the sample configuration, and what happens when the unit is silent.
struct PanelCase {
  CommandId command;
  const char* fields;
  const char* failure;
  int lastsMs = 100;
  bool locks = false;  ///< other panels send nothing meanwhile
};

const char* const kRouting = "Slate Mode Assignment error";

const PanelCase kPanelCases[] = {
    {kVitcOn, "1 5 46", "VITC Enable error 46"},
    {kVitcOff, "1 5 47", "VITC Enable error 47"},
    {kWhiteFlagOn, "1 5 56", "White Flag Enable error 56"},
    {kWhiteFlagOff, "1 5 57", "White Flag Enable error 57"},
    {kVitcSource, "1 5 138 0", "Problem setting VITC."},
    {kAssignTC, "1 5 160 32 1", kRouting},
    {kAssignUB, "1 5 160 33 3", kRouting},
    {kAssignLTB, "1 5 160 48 12", kRouting},
    {kAssignLUB, "1 5 160 49 9", kRouting},
    {kAssignVTB, "1 5 160 50 9", kRouting},
    {kAssignVUB, "1 5 160 51 3", kRouting},
    {kAssignV2, "1 5 160 52 12", kRouting},
    {kAssignV3TB, "1 5 160 53 0", kRouting},
    {kAssignV3UB, "1 5 160 54 1", kRouting},
    {kVitcLines, "1 5 163 14 34 15 35 16 36", "Input assignment VUB error"},
    {kWhiteFlagLine, "1 5 169 21 21", "White FlagLine Set error 169"},
    {kCharSize, "2 8 32 2", "Char Size Assignment error", 10000, true},
    {kCharOff, "2 8 34 0", "Char Off error"},
    {kCharOn, "2 8 34 1", "Char On error"},
    {kCharOffForSize, "2 8 34 0", "Char On error", 10000, true},
    {kCharOnForSize, "2 8 34 1", "Char On error", 100, true},
    {kCharStyle, "2 8 35 3", "Char Style Assignment error", 10000, true},
    {kSlateDuration, "2 8 36 1 44", "Slate Duration Assignment error"},
    {kSlateMode, "2 8 37 4", "Slate Mode Assignment error", 100, true},
    {kSlatePreview, "2 8 37 1", "Slate On error"},
    {kText, "2 8 40 14 84 65 75 69 32 51 32 201", "Text Assignment error"},
    {kDownConverter, "2 8 43 5", "Down Converter Assignment error", 10000},
    {kDownConverterControl, "2 8 45 6 9 1", "HD Down Converter Control Assignment error", 10000, true},
    {kSdiProgramOut, "2 8 46 7", "SDI Program Out Assignment error", 10000, true},
};

TEST(SettingCommands, SayWaitAndFailAsThePanelsDo) {
  for (const PanelCase& c : kPanelCases) {
    SCOPED_TRACE(c.failure);
    LinkRig rig;
    rig.OpenIdentified();
    rig.line.Unit().Faults().mute = true;
    bool locked = false;
    rig.pump.At(50, [&] { locked = rig.vars.UnitLocalMode; });
    EXPECT_FALSE(rig.commands.Send(c.command, Sender::kPanel));
    EXPECT_THAT(rig.Sent(), ElementsAre(c.fields));
    EXPECT_THAT(rig.dialogs.Texts(), ElementsAre(c.failure));
    EXPECT_EQ(rig.pump.Now(), c.lastsMs);
    EXPECT_EQ(locked, c.locks);
    EXPECT_FALSE(rig.vars.UnitLocalMode);
    EXPECT_EQ(rig.form.dPause.Interval(), 100);
  }
}

TEST(SettingCommands, AwaitNoAnswerWhereTheUnitGivesNone) {
  LinkRig rig;
  rig.Open();
  rig.line.Unit().Faults().mute = true;
  for (const CommandId command : {kSetVideoStandard, kAutoSelection, kManualSelection}) {
    EXPECT_TRUE(rig.commands.Send(command, Sender::kPanel));
  }
  EXPECT_THAT(rig.Sent(), ElementsAre("15 0 36 4", "15 0 192 0 0 0 0 0 0", "15 0 192 0 0 1 0 0 0"));
  EXPECT_EQ(rig.pump.Now(), 3 * 25) << "no more than it takes the line to come to rest";
  EXPECT_THAT(rig.dialogs.Texts(), IsEmpty());
}

/// Another state of the panels and the message that it makes.
struct DataCase {
  const char* what;
  CommandId command;
  Sender sender;
  void (*prepare)(LinkRig& rig);
  std::string fields;
};

std::string Times(int count, const std::string& text) {
  std::string all;
  for (int i = 0; i < count; ++i) all += text;
  return all;
}

TEST(SettingCommands, TakeTheirDataFromThePanels) {
  const DataCase kCases[] = {
      {"one line", kVitcSource, Sender::kWholeSend, [](LinkRig& rig) { rig.form.oVITC(0).SetValue(true); },
       "1 5 138 1"},
      {"three lines", kVitcSource, Sender::kWholeSend, [](LinkRig& rig) { rig.form.oVITC(2).SetValue(true); },
       "1 5 138 3"},
      {"no duplicates", kVitcLines, Sender::kPanel, [](LinkRig& rig) { rig.form.chDups.SetValue(0); },
       "1 5 163 14 0 15 0 16 0"},
      {"negative lines", kVitcLines, Sender::kPanel,
       [](LinkRig& rig) {
         rig.form.upVitc1(1).SetValue(-14);
         rig.form.upVitc1(7).SetValue(-36);
       },
       "1 5 163 14 34 15 35 16 36"},
      {"negative flag line", kWhiteFlagLine, Sender::kPanel,
       [](LinkRig& rig) { rig.form.UpDown1.SetValue(-21); }, "1 5 169 21 21"},
      {"255 frames", kSlateDuration, Sender::kPanel, [](LinkRig& rig) { rig.form.UDDur.SetValue(255); },
       "2 8 36 0 255"},
      {"511 frames", kSlateDuration, Sender::kPanel, [](LinkRig& rig) { rig.form.UDDur.SetValue(511); },
       "2 8 36 1 255"},
      {"no text", kText, Sender::kPanel, [](LinkRig& rig) { rig.form.tWinMess.SetText(""); }, "2 8 40 14"},
      {"long text, whole send", kText, Sender::kWholeSend,
       [](LinkRig& rig) { rig.form.tWinMess.SetText(std::string(40, 'a')); }, "2 8 40 14" + Times(32, " 65")},
      {"long text, panel", kText, Sender::kPanel,
       [](LinkRig& rig) { rig.form.tWinMess.SetText(std::string(40, 'a')); },
       "2 8 40 14" + Times(32, " 65") + Times(8, " 0")},
      {"no code page", kText, Sender::kPanel, [](LinkRig& rig) { rig.form.tWinMess.SetText("ж€"); },
       "2 8 40 14 63 128"},
      {"filters not found", kDownConverterControl, Sender::kPanel,
       [](LinkRig& rig) {
         SelectText(rig.form.ComDownConv(0), "?");
         SelectText(rig.form.ComDownConv(2), "?");
       },
       "2 8 45 0 9 0"},
      {"channel AT", kAssignAT, Sender::kPanel, [](LinkRig&) {}, "1 5 160 34 0"},
  };
  for (const DataCase& c : kCases) {
    SCOPED_TRACE(c.what);
    LinkRig rig;
    rig.OpenIdentified();
    c.prepare(rig);
    rig.commands.Send(c.command, c.sender);
    EXPECT_THAT(rig.Sent(), ElementsAre(c.fields));
  }
}

TEST(SettingCommands, KnowWhichRoutingBoxIsWhichChannel) {
  for (const int box : {0, 1, 2, 3, 4}) EXPECT_TRUE(TimeBitsCommand(box));
  for (const int box : {0, 1, 2, 4}) EXPECT_TRUE(UserBitsCommand(box));
  EXPECT_EQ(TimeBitsCommand(3), kAssignV2);
  EXPECT_EQ(UserBitsCommand(3), std::nullopt);
  EXPECT_EQ(UserBitsCommand(4), kAssignV3UB);
}

TEST(SettingCommands, RepeatThePreviousMessageWhenThereIsOne) {
  LinkRig rig;
  rig.Open();
  rig.commands.SendAgain();
  EXPECT_THAT(rig.Sent(), IsEmpty());
  rig.form.dPause.SetInterval(100);
  rig.commands.Send(kCharOn, Sender::kPanel);
  rig.line.Unit().Faults().drop = 1;
  rig.commands.SendAgain();
  EXPECT_THAT(rig.Sent(), ElementsAre("2 8 34 1", "2 8 34 1"));
  EXPECT_THAT(rig.dialogs.Texts(), ElementsAre("Slate Mode Assignment error"));
}

TEST(SendParameter, SendsTheValueLowByteFirstAndLastsTheWholeInterval) {
  LinkRig rig;
  rig.OpenIdentified();
  rig.commands.SendParameter(1);
  EXPECT_EQ(rig.pump.Now(), 100);
  rig.commands.SendParameter(2);
  EXPECT_THAT(rig.Sent(), ElementsAre("15 0 192 7 2 44 1 0 0", "15 0 192 2 3 255 255 255 255"));
  EXPECT_THAT(rig.dialogs.Texts(), IsEmpty());
  rig.line.Unit().Faults().drop = 1;
  rig.commands.SendParameter(1);
  EXPECT_THAT(rig.dialogs.Texts(), ElementsAre("Problem with parameter."));
  EXPECT_EQ(rig.pump.Now(), 300);
}

TEST(SendParameter, KeepsInternalClassesAndMissingRowsFromTheUnit) {
  LinkRig rig;
  rig.OpenIdentified();
  for (const int row : {0, 3, -1, 4}) rig.commands.SendParameter(row);
  EXPECT_THAT(rig.Sent(), IsEmpty());
  EXPECT_THAT(rig.dialogs.Texts(), IsEmpty());
}

struct SlateCase {
  bool interactive;
  bool local;
  int preview;
  std::vector<std::string> sent;
};

TEST(SendSlate, SendsPreviewOrModeInInteractiveModeOnly) {
  const SlateCase kCases[] = {{true, false, 0, {"2 8 37 4"}},
                              {true, false, 1, {"2 8 37 1"}},
                              {false, false, 1, {}},
                              {true, true, 0, {}}};
  for (const SlateCase& c : kCases) {
    LinkRig rig;
    rig.OpenIdentified();
    rig.form.mnuInter.SetChecked(c.interactive);
    rig.vars.UnitLocalMode = c.local;
    rig.form.chPrev.SetValue(c.preview);
    rig.commands.SendSlate();
    EXPECT_EQ(rig.Sent(), c.sent);
  }
}

/// One window's boxes and position, and fields 4 to 7 of its message: flags, row, position, length.
struct WindowCase {
  const char* what;
  void (*prepare)(LinkRig& rig);
  const char* data;
};

// Window 0 of the sample: field digit (2), double height (16), slate (32), on (64); 11 + 2 characters.
TEST(SendWindowAll, ComposesFlagsRowAndLength) {
  const WindowCase kCases[] = {
      {"as it is", [](LinkRig&) {}, "242 20 5 13"},
      {"slate box hidden", [](LinkRig& rig) { rig.form.chSlate(0).SetVisible(false); }, "242 20 5 13"},
      {"symbol too", [](LinkRig& rig) { rig.form.chSym(0).SetValue(1); }, "246 20 5 16"},
      {"nothing",
       [](LinkRig& rig) {
         for (const auto* box :
              {&rig.form.chField, &rig.form.chDblSize, &rig.form.chSlate, &rig.form.chOnOff}) {
           (*box)(0).SetValue(0);
         }
       },
       "128 20 5 11"},
      {"boxes in neither state count as off", [](LinkRig& rig) { rig.form.chOnOff(0).SetValue(2); },
       "178 20 5 13"},
      {"small, at the minimum", [](LinkRig& rig) { rig.vars.CharWindows[0].Top = 37; }, "242 18 5 13"},
      {"small, rounded down", [](LinkRig& rig) { rig.vars.CharWindows[0].Top = 39; }, "242 19 5 13"},
      {"large, at the minimum",
       [](LinkRig& rig) {
         SelectText(rig.form.ComWin(3), "Large (32 lines/field)");
         rig.vars.CharWindows[0].Top = 20;
       },
       "242 8 5 13"},
      {"large", [](LinkRig& rig) { SelectText(rig.form.ComWin(3), "Large (32 lines/field)"); },
       "242 10 5 13"},
      {"tiny", [](LinkRig& rig) { SelectText(rig.form.ComWin(3), "Tiny (8 lines/field)"); }, "242 40 5 13"},
      {"any other size, at the minimum",
       [](LinkRig& rig) {
         SelectText(rig.form.ComWin(3), "Small");
         rig.vars.CharWindows[0].Top = 36;
       },
       "242 37 5 13"},
      {"to the left of the picture", [](LinkRig& rig) { rig.vars.CharWindows[0].Left = -2; },
       "242 20 254 13"},
  };
  for (const WindowCase& c : kCases) {
    SCOPED_TRACE(c.what);
    LinkRig rig;
    rig.OpenIdentified();
    c.prepare(rig);
    rig.commands.SendWindowAll(0);
    EXPECT_THAT(rig.Sent(), ElementsAre(std::string("2 8 33 1 ") + c.data));
  }
}

TEST(SendWindowAll, TellsAFailureAndSendsTheSlateInInteractiveMode) {
  LinkRig rig;
  rig.OpenIdentified();
  rig.form.mnuInter.SetChecked(true);
  rig.line.Unit().Faults().drop = 1;
  rig.commands.SendWindowAll(1);  // hidden: no matter here
  EXPECT_THAT(rig.Sent(), ElementsAre("2 8 33 3 160 18 0 20", "2 8 37 4"));
  EXPECT_THAT(rig.dialogs.Texts(), ElementsAre("Window Assignment error"));
}

TEST(SendWindowAll, RefusesAPositionThatDoesNotFitAByte) {
  LinkRig rig;
  rig.OpenIdentified();
  SelectText(rig.form.ComWin(3), "Tiny (8 lines/field)");
  rig.vars.CharWindows[0].Top = 256;
  EXPECT_FALSE(rig.guard.Run([&] { rig.commands.SendWindowAll(0); }));
  EXPECT_THAT(rig.dialogs.Texts(), ElementsAre("6  Overflow"));
}

TEST(SendWindowInteractive, HighlightsAWindowWhetherOrNotTheUnitAnswers) {
  LinkRig rig;
  rig.OpenIdentified();
  bool& highlighted = rig.vars.CharWindows[2].Highlighted;
  rig.commands.SendWindowInteractive(2, 128);
  EXPECT_TRUE(highlighted);
  EXPECT_EQ(rig.Panel(1), "Ack In");
  rig.line.Unit().Faults().drop = 1;
  rig.commands.SendWindowInteractive(2, 0);
  EXPECT_FALSE(highlighted);
  EXPECT_EQ(rig.Panel(1), "ACK LOST");
  EXPECT_THAT(rig.Sent(), ElementsAre("2 8 33 14 196 100 6 17", "2 8 33 14 68 100 6 17"));
  EXPECT_THAT(rig.dialogs.Texts(), IsEmpty());
}

TEST(SendWindowInteractive, PassesOverHiddenAndMissingWindowsAndALocalUnit) {
  LinkRig rig;
  rig.OpenIdentified();
  rig.vars.CharWindows.push_back({});  // a record without a row of controls
  for (const int window : {1, 3, 4, -1}) {
    rig.commands.SendWindowInteractive(window, 128);
    if (window != 1) rig.commands.SendWindowAll(window);
  }
  rig.vars.UnitLocalMode = true;
  rig.commands.SendWindowInteractive(0, 128);
  EXPECT_THAT(rig.Sent(), IsEmpty());
  for (const CharWindowRec& window : rig.vars.CharWindows) EXPECT_FALSE(window.Highlighted);
}

TEST(SendCharInserter, ShowsWhatTheUnitAcknowledged) {
  for (const bool on : {true, false}) {
    LinkRig rig;
    rig.OpenIdentified();
    rig.form.mnuCharOn.SetChecked(!on);
    rig.form.mnuCharOff.SetChecked(on);
    EXPECT_TRUE(rig.commands.SendCharInserter(on ? kCharOn : kCharOff, Sender::kPanel, on));
    EXPECT_EQ(rig.form.mnuCharOn.Checked(), on);
    EXPECT_EQ(rig.form.mnuCharOff.Checked(), !on);

    rig.form.Image1(0).SetVisible(true);
    rig.line.Unit().Faults().drop = 1;
    EXPECT_FALSE(rig.commands.SendCharInserter(on ? kCharOn : kCharOff, Sender::kPanel, on));
    EXPECT_FALSE(rig.form.mnuCharOn.Checked());
    EXPECT_FALSE(rig.form.mnuCharOff.Checked());
    EXPECT_EQ(rig.form.pComBut.BackColor(), kRed);
    EXPECT_FALSE(rig.form.Image1(0).Visible());
    EXPECT_THAT(rig.dialogs.Texts(), ElementsAre(on ? "Char On error" : "Char Off error"));
  }
}

}  // namespace
}  // namespace marlinset

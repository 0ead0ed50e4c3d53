// SPDX-License-Identifier: GPL-3.0-or-later
// What each control of the windows' panel, and the white flag, sends and leaves behind.
#include "tests/panels/windows_rig.h"
#include "tests/support/hex.h"

namespace marlinset {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Texts = std::vector<std::string>;

constexpr const char* kSlate = "2 8 37 0";
constexpr const char* kWindowError = "Window Assignment error";
constexpr const char* kSlateError = "Slate Mode Assignment error";

struct Edit {
  const char* what;
  void (*act)(FrmStart& form);
  bool (*holds)(const FrmStart& form);  ///< the operator's word stands, whatever the unit says
  Texts sent;                           ///< in interactive mode
  std::size_t sentInLocalMode;          ///< how many of these a unit in local mode still gets
  Texts boxes;                          ///< when no acknowledgement comes
};

const Edit kEdits[] = {
    {"double height",
     [](FrmStart& f) { f.chDblSize(0).OperatorCheck(true); },
     [](const FrmStart& f) { return f.chDblSize(0).On(); },
     {"2 8 33 1 210 10 5 13", kSlate},
     1,
     {kWindowError, kSlateError}},
    {"slate",
     [](FrmStart& f) { f.chSlate(0).OperatorCheck(true); },
     [](const FrmStart& f) { return f.chSlate(0).On(); },
     {"2 8 33 1 226 10 5 13", kSlate},
     1,
     {kWindowError, kSlateError}},
    {"symbol",
     [](FrmStart& f) { f.chSym(0).OperatorCheck(true); },
     [](const FrmStart& f) { return f.chSym(0).On(); },
     {"2 8 33 1 198 10 5 15", kSlate},
     1,
     {kWindowError, kSlateError}},
    {"no field digit",
     [](FrmStart& f) { f.chField(0).OperatorCheck(false); },
     [](const FrmStart& f) { return !f.chField(0).On(); },
     {"2 8 33 1 192 10 5 11", kSlate},
     1,
     {kWindowError, kSlateError}},
    {"off",
     [](FrmStart& f) { f.chOnOff(0).OperatorCheck(false); },
     [](const FrmStart& f) { return !f.chOnOff(0).On(); },
     {"2 8 33 1 130 10 5 13", kSlate, "2 8 34 0", "2 8 34 1"},
     0,
     {kWindowError, kSlateError, "Char Off error", "Char On error"}},
    {"line",
     [](FrmStart& f) { f.udVer(0).OperatorSpin(83); },
     [](const FrmStart& f) { return f.tVert(0).Text() == "83"; },
     {"2 8 33 1 194 20 5 13", kSlate},
     1,
     {kWindowError, kSlateError}},
    {"column",
     [](FrmStart& f) { f.udHor(0).OperatorStep(true, 2); },
     [](const FrmStart& f) { return f.tHor(0).Text() == "7"; },
     {"2 8 33 1 194 10 6 13", kSlate, "2 8 33 1 194 10 7 13", kSlate},
     2,
     {kWindowError, kSlateError, kWindowError, kSlateError}},
    {"aspect ratio",
     [](FrmStart& f) { f.ComWin(0).OperatorSelect(1); },
     [](const FrmStart& f) { return f.ComWin(0).Text() == "4:3 Edge Crop"; },
     {"2 8 43 1"},
     0,
     {"Down Converter Assignment error"}},
    {"slate mode",
     [](FrmStart& f) { f.ComWin(1).OperatorSelect(2); },
     [](const FrmStart& f) { return f.ComWin(1).Text() == "On at Event Start for Duration"; },
     {"2 8 37 2"},
     0,
     {kSlateError}},
    {"style",
     [](FrmStart& f) { f.ComWin(2).OperatorSelect(3); },
     [](const FrmStart& f) { return f.ComWin(2).Text() == "Black on White Box"; },
     {"2 8 35 3"},
     0,
     {"Char Style Assignment error"}},
    {"program output",
     [](FrmStart& f) { f.ComWin(4).OperatorSelect(1); },
     [](const FrmStart& f) { return f.ComWin(4).Text() == "HD with Windows"; },
     {"2 8 46 1"},
     0,
     {"SDI Program Out Assignment error"}},
    {"preview and back to the mode",
     [](FrmStart& f) {
       f.chPrev.OperatorCheck(true);
       f.chPrev.OperatorCheck(false);
     },
     [](const FrmStart& f) { return !f.chPrev.On(); },
     {"2 8 37 1", kSlate},
     0,
     {"Slate On error", kSlateError}},
    {"slate duration",
     [](FrmStart& f) { f.UDDur.SetValue(300); },
     [](const FrmStart& f) { return f.tLineNumber(4).Text() == "300"; },
     {"2 8 36 1 44"},
     0,
     {"Slate Duration Assignment error"}},
    {"message",
     [](FrmStart& f) { f.tWinMess.OperatorType("take"); },
     [](const FrmStart& f) { return f.tWinMess.Text() == "take"; },
     {"2 8 40 14 84 65 75 69"},
     0,
     {"Text Assignment error"}},
    {"white flag, and another line for it",
     [](FrmStart& f) {
       f.chEnable.OperatorCheck(true);
       f.UpDown1.OperatorSpin(16);
     },
     [](const FrmStart& f) { return f.chEnable.On() && f.tLineNumber(0).Text() == "16"; },
     {"1 5 56", "1 5 169 20 20", "1 5 169 16 16"},
     0,
     {"White Flag Enable error 56", "White FlagLine Set error 169", "White FlagLine Set error 169"}},
    {"white flag line while the flag is off",
     [](FrmStart& f) { f.UpDown1.OperatorSpin(15); },
     [](const FrmStart& f) { return f.tLineNumber(0).Text() == "15"; },
     {},
     0,
     {}},
};

TEST(WindowsPanel, SendsNothingOffLine) {
  WindowsRig rig;
  rig.form.bOpen.Press();
  for (const Edit& edit : kEdits) {
    SCOPED_TRACE(edit.what);
    rig.vars.ConfigSaved = true;
    edit.act(rig.form);
    EXPECT_TRUE(edit.holds(rig.form));
    EXPECT_FALSE(rig.vars.ConfigSaved);
  }
  EXPECT_THAT(rig.Sent(), IsEmpty());
  EXPECT_THAT(rig.Boxes(), IsEmpty());
}

TEST(WindowsPanel, SendsEachEditAtOnceAndKeepsItWhateverTheUnitSays) {
  enum class Unit { kWell, kLocal, kMute };
  for (const Edit& edit : kEdits) {
    for (const Unit unit : {Unit::kWell, Unit::kLocal, Unit::kMute}) {
      SCOPED_TRACE(std::string(edit.what) + " " + std::to_string(static_cast<int>(unit)));
      WindowsRig rig;
      rig.GoInteractive();
      rig.vars.ConfigSaved = true;
      rig.vars.UnitLocalMode = unit == Unit::kLocal;
      rig.line.Unit().SetLocal(unit == Unit::kLocal);
      rig.line.Unit().Faults().mute = unit == Unit::kMute;
      edit.act(rig.form);
      Texts sent = edit.sent;
      if (unit == Unit::kLocal) {
        // A window goes out to a unit in local mode, too, but nothing follows it.
        std::erase(sent, kSlate);
        sent.resize(edit.sentInLocalMode);
        EXPECT_EQ(rig.Boxes(), Texts(edit.sentInLocalMode, kWindowError));
      } else {
        EXPECT_EQ(rig.Boxes(), unit == Unit::kMute ? edit.boxes : Texts());
        EXPECT_FALSE(rig.vars.UnitLocalMode);
      }
      EXPECT_EQ(rig.Sent(), sent);
      EXPECT_TRUE(edit.holds(rig.form));
      EXPECT_FALSE(rig.vars.ConfigSaved);
      EXPECT_TRUE(rig.form.InterTime.Enabled());
    }
  }
}

TEST(WindowsPanel, TheUnitShowsWhatTheRowSays) {
  WindowsRig rig;
  rig.GoInteractive();
  rig.form.chDblSize(0).OperatorCheck(true);
  EXPECT_EQ(ToHex(rig.line.Sent().front()), "02 08 02 08 21 01 D2 0A 05 0D DE");
  rig.form.udVer(0).OperatorSpin(32);
  rig.form.udHor(0).OperatorSpin(17);
  EXPECT_EQ(rig.UnitShows(1), (UnitWindow{.on = true,
                                          .doubleHeight = true,
                                          .fieldDigit = true,
                                          .highlighted = true,
                                          .row = 8,
                                          .position = 17,
                                          .length = 13}));
  rig.form.tWinMess.OperatorType("Schluß");
  EXPECT_EQ(rig.line.Unit().Memory().Message(), "SCHLUß");
}

TEST(WindowsPanel, ALongMessageLeavesEmptyFieldsAndRoomOnlyToTheLeft) {
  WindowsRig rig;
  rig.GoInteractive();
  rig.form.tWinMess.OperatorType("Ab");
  EXPECT_EQ(rig.form.udHor(13).Max(), 30);
  rig.form.udHor(13).OperatorSpin(25);
  rig.line.ClearSent();
  rig.form.tWinMess.OperatorType(std::string(33, 'x') + "yz");
  EXPECT_EQ(rig.form.udHor(13).Max(), -3);
  EXPECT_EQ(rig.vars.CharWindows[13].Left, 0);
  std::string expected = "2 8 40 14";
  for (int i = 0; i < 32; ++i) expected += " 88";
  EXPECT_THAT(rig.Sent(), ElementsAre(expected + " 0 0 0"));
  EXPECT_EQ(rig.line.Unit().Memory().Message(), std::string(32, 'X'));
  rig.form.SetVisible(false);
  rig.form.tWinMess.SetText("a");
  EXPECT_EQ(rig.form.udHor(13).Max(), -3) << "only while the window is shown";
}

TEST(WindowsPanel, RoomAtTheRightFollowsFieldDigitAndSymbol) {
  WindowsRig rig;
  CharWindowRec& window = rig.vars.CharWindows[0];
  const int all = At(rig.vars.CharMaxPositions, rig.vars.CurCharMaxRow).MaxHorPosn - window.Length;
  SpinControl& spin = rig.form.udHor(0);
  rig.form.chSym(0).OperatorCheck(true);
  EXPECT_EQ(spin.Max(), all - window.FieldLength - window.SymbolLength);
  spin.OperatorSpin(1000);
  EXPECT_EQ(window.Left, spin.Max());
  rig.form.chField(0).OperatorCheck(false);
  EXPECT_EQ(spin.Max(), all - window.SymbolLength);
  window.FieldLength = 0;
  rig.GoInteractive();
  rig.form.chField(0).OperatorCheck(true);
  EXPECT_FALSE(rig.form.chField(0).On());
  EXPECT_EQ(spin.Max(), all - 2 * window.SymbolLength) << "by the click and by the one that took it back";
  // Taking the tick back is a click of its own.
  const std::string message = "2 8 33 1 196 10 " + std::to_string(window.Left) + " 13";
  EXPECT_THAT(rig.Sent(), ElementsAre(message, kSlate, message, kSlate));
  rig.form.chSym(0).OperatorCheck(false);
  spin.OperatorSpin(1000);
  rig.Sent();
  rig.form.chSym(0).OperatorCheck(true);
  const std::string pulled = "2 8 33 1 196 10 " + std::to_string(all - window.SymbolLength) + " 13";
  EXPECT_THAT(rig.Sent(), ElementsAre(pulled, kSlate)) << "the unit is told where the tick has moved it";
}

TEST(WindowsPanel, PositionsAreShownAsTheyStandWhateverIsTypedThere) {
  WindowsRig rig;
  rig.form.udVer(0).SetValue(-20);
  rig.form.udHor(0).SetValue(-3);
  rig.form.tVert(0).OperatorType("7");
  rig.form.tHor(0).OperatorKey('1');
  EXPECT_EQ(rig.form.tVert(0).Text(), "20");
  EXPECT_EQ(rig.vars.CharWindows[0].Top, 20);
  EXPECT_EQ(rig.form.tHor(0).Text(), "-3");
  EXPECT_EQ(rig.vars.CharWindows[0].Left, -3);
}

TEST(WindowsPanel, SwitchingAWindowLeavesTheInserterOnIfTheUnitSaysSo) {
  for (const bool mute : {false, true}) {
    WindowsRig rig;
    rig.GoInteractive();
    rig.form.mnuCharOn.SetChecked(false);
    rig.form.mnuCharOff.SetChecked(true);
    rig.line.Unit().Faults().mute = mute;
    rig.form.chOnOff(0).OperatorCheck(false);
    EXPECT_EQ(rig.form.mnuCharOn.Checked(), !mute);
    EXPECT_EQ(rig.form.mnuCharOff.Checked(), mute);
  }
}

/// New sets the boxes from the defaults, whose clicks take room away, and then takes it away by itself.
TEST(WindowsPanel, NewTakesTheRoomForFieldDigitAndSymbolOnce) {
  WindowsRig rig;
  CharWindowRec& window = rig.vars.CharWindows[0];
  for (const bool ticked : {true, false}) {
    rig.form.chField(0).OperatorCheck(!ticked);
    rig.form.chSym(0).OperatorCheck(!ticked);
    window.DefaultFieldOnOff = window.DefaultSymbolOnOff = ticked;
    rig.vars.ConfigSaved = true;
    rig.form.mnuNew.OperatorClick();
    const int all = At(rig.vars.CharMaxPositions, rig.vars.CurCharMaxRow).MaxHorPosn - window.Length;
    EXPECT_EQ(rig.form.udHor(0).Max(), all - window.FieldLength - window.SymbolLength);
    EXPECT_EQ(rig.form.chSym(0).On(), ticked);
    EXPECT_EQ(window.Left, rig.form.udHor(0).Value());
    EXPECT_TRUE(rig.vars.ConfigSaved);
  }
}

TEST(WindowsPanel, WhatIsNotThereIsPassedOver) {
  WindowsRig rig;
  rig.GoInteractive();
  rig.form.ForWindowRow([](auto& array) { array.Unload(13); });
  rig.vars.CharWindows.resize(3);
  rig.vars.CurCharMaxRow = 10000;
  rig.form.chSym(0).OperatorCheck(true);
  rig.form.chSym(5).OperatorCheck(true);
  rig.form.tWinMess.OperatorType("a");
  rig.form.ComWin(3).OperatorSelect(1);
  rig.form.tVert(5).OperatorHover();
  EXPECT_THAT(rig.Boxes(), IsEmpty());
  EXPECT_EQ(rig.form.udVer(2).Increment(), 2);
}

TEST(WindowsPanel, TheSheetFollowsItsScrollBar) {
  WindowsRig rig;
  rig.form.VScroll1.SetMax(1000);
  rig.form.VScroll1.SetVisible(true);
  rig.form.VScroll1.OperatorScroll(300);
  EXPECT_EQ(rig.form.pWinIn.Top(), -45);
}

TEST(WindowsPanel, OnlyTheQModelHasAProgramOutput) {
  WindowsRig rig(kModelHd7340);
  rig.GoInteractive();
  rig.form.ComWin(4).OperatorSelect(1);
  EXPECT_THAT(rig.Sent(), IsEmpty());
  EXPECT_FALSE(rig.vars.ConfigSaved);
}

TEST(WhiteFlag, ItsLineGoesOutWhileItIsOnAndWithTheNextTick) {
  WindowsRig rig;
  rig.GoInteractive();
  rig.form.chEnable.OperatorCheck(true);
  rig.Sent();
  rig.form.UpDown1.OperatorSpin(15);
  EXPECT_THAT(rig.Sent(), ElementsAre("1 5 169 15 15"));
  rig.form.chEnable.OperatorCheck(false);
  EXPECT_THAT(rig.Sent(), ElementsAre("1 5 57"));
  rig.form.UpDown1.OperatorSpin(14);
  rig.form.chEnable.OperatorCheck(true);
  EXPECT_THAT(rig.Sent(), ElementsAre("1 5 56", "1 5 169 14 14"));
  EXPECT_EQ(rig.line.Unit().Memory().WhiteFlagLine(), 14);
}

TEST(WhiteFlag, HoldsPollingBackUnlessInteractiveModeEndsMeanwhile) {
  WindowsRig rig;
  rig.GoInteractive();
  rig.line.Unit().Faults().mute = true;
  bool polling = true;
  rig.pump.At(rig.pump.Now() + 50, [&] { polling = rig.form.InterTime.Enabled(); });
  rig.pump.At(rig.pump.Now() + 60, [&] { rig.form.bClose.Press(); });
  rig.form.chEnable.OperatorCheck(true);
  EXPECT_FALSE(polling);
  EXPECT_FALSE(rig.form.InterTime.Enabled());
}

}  // namespace
}  // namespace marlinset

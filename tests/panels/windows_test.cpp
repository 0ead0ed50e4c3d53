// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/panels/panel_rig.h"
#include "tests/support/temp_folder.h"

namespace marlinset {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

constexpr const char* kFirstLit = "2 8 33 1 194 10 5 13";
constexpr const char* kFirst = "2 8 33 1 66 10 5 13";

TEST(Windows, StopAtTheRightByFieldDigitSymbolAndMessage) {
  PanelRig rig;
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
  rig.form.chField(0).OperatorCheck(true);
  EXPECT_FALSE(rig.form.chField(0).On()) << "a window without one takes no tick";
  rig.form.chSym(0).OperatorCheck(false);
  spin.OperatorSpin(1000);
  rig.GoInteractive();
  rig.form.chSym(0).OperatorCheck(true);
  const std::string pulled = std::to_string(all - window.SymbolLength);
  EXPECT_THAT(rig.Sent(), ElementsAre("2 8 33 1 196 10 " + pulled + " 13", "2 8 37 0"))
      << "the unit is told where the tick has moved it";
  rig.form.udHor(13).OperatorSpin(25);
  rig.form.tWinMess.OperatorType(std::string(35, 'x'));
  EXPECT_EQ(rig.form.udHor(13).Max(), -3);
}

/// A load sets provisional limits; an operator's first move replaces them by those of standard and font.
TEST(Windows, APositionThatWasLoadedMovesInTheLimitsOfItsStandard) {
  const TempFolder folder;
  const std::pair<std::function<void(FrmStart&)>, int> moves[] = {
      {[](FrmStart& form) { form.udVer(0).OperatorStep(false); }, 42},
      {[](FrmStart& form) { form.udVer(0).OperatorSpin(60); }, 60},
      {[](FrmStart& form) { form.udHor(0).OperatorSpin(1000); }, 40}};
  for (const auto& [move, row] : moves) {
    PanelRig rig;
    FrmStart& form = rig.form;
    form.ComWin(3).SetListIndex(1);
    form.chField(0).SetValue(1);
    form.udVer(1).SetValue(255);
    rig.fileDialog.choices = {folder.File("a.qcf")};
    form.mnuSave.OperatorClick();
    rig.tool.fileCommands.OpenNamed(folder.File("a.qcf"));
    EXPECT_EQ(form.udVer(0).Min() * 100 + form.udVer(0).Max(), 3000);
    rig.GoInteractive();
    move(form);
    EXPECT_EQ(form.udVer(0).Value(), row);
    EXPECT_EQ(form.udVer(0).Min(), 100) << "1080i/60, small";
    EXPECT_EQ(form.udHor(0).Max(), 32 - 11 - 2) << "room for the field digit";
    EXPECT_EQ(form.udVer(1).Value(), 255) << "values stay, also outside";
    EXPECT_EQ(rig.line.Unit().Memory().Windows().at(1).row, row / 2);
  }
}

TEST(Windows, ShowLinesWithoutASign) {
  PanelRig rig;
  rig.form.udVer(0).SetValue(-20);
  rig.form.udHor(0).SetValue(-3);
  rig.form.UDDur.SetValue(300);
  EXPECT_EQ(rig.vars.CharWindows[0].Top, 20);
  EXPECT_EQ(rig.form.tVert(0).Text() + " " + rig.form.tHor(0).Text(), "20 -3");
  EXPECT_EQ(rig.form.tLineNumber(0).Text() + " " + rig.form.tLineNumber(4).Text(), "20 300");
}

TEST(WindowHighlight, FollowsThePointerAndClearsTheOldRowFirst) {
  PanelRig rig;
  FrmStart& form = rig.form;
  form.chSlate(0).OperatorHover();
  form.chSlate(0).OperatorLeave();
  EXPECT_THAT(rig.Sent(), IsEmpty()) << "off line";
  rig.GoInteractive();
  form.chSlate(0).OperatorHover();
  form.udHor(0).OperatorHover();  // the same row
  EXPECT_THAT(rig.Sent(), ElementsAre(kFirstLit));
  ASSERT_FALSE(form.chField(13).Enabled());
  form.chField(13).OperatorHover();  // a box that can't be ticked is still part of its row
  EXPECT_THAT(rig.Sent(), ElementsAre(kFirst, StartsWith("2 8 33 14 128 ")));
  form.tVert(13).OperatorLeave();  // highlighted, so not told
  EXPECT_THAT(rig.Sent(), IsEmpty());
  form.tVert(0).OperatorLeave();
  EXPECT_THAT(rig.Sent(), ElementsAre(kFirst));
  form.OperatorHover();
  form.fWindows.SetVisible(true);
  rig.Sent();
  for (Control* around : {static_cast<Control*>(&form.fWindows), static_cast<Control*>(&form.pWinIn)}) {
    form.tHor(0).OperatorHover();
    around->OperatorHover();
    EXPECT_THAT(rig.Sent(), ElementsAre(kFirstLit, kFirst));
  }
}

TEST(WindowHighlight, ANameLightsItsRowOnceThePointerHasRested) {
  PanelRig rig;
  FrmStart& form = rig.form;
  rig.GoInteractive();
  form.lName(0).OperatorHover();
  rig.pump.Pass(200);
  form.lName(1).OperatorHover();
  rig.pump.Pass(249);
  EXPECT_THAT(rig.Sent(), IsEmpty());
  rig.pump.Pass(1);
  EXPECT_THAT(rig.Sent(), ElementsAre(StartsWith("2 8 33 2 128 ")));
  form.lName(0).OperatorHover();
  rig.pump.Pass(1000);
  EXPECT_THAT(rig.Sent(), ElementsAre(StartsWith("2 8 33 2 0 "), kFirstLit));
  EXPECT_FALSE(form.Timer1.Enabled()) << "once";
  form.lName(1).OperatorHover();
  form.pWinIn.OperatorHover();
  EXPECT_FALSE(form.Timer1.Enabled()) << "the pointer has left the names";
}

/// An inserter that is on goes off meanwhile; the menu shows it on at the end in any case.
TEST(FontSize, TakesTheInserterOffAndSendsEachWindowAnew) {
  struct Case {
    const char* what;
    bool inserterOn;
    int lost;  ///< so many acknowledgements from the first one on
    std::vector<std::string> boxes;
  };
  for (const Case& c : {Case{"well", true, 0, {}},
                        {"size lost", true, 2, {"Char On error", "Char Size Assignment error"}},
                        {"inserter off, size lost", false, 1, {"Char Size Assignment error"}}}) {
    SCOPED_TRACE(c.what);
    PanelRig rig;
    FrmStart& form = rig.form;
    rig.GoInteractive();
    form.mnuCharOn.SetChecked(c.inserterOn);
    form.mnuCharOff.SetChecked(!c.inserterOn);
    rig.line.Unit().Faults().drop = c.lost;
    form.ComWin(3).OperatorSelect(1);
    std::string sent;  // windows by their number, + while lit, the rest in whole
    for (const std::string& text : rig.Sent()) {
      if (text == "2 8 37 0") continue;
      const bool window = text.starts_with("2 8 33 ");
      const std::size_t end = text.find(' ', 7);
      if (window) sent += text.substr(7, end - 7) + (std::stoi(text.substr(end)) > 127 ? "+ " : " ");
      if (!window) sent += "(" + text + ") ";
    }
    const std::string windows = "(2 8 32 1) 1+ 2+ 14+ 15+ 18+ 19+ 20+ 1 2 14 15 18 19 20 ";
    EXPECT_EQ(sent, c.inserterOn ? "(2 8 34 0) " + windows + "(2 8 34 1) " : windows);
    EXPECT_EQ(rig.TakeBoxes(), c.boxes);
    EXPECT_TRUE(form.mnuCharOn.Checked() && !form.mnuCharOff.Checked());
    EXPECT_EQ(form.udVer(0).Increment(), 2);
    EXPECT_EQ(rig.line.Unit().Memory().Windows().at(1).row, 20);
    EXPECT_FALSE(rig.vars.ConfigSaved);
  }
}

TEST(Inserter, OpensThePortAndIsAChoiceAlsoWithoutOne) {
  for (const bool on : {false, true}) {
    PanelRig rig;
    rig.form.bClose.Press();
    MenuItem& menu = on ? rig.form.mnuCharOn : rig.form.mnuCharOff;
    menu.OperatorClick();
    EXPECT_THAT(rig.Sent(), ElementsAre(on ? "2 8 34 1" : "2 8 34 0"));
    EXPECT_EQ(rig.form.mnuCharOn.Checked(), on);
    EXPECT_EQ(rig.form.mnuCharOff.Checked(), !on);
    EXPECT_FALSE(rig.vars.ConfigSaved);
    rig.form.bClose.Press();
    menu.SetChecked(false);
    rig.line.RefuseOpen("Port 1 is in use.");
    menu.OperatorClick();
    EXPECT_THAT(rig.TakeBoxes(), ElementsAre("Port 1 is in use."));
    EXPECT_TRUE(menu.Checked());
  }
}

TEST(Inserter, IsNeitherOnNorOffWhenTheUnitDoesNotAnswer) {
  PanelRig rig;
  rig.line.Unit().Faults().mute = true;
  EXPECT_FALSE(rig.tool.commands.SendCharInserter(CommandId::kCharOff, Sender::kPanel, false));
  EXPECT_FALSE(rig.form.mnuCharOn.Checked() || rig.form.mnuCharOff.Checked());
}

}  // namespace
}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
// The pointer over the table of windows, font size and inserter, and clicks in the middle of a wait.
#include "tests/panels/windows_rig.h"

namespace marlinset {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;
using Texts = std::vector<std::string>;

constexpr const char* kFirstLit = "2 8 33 1 194 10 5 13";
constexpr const char* kFirst = "2 8 33 1 66 10 5 13";

TEST(WindowHighlight, FollowsThePointerAndClearsTheOldRowFirst) {
  WindowsRig rig;
  FrmStart& form = rig.form;
  rig.GoInteractive();
  form.chSlate(0).OperatorHover();
  form.udHor(0).OperatorHover();  // the same row
  EXPECT_THAT(rig.Sent(), ElementsAre(kFirstLit));
  ASSERT_FALSE(form.chField(13).Enabled());
  form.chField(13).OperatorHover();  // a box that can't be ticked is still part of its row
  EXPECT_THAT(rig.Sent(), ElementsAre(kFirst, StartsWith("2 8 33 14 128 ")));
  EXPECT_TRUE(rig.UnitShows(14).highlighted);
  EXPECT_FALSE(rig.UnitShows(1).highlighted);
  form.tVert(13).OperatorLeave();  // highlighted, so not told
  EXPECT_THAT(rig.Sent(), IsEmpty());
  form.tVert(0).OperatorLeave();
  EXPECT_THAT(rig.Sent(), ElementsAre(kFirst));
  EventSource* const surroundings[] = {
      &form.bName,    &form.bOn,       &form.bSlate,   &form.bDblHeight, &form.bSymbol,  &form.bField,
      &form.bHor,     &form.bVer,      &form.fAttribs, &form.fDownConv,  &form.fVirtual, &form.fWindows,
      &form.fWinMess, &form.fPosition, &form.pWinOut,  &form.pWinIn,     &form};
  form.fWindows.SetVisible(true);
  for (EventSource* surface : surroundings) {
    form.tHor(0).OperatorHover();
    rig.Sent();
    if (surface == &form) {
      form.OperatorHover();
    } else {
      static_cast<Control*>(surface)->OperatorHover();
    }
    EXPECT_THAT(rig.Sent(), ElementsAre(kFirst));
  }
  form.pWinTools.OperatorHover();
  EXPECT_THAT(rig.Sent(), IsEmpty());
  EXPECT_TRUE(rig.vars.ConfigSaved) << "looking is no edit";
}

TEST(WindowHighlight, ANameLightsItsRowOnceThePointerHasRested) {
  WindowsRig rig;
  FrmStart& form = rig.form;
  rig.GoInteractive();
  form.lName(0).OperatorHover();
  rig.pump.Pass(200);
  form.lName(1).OperatorHover();
  rig.pump.Pass(249);
  EXPECT_THAT(rig.Sent(), IsEmpty());
  rig.pump.Pass(1);
  EXPECT_THAT(rig.Sent(), ElementsAre(StartsWith("2 8 33 2 128 ")));
  EXPECT_FALSE(form.Timer1.Enabled());
  form.lName(0).OperatorHover();
  rig.pump.Pass(250);
  EXPECT_THAT(rig.Sent(), ElementsAre(StartsWith("2 8 33 2 0 "), kFirstLit));
  for (Control* around : {static_cast<Control*>(&form.pWinIn), static_cast<Control*>(&form.fPosition)}) {
    form.lName(0).OperatorHover();
    around->OperatorHover();
    EXPECT_FALSE(form.Timer1.Enabled());
  }
  rig.Sent();
  form.lName(0).OperatorHover();
  form.mnuInter.SetChecked(false);
  rig.pump.Pass(300);
  form.chOnOff(1).OperatorHover();
  form.chOnOff(1).OperatorLeave();
  form.OperatorHover();
  EXPECT_THAT(rig.Sent(), IsEmpty()) << "off line";
  EXPECT_FALSE(form.Timer1.Enabled());
}

TEST(WindowHighlight, APositionThatNoMessageHoldsIsToldOnceARest) {
  WindowsRig rig;
  rig.GoInteractive();
  rig.vars.CharWindows[0].Left = 300;
  rig.form.lName(0).OperatorHover();
  rig.pump.Pass(1000);
  EXPECT_THAT(rig.Boxes(), ElementsAre("6  Overflow"));
}

TEST(WindowHighlight, ALostAcknowledgementShowsInTheStatusBarOnly) {
  WindowsRig rig;
  rig.GoInteractive();
  rig.line.Unit().Faults().mute = true;
  rig.form.chSym(0).OperatorHover();
  EXPECT_EQ(rig.Panel(1), "ACK LOST");
  EXPECT_TRUE(rig.vars.CharWindows[0].Highlighted);
  EXPECT_THAT(rig.Boxes(), IsEmpty());
  rig.Sent();
  rig.vars.UnitLocalMode = true;
  rig.form.fWindows.SetVisible(true);
  rig.form.fWindows.OperatorHover();
  EXPECT_THAT(rig.Sent(), IsEmpty());
  EXPECT_TRUE(rig.vars.CharWindows[0].Highlighted) << "nothing is sent to a unit in local mode";
}

// While a slow box waits, its lock keeps out all but the plain boxes of a row.
TEST(NestedClicks, OnlyARowsPlainBoxesSendWhileALookIsOnItsWay) {
  WindowsRig rig;
  rig.GoInteractive();
  rig.line.Unit().Faults().drop = 1;
  Texts during;
  rig.pump.At(rig.pump.Now() + 5000, [&] {
    rig.Sent();
    rig.form.chOnOff(0).OperatorCheck(false);
    rig.form.tWinMess.OperatorType("a");
    rig.form.UDDur.OperatorSpin(9);
    rig.form.ComWin(1).OperatorSelect(1);
    rig.form.chPrev.OperatorCheck(true);
    rig.form.chEnable.OperatorCheck(true);
    rig.form.chSym(0).OperatorHover();
    during = rig.Sent();
    rig.form.chDblSize(0).OperatorCheck(true);
  });
  rig.form.ComWin(2).OperatorSelect(1);
  EXPECT_THAT(during, IsEmpty());
  // Its acknowledgement lifts the lock and counts for the style, too.
  EXPECT_THAT(rig.Sent(), ElementsAre("2 8 33 1 146 10 5 13", "2 8 37 1"));
  EXPECT_THAT(rig.Boxes(), IsEmpty());
  EXPECT_FALSE(rig.vars.UnitLocalMode);
}

TEST(NestedClicks, TheNextKeystrokeMayFallIntoTheWaitOfTheLast) {
  WindowsRig rig;
  rig.GoInteractive();
  rig.line.Unit().Faults().lateAcks = std::chrono::milliseconds{20};
  rig.pump.At(rig.pump.Now() + 10, [&] { rig.form.tWinMess.OperatorType("ab"); });
  rig.form.tWinMess.OperatorType("a");
  EXPECT_THAT(rig.Sent(), ElementsAre("2 8 40 14 65", "2 8 40 14 65 66"));
  EXPECT_EQ(rig.line.Unit().Memory().Message(), "AB");
  EXPECT_THAT(rig.Boxes(), IsEmpty());
}

/// The messages of a change of the font size without the windows' own, whose numbers are `windows`.
Texts WithoutWindows(const Texts& sent, Texts& windows) {
  Texts others;
  for (const std::string& text : sent) {
    if (text.starts_with("2 8 33 ")) {
      const std::string rest = text.substr(7);
      windows.push_back(rest.substr(0, rest.find(' ')) +
                        (std::stoi(rest.substr(rest.find(' '))) > 127 ? "+" : ""));
    } else if (text != "2 8 37 0") {
      others.push_back(text);
    }
  }
  return others;
}

struct SizeCase {
  const char* what;
  bool inserterOn;
  int lost;  ///< so many acknowledgements from the first one on
  Texts boxes;
};

TEST(FontSize, TakesTheInserterOffAndSendsEachWindowAnew) {
  Texts all{"Char On error", "Char Size Assignment error"};
  for (int window = 0; window < 7; ++window) {
    all.insert(all.end(), {"Window Assignment error", "Slate Mode Assignment error"});
  }
  all.emplace_back("Char On error");
  const SizeCase kCases[] = {{"well", true, 0, {}},
                             {"off lost", true, 1, {"Char On error"}},
                             {"size lost", true, 2, {"Char On error", "Char Size Assignment error"}},
                             {"all lost", true, 1000, all},
                             {"inserter off", false, 0, {}},
                             {"inserter off, size lost", false, 1, {"Char Size Assignment error"}}};
  for (const SizeCase& c : kCases) {
    SCOPED_TRACE(c.what);
    WindowsRig rig;
    FrmStart& form = rig.form;
    rig.GoInteractive();
    form.mnuCharOn.SetChecked(c.inserterOn);
    form.mnuCharOff.SetChecked(!c.inserterOn);
    rig.line.Unit().Faults().drop = c.lost;
    rig.tool.commands.MessageSent.Connect([&](const SentMessage& message) {
      if (message.command != std::string("cmdCharSize")) return;
      EXPECT_EQ(form.mnuCharOn.Checked(), c.inserterOn && c.lost == 0) << "the menu shows no momentary off";
      EXPECT_EQ(form.mnuCharOff.Checked(), !c.inserterOn);
    });
    form.ComWin(3).OperatorSelect(1);
    Texts windows;
    const Texts others = WithoutWindows(rig.Sent(), windows);
    EXPECT_EQ(others, c.inserterOn ? (Texts{"2 8 34 0", "2 8 32 1", "2 8 34 1"}) : (Texts{"2 8 32 1"}));
    EXPECT_THAT(windows, ElementsAre("1+", "2+", "14+", "15+", "18+", "19+", "20+", "1", "2", "14", "15",
                                     "18", "19", "20"));
    EXPECT_EQ(rig.Boxes(), c.boxes);
    EXPECT_TRUE(form.mnuCharOn.Checked()) << "in any case";
    EXPECT_FALSE(form.mnuCharOff.Checked());
    EXPECT_EQ(form.udVer(0).Increment(), 2);
    EXPECT_EQ(rig.UnitShows(1).row, 20);
    EXPECT_FALSE(rig.vars.ConfigSaved);
    EXPECT_FALSE(rig.vars.UnitLocalMode);
    EXPECT_EQ(form.pComBut.BackColor() == kRed, c.lost > 2);
  }
}

TEST(FontSize, EachChangeLooksForItselfWhetherTheInserterIsOn) {
  WindowsRig rig;
  rig.GoInteractive();
  rig.form.ComWin(3).OperatorSelect(1);
  rig.form.mnuCharOn.SetChecked(false);
  rig.Sent();
  rig.form.ComWin(3).OperatorSelect(2);
  Texts windows;
  EXPECT_THAT(WithoutWindows(rig.Sent(), windows), ElementsAre("2 8 32 2"));
}

TEST(FontSize, ChangesTheStepOnlyWhileTheWindowIsShown) {
  WindowsRig rig;
  const int limit = rig.form.udVer(0).Min();
  EXPECT_EQ(rig.form.udVer(0).Increment(), 4);
  rig.form.ComWin(3).OperatorSelect(2);
  EXPECT_EQ(rig.form.udVer(0).Increment(), 1);
  EXPECT_EQ(rig.form.udVer(0).Min(), limit) << "limits come with the next standard";
  rig.form.SetVisible(false);
  rig.form.ComWin(3).OperatorSelect(1);
  EXPECT_EQ(rig.form.udVer(0).Increment(), 1);
}

struct InserterCase {
  const char* what;
  bool on;
  bool mute;
  Texts boxes;
  bool onChecked;
  bool offChecked;
};

TEST(InserterMenu, OpensThePortSendsAndTicksWhatTheUnitTook) {
  const InserterCase kCases[] = {{"off", false, false, {}, false, true},
                                 {"on", true, false, {}, true, false},
                                 {"off lost", false, true, {"Char Off error"}, false, false},
                                 {"on lost", true, true, {"Char On error"}, false, false}};
  for (const InserterCase& c : kCases) {
    SCOPED_TRACE(c.what);
    WindowsRig rig;
    rig.line.Unit().Faults().mute = c.mute;
    (c.on ? rig.form.mnuCharOn : rig.form.mnuCharOff).OperatorClick();
    EXPECT_THAT(rig.Sent(), ElementsAre(c.on ? "2 8 34 1" : "2 8 34 0"));
    EXPECT_EQ(rig.Boxes(), c.boxes);
    EXPECT_EQ(rig.form.mnuCharOn.Checked(), c.onChecked);
    EXPECT_EQ(rig.form.mnuCharOff.Checked(), c.offChecked);
    EXPECT_EQ(rig.form.pComBut.BackColor() == kRed, c.mute);
    EXPECT_FALSE(rig.vars.ConfigSaved);
    rig.form.mnuCharOn.OperatorClick();
    EXPECT_NE(rig.Panel(2), "Port Open Already ") << "opened once";
  }
}

TEST(InserterMenu, StillChoosesWhenNoPortCanBeOpened) {
  WindowsRig rig;
  rig.line.RefuseOpen("Port 1 is in use.");
  rig.form.mnuCharOff.OperatorClick();
  EXPECT_THAT(rig.Boxes(), ElementsAre("Port 1 is in use."));
  EXPECT_TRUE(rig.form.mnuCharOff.Checked() && !rig.form.mnuCharOn.Checked());
}

}  // namespace
}  // namespace marlinset

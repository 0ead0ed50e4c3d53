// SPDX-License-Identifier: GPL-3.0-or-later
// What each control of the panels tells the unit, and what it leaves behind.
#include "files/panel_document.h"
#include "files/qcf_writer.h"
#include "tests/panels/panel_rig.h"

namespace marlinset {
namespace {

using testing::ElementsAre;
using Act = void (*)(FrmStart& form);

struct Edit {
  const char* what;
  Act act;
  std::string sent;                      ///< in interactive mode, the fields of each message
  int inLocalMode = 0;                   ///< so many of these also to a unit in local mode
  bool isEdit = true;                    ///< makes the configuration an unsaved one
  Act prepare = [](FrmStart& /*f*/) {};  ///< off line
};

std::string Joined(const std::vector<std::string>& texts) {
  std::string all;
  for (const std::string& text : texts) all += (all.empty() ? "" : ", ") + text;
  return all;
}

const Edit kEdits[] = {
    {"double height", [](auto& f) { f.chDblSize(0).OperatorCheck(true); }, "2 8 33 1 210 10 5 13, 2 8 37 0",
     1},
    {"symbol", [](auto& f) { f.chSym(0).OperatorCheck(true); }, "2 8 33 1 198 10 5 15, 2 8 37 0", 1},
    {"no digit", [](auto& f) { f.chField(0).OperatorCheck(false); }, "2 8 33 1 192 10 5 11, 2 8 37 0", 1},
    {"off", [](auto& f) { f.chOnOff(0).OperatorCheck(false); },
     "2 8 33 1 130 10 5 13, 2 8 37 0, 2 8 34 0, 2 8 34 1"},
    {"line", [](auto& f) { f.udVer(0).OperatorSpin(83); }, "2 8 33 1 194 20 5 13, 2 8 37 0", 1},
    {"aspect ratio", [](auto& f) { f.ComWin(0).OperatorSelect(1); }, "2 8 43 1"},
    {"slate mode", [](auto& f) { f.ComWin(1).OperatorSelect(2); }, "2 8 37 2"},
    {"style", [](auto& f) { f.ComWin(2).OperatorSelect(3); }, "2 8 35 3"},
    {"program output", [](auto& f) { f.ComWin(4).OperatorSelect(1); }, "2 8 46 1"},
    {"program output and converter of a model without",
     [](auto& f) {
       f.ComWin(4).OperatorSelect(1);
       f.ComDownConv(0).OperatorSelect(1);
     },
     "", 0, true, [](auto& f) { f.StatBar(4).SetText("HD7340"); }},
    {"preview and back to the mode",
     [](auto& f) {
       f.chPrev.OperatorCheck(true);
       f.chPrev.OperatorCheck(false);
     },
     "2 8 37 1, 2 8 37 0"},
    {"slate duration", [](auto& f) { f.UDDur.SetValue(300); }, "2 8 36 1 44"},
    {"message", [](auto& f) { f.tWinMess.OperatorType("take"); }, "2 8 40 14 84 65 75 69"},
    {"white flag, whose line goes out only while it is on",
     [](auto& f) {
       f.chEnable.OperatorCheck(true);
       f.UpDown1.OperatorSpin(16);
       f.chEnable.OperatorCheck(false);
       f.UpDown1.OperatorSpin(15);
     },
     "1 5 56, 1 5 169 20 20, 1 5 169 16 16, 1 5 57"},
    {"down converter, all three choices", [](auto& f) { f.ComDownConv(0).OperatorSelect(1); }, "2 8 45 1 9 9",
     0, false},
    {"standard", [](auto& f) { f.comVS.OperatorSelect(3); }, "", 0, false},
    {"first line", [](auto& f) { f.upVitc1(1).OperatorStep(true); }, "1 5 163 13 0 15 0 16 0"},
    {"three lines with duplicates, each click on its own",
     [](auto& f) { f.upVitc1(5).OperatorStep(false, 2); },
     "1 5 163 14 15 15 16 16 17, 1 5 163 14 16 15 17 16 18", 0, true,
     [](auto& f) {
       f.chDups.OperatorCheck(true);
       f.oVITC(2).OperatorClick();
     }},
    {"two lines", [](auto& f) { f.oVITC(1).OperatorClick(); }, "1 5 138 0, 1 5 163 14 0 15 0 16 0", 2, false},
    {"three lines, out of synchronization", [](auto& f) { f.oVITC(2).OperatorClick(); },
     "1 5 138 0, 1 5 163 14 0 15 0 16 0", 2, true, [](auto& f) { f.chSync.OperatorCheck(true); }},
    {"duplicates that the rules move, once", [](auto& f) { f.chDups.OperatorCheck(true); },
     "1 5 163 14 15 15 15 16 16", 0, true, [](auto& f) { f.chSync.OperatorCheck(true); }},
    {"VITC off and on",
     [](auto& f) {
       f.chVITC.OperatorCheck(false);
       f.chVITC.OperatorCheck(true);
     },
     "1 5 47, 1 5 46"},
    {"routing, the last message again where there is none",
     [](auto& f) {
       f.comTB(1).OperatorSelect(0);
       f.ComUB(2).OperatorSelect(1);
       f.ComUB(3).SetListIndex(-1);
     },
     "1 5 160 48 1, 1 5 160 51 7, 1 5 160 51 7", 3, false},
};

TEST(PanelEdits, GoToTheUnitInInteractiveModeAndStandWhateverItSays) {
  enum Way { kOffLine, kInteractive, kLocal, kUnacknowledged };
  for (const Edit& edit : kEdits) {
    std::vector<std::uint8_t> panels;
    for (const Way way : {kOffLine, kInteractive, kLocal, kUnacknowledged}) {
      SCOPED_TRACE(testing::Message() << edit.what << ", way " << way);
      PanelRig rig;
      edit.prepare(rig.form);
      rig.vars.ConfigSaved = true;
      if (way != kOffLine) rig.GoInteractive();
      rig.line.Unit().SetLocal(way == kLocal);
      rig.vars.UnitLocalMode = way == kLocal;
      rig.line.Unit().Faults().mute = way == kUnacknowledged;
      edit.act(rig.form);
      const std::string sent = Joined(rig.Sent());
      if (way == kLocal) {
        EXPECT_EQ(std::ranges::count(sent, ',') + (sent.empty() ? 0 : 1), edit.inLocalMode);
        EXPECT_TRUE(edit.sent.starts_with(sent));
      } else {
        EXPECT_EQ(sent, way == kOffLine ? "" : edit.sent);
      }
      EXPECT_EQ(rig.Told().empty(), sent.empty() || way == kInteractive) << "a box for each";
      EXPECT_EQ(rig.vars.ConfigSaved, !edit.isEdit);
      EXPECT_EQ(rig.form.InterTime.Enabled(), way != kOffLine);
      const auto now = WriteDocument(DocumentOfPanels(rig.vars, rig.form));
      if (way == kOffLine) panels = now;
      EXPECT_EQ(now, panels) << "the unit changes no panel";
    }
  }
}

/// While a slow control waits, its lock keeps out all but the plain boxes of a window's row.
TEST(PanelEdits, FallIntoTheWaitOfAnother) {
  PanelRig rig;
  FrmStart& form = rig.form;
  rig.GoInteractive();
  rig.line.Unit().Faults().drop = 1;
  rig.pump.At(rig.pump.Now() + 5000, [&] {
    EXPECT_THAT(rig.Sent(), ElementsAre("2 8 35 1")) << "a style takes its ten seconds";
    form.chOnOff(0).OperatorCheck(false);
    form.tWinMess.OperatorType("a");
    form.UDDur.OperatorSpin(9);
    form.ComWin(1).OperatorSelect(1);
    form.ComDownConv(1).OperatorSelect(0);
    form.chPrev.OperatorCheck(true);
    form.chEnable.OperatorCheck(true);
    form.chSym(0).OperatorHover();
    EXPECT_TRUE(rig.Sent().empty());
    form.chDblSize(0).OperatorCheck(true);
  });
  form.ComWin(2).OperatorSelect(1);
  // The acknowledgement of the last one lifts the lock and counts for the style, too.
  EXPECT_THAT(rig.Sent(), ElementsAre("2 8 33 1 146 10 5 13", "2 8 37 1"));
  EXPECT_TRUE(rig.Told().empty());

  rig.line.Unit().Faults().lateAcks = std::chrono::milliseconds{20};
  rig.pump.At(rig.pump.Now() + 10, [&] { form.tWinMess.OperatorType("ab"); });
  form.tWinMess.OperatorType("b");
  EXPECT_THAT(rig.Sent(), ElementsAre("2 8 40 14 66", "2 8 40 14 65 66")) << "the next keystroke";
  EXPECT_TRUE(rig.Told().empty());
}

TEST(PanelEdits, TypingIntoAListIsTakenBack) {
  PanelRig rig;
  for (ComboBox* box : {&rig.form.comVS, &rig.form.comTB(2)}) {
    box->OperatorSelect(2);
    const std::string text = box->Text();
    box->OperatorType("x");
    EXPECT_EQ(box->Text(), text);
    box->SetListIndex(-1);
    box->OperatorKey('\b');  // changes no text, and yet
    EXPECT_EQ(box->ListIndex(), 2);
  }
}

}  // namespace
}  // namespace marlinset

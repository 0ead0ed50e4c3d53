// SPDX-License-Identifier: GPL-3.0-or-later
// Routing and VITC lines: which control moves which, and what the unit is told of it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "files/panel_document.h"
#include "files/qcf_writer.h"
#include "tests/panels/time_code_rig.h"

namespace marlinset {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Texts = std::vector<std::string>;

using Act = void (*)(FrmStart&);

struct SendCase {
  const char* name;
  Act prepare;  ///< off line
  Act act;
  Texts sent;   ///< in interactive mode
  Texts boxes;  ///< when no acknowledgement comes
  bool sendsToLocalUnit;
  bool isEdit;
};

constexpr auto kNoLines = "Input assignment VUB error";
constexpr auto kNoRouting = "Slate Mode Assignment error";
constexpr auto kNoVitc = "Problem setting VITC.";
void Nothing(FrmStart& /*form*/) {}

std::vector<SendCase> SendCases() {
  // 1080i/60 has the lines 10 to 20; a start leaves the first lines at 14, the others at 15 and 16.
  return {
      {"first line",
       Nothing,
       [](auto& f) { f.upVitc1(1).OperatorStep(true); },
       {"1 5 163 13 0 15 0 16 0"},
       {kNoLines},
       false,
       true},
      {"second line",
       Nothing,
       [](auto& f) { f.upVitc1(2).OperatorSpin(19); },
       {"1 5 163 14 0 19 0 16 0"},
       {kNoLines},
       false,
       true},
      {"three lines with duplicates, each click on its own",
       [](auto& f) {
         f.chDups.OperatorCheck(true);
         f.oVITC(2).OperatorClick();
       },
       [](auto& f) { f.upVitc1(5).OperatorStep(false, 2); },
       {"1 5 163 14 15 15 16 16 17", "1 5 163 14 16 15 17 16 18"},
       {kNoLines, kNoLines},
       false,
       true},
      {"two lines",
       Nothing,
       [](auto& f) { f.oVITC(1).OperatorClick(); },
       {"1 5 138 0", "1 5 163 14 0 15 0 16 0"},
       {kNoVitc, kNoLines},
       true,
       false},
      {"three lines, out of synchronization",
       [](auto& f) { f.chSync.OperatorCheck(true); },
       [](auto& f) { f.oVITC(2).OperatorClick(); },
       {"1 5 138 0", "1 5 163 14 0 15 0 16 0"},
       {kNoVitc, kNoLines},
       true,
       true},
      {"duplicates",
       Nothing,
       [](auto& f) { f.chDups.OperatorCheck(true); },
       {"1 5 163 14 14 15 15 16 16"},
       {kNoLines},
       false,
       true},
      {"duplicates that the rules move, once",
       [](auto& f) { f.chSync.OperatorCheck(true); },
       [](auto& f) { f.chDups.OperatorCheck(true); },
       {"1 5 163 14 15 15 15 16 16"},
       {kNoLines},
       false,
       true},
      {"synchronization", Nothing, [](auto& f) { f.chSync.OperatorCheck(true); }, {}, {}, false, true},
      {"VITC off",
       Nothing,
       [](auto& f) { f.chVITC.OperatorCheck(false); },
       {"1 5 47"},
       {"VITC Enable error 47"},
       false,
       true},
      {"VITC on",
       [](auto& f) { f.chVITC.OperatorCheck(false); },
       [](auto& f) { f.chVITC.OperatorCheck(true); },
       {"1 5 46"},
       {"VITC Enable error 46"},
       false,
       true},
      {"time bits",
       Nothing,
       [](auto& f) {
         for (const int i : {0, 1, 2, 3, 4}) f.comTB(i).OperatorSelect(0);
       },
       {"1 5 160 32 TB0", "1 5 160 48 TB1", "1 5 160 50 TB2", "1 5 160 52 TB3", "1 5 160 53 TB4"},
       Texts(5, kNoRouting),
       true,
       false},
      {"user bits, the last message again where there are none",
       [](auto& f) { f.ComUB(4).AddItem("Not in the database"); },
       [](auto& f) {
         for (const int i : {0, 1, 2}) f.ComUB(i).OperatorSelect(1);
         f.ComUB(3).SetListIndex(-1);
         f.ComUB(4).OperatorSelect(f.ComUB(4).ListCount() - 1);
       },
       {"1 5 160 33 UB0", "1 5 160 49 UB1", "1 5 160 51 UB2", "1 5 160 51 UB2", "1 5 160 54 0"},
       Texts(5, kNoRouting),
       true,
       false},
      {"typing",
       [](auto& f) { f.comTB(1).OperatorSelect(1); },
       [](auto& f) {
         f.comTB(1).OperatorType("LTC");
         f.ComUB(3).OperatorType("x");
       },
       {},
       {},
       false,
       true},
  };
}

/// "TB0" stands for the code of what comTB(0) shows: the last row of the sources with that text.
Texts WithCodes(Texts messages, const TimeCodeRig& rig) {
  for (std::string& message : messages) {
    const auto at = message.find_first_of("TU");
    if (at == std::string::npos) continue;
    const int index = message[at + 2] - '0';
    const ComboBox& box = message[at] == 'T' ? rig.form.comTB(index) : rig.form.ComUB(index);
    int code = -1;
    for (const CodeSourceRec& row : rig.vars.CodeSources) {
      if (row.Description == box.Text()) code = row.GenNumber;
    }
    message.replace(at, 3, std::to_string(code));
  }
  return messages;
}

TEST(TimeCodePanels, TellTheUnitInInteractiveModeOnly) {
  enum Way { kOffLine, kInteractive, kLocal, kUnacknowledged };
  for (const SendCase& row : SendCases()) {
    std::vector<std::uint8_t> panels;
    std::string lines;
    for (const Way way : {kOffLine, kInteractive, kLocal, kUnacknowledged}) {
      SCOPED_TRACE(testing::Message() << row.name << ", way " << way);
      TimeCodeRig rig;
      row.prepare(rig.form);
      rig.vars.ConfigSaved = true;
      rig.GoInteractive(way != kOffLine);
      rig.SetLocal(way == kLocal);
      if (way == kUnacknowledged) rig.line.Unit().Faults().drop = 99;
      row.act(rig.form);
      const bool sends = way == kLocal ? row.sendsToLocalUnit : way != kOffLine;
      EXPECT_EQ(rig.TakeSent(), sends ? WithCodes(row.sent, rig) : Texts());
      EXPECT_EQ(rig.TakeBoxes(), sends && way != kInteractive ? row.boxes : Texts());
      EXPECT_EQ(rig.vars.ConfigSaved, !row.isEdit);
      EXPECT_FALSE(rig.vars.VitcChanging);
      if (way == kOffLine) {
        panels = WriteDocument(DocumentOfPanels(rig.vars, rig.form));
        lines = Lines(rig.form);
      }
      EXPECT_EQ(WriteDocument(DocumentOfPanels(rig.vars, rig.form)), panels) << "the unit changes no panel";
      EXPECT_EQ(Lines(rig.form), lines);
    }
  }
}

TEST(TimeCodePanels, TypingIntoRoutingIsTakenBack) {
  TimeCodeRig rig;
  rig.form.comTB(2).OperatorSelect(1);
  EXPECT_EQ(rig.vars.TbLastIndex[2], 1);
  const std::string text = rig.form.comTB(2).Text();
  rig.form.comTB(2).OperatorType("x");
  EXPECT_EQ(rig.form.comTB(2).Text(), text);
  rig.form.comTB(2).SetListIndex(-1);
  rig.form.comTB(2).OperatorKey('x');
  EXPECT_EQ(rig.form.comTB(2).Text(), text);
  EXPECT_EQ(rig.form.comTB(2).ListIndex(), 1);
  rig.form.ComUB(3).OperatorType("x");
  EXPECT_EQ(rig.form.ComUB(3).Text(), "x") << "an empty list has nothing to put back";
  EXPECT_EQ(rig.vars.UbLastIndex[3], 0);
  rig.form.ComUB(3).AddItem("the only one");
  rig.form.ComUB(3).OperatorType("y");
  EXPECT_EQ(rig.form.ComUB(3).Text(), "the only one");
}

TEST(TimeCodePanels, MoveLinesByTheRulesOfTheirMode) {
  struct Step {
    const char* what;
    Act act;
    const char* lines;
  };
  const Step steps[] = {
      {"start", Nothing, "14 15 16 14 15 16"},
      {"one line moves alone", [](auto& f) { f.upVitc1(1).OperatorSpin(17); }, "17 15 16 14 15 16"},
      {"others are taken without a word", [](auto& f) { f.upVitc1(3).OperatorSpin(11); },
       "17 15 11(16) 14 15 16"},
      {"two lines wait for the first to change", [](auto& f) { f.oVITC(1).OperatorClick(); },
       "17 15 11(16) 14 15 16"},
      {"which shows all", [](auto& f) { f.upVitc1(1).OperatorStep(false); }, "18 19 11 14 15 16"},
      {"the first leaves room", [](auto& f) { f.upVitc1(1).OperatorSpin(20); }, "19 20 11 14 15 16"},
      {"the second goes its own way", [](auto& f) { f.upVitc1(2).OperatorSpin(12); },
       "19 12(20) 11 14 15 16"},
      {"until the first moves", [](auto& f) { f.upVitc1(1).OperatorStep(true); }, "18 19 11 14 15 16"},
      {"room is made once only",
       [](auto& f) {
         f.upVitc1(2).SetMin(16);
         f.upVitc1(1).OperatorStep(false);
       },
       "18 19 11 14 15 16"},
      {"three lines",
       [](auto& f) {
         f.upVitc1(2).SetMin(20);
         f.oVITC(2).OperatorClick();
       },
       "18 19 11 14 15 16"},
      {"which duplicates show, too", [](auto& f) { f.chDups.OperatorCheck(true); }, "18 19 20 14 15 16"},
      {"and have for themselves", [](auto& f) { f.upVitc1(5).OperatorSpin(20); }, "18 19 20 18 19 20"},
      {"room is made as far as needed",
       [](auto& f) {
         f.upVitc1(3).SetMin(13);
         f.upVitc1(1).OperatorSpin(19);
       },
       "11 12 13 18 19 20"},
      {"limits pull without rules", [](auto& f) { f.upVitc1(1).SetMin(10); }, "10 12 13 18 19 20"},
      {"a standard pulls too",
       [](auto& f) {
         f.comVS.OperatorSelect(1);
         f.upVitc1(6).SetMax(21);
       },
       "10 12 13 18 21 20"},
      {"defaults", [](auto& f) { f.mnuNew.OperatorClick(); }, "19 12 13 19 21 20"},
  };
  TimeCodeRig rig;
  for (const Step& step : steps) {
    step.act(rig.form);
    EXPECT_EQ(Lines(rig.form), step.lines) << step.what;
  }
}

TEST(TimeCodePanels, KeepASynchronizedDuplicateAtItsDistance) {
  TimeCodeRig rig;
  FrmStart& form = rig.form;
  form.chDups.OperatorCheck(true);
  form.upVitc1(5).OperatorSpin(12);
  form.chDups.OperatorCheck(false);
  form.chSync.OperatorCheck(true);
  EXPECT_FALSE(form.upVitc1(5).Enabled());
  form.upVitc1(1).OperatorSpin(16);
  EXPECT_EQ(Lines(form), "16 15 16 12 15 16") << "free while there are no duplicates";
  form.chDups.OperatorCheck(true);
  EXPECT_TRUE(form.upVitc1(5).Visible() && form.tLineNumber(7).Visible());
  EXPECT_EQ(Lines(form), "16 15 16 17 15 16");
  form.upVitc1(1).OperatorStep(true, 3);
  EXPECT_EQ(Lines(form), "13 15 16 14 15 16");
  form.upVitc1(1).OperatorSpin(10);
  EXPECT_EQ(Lines(form), "10 15 16 13 15 16") << "one change moves it by one";
  form.chDups.OperatorCheck(false);
  form.chDups.OperatorCheck(true);
  EXPECT_EQ(Lines(form), "10 15 16 13 15 16") << "no change moves nothing";
  form.upVitc1(1).OperatorStep(false, 20);
  EXPECT_EQ(Lines(form), "17 15 16 20 15 16") << "the last line for the duplicate stops the first";
  form.upVitc1(1).OperatorSpin(20);
  EXPECT_EQ(Lines(form), "19 15 16 20 15 16");
  rig.vars.ConfigSaved = true;
  form.oVITC(1).OperatorClick();
  EXPECT_TRUE(form.upVitc1(5).Enabled());
  EXPECT_FALSE(form.chSync.On() || form.chSync.Visible() || form.fVITC3.Visible());
  EXPECT_TRUE(form.fVITC2.Visible());
  EXPECT_FALSE(rig.vars.ConfigSaved);
  form.chSync.SetValue(1);  // as a file may have it
  form.oVITC(0).OperatorClick();
  EXPECT_TRUE(form.chSync.Visible() && form.chSync.On() && !form.fVITC2.Visible());
  form.chDups.OperatorCheck(false);
  EXPECT_FALSE(form.upVitc1(5).Visible() || form.tLineNumber(6).Visible());
}

TEST(TimeCodePanels, JustTakeWhatTheOperatorDoesToALineDuringItsWait) {
  TimeCodeRig rig({.ackTime = std::chrono::milliseconds{20}});
  FrmStart& form = rig.form;
  form.oVITC(2).OperatorClick();
  rig.GoInteractive();
  rig.pump.At(rig.pump.Now() + 5, [&] { form.chDups.OperatorCheck(true); });
  rig.pump.At(rig.pump.Now() + 6, [&] { form.upVitc1(5).OperatorSpin(12); });
  rig.pump.At(rig.pump.Now() + 7, [&] { form.upVitc1(1).OperatorSpin(17); });
  form.upVitc1(1).OperatorSpin(12);
  EXPECT_EQ(Lines(form), "17(12) 13 14 12(14) 15 16");
  EXPECT_THAT(rig.TakeSent(), ElementsAre("1 5 163 12 0 13 0 14 0", "1 5 163 12 14 13 15 14 16"));
  EXPECT_FALSE(rig.vars.VitcChanging);
  form.upVitc1(5).OperatorStep(true);
  EXPECT_EQ(Lines(form), "17 13 14 11 12 13");
  EXPECT_THAT(rig.line.Sent(), ElementsAre(Bytes{2, 9, 1, 5, 163, 17, 11, 13, 12, 14, 13, 254}));
}

}  // namespace
}  // namespace marlinset

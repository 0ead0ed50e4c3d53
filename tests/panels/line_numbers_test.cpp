// SPDX-License-Identifier: GPL-3.0-or-later
// VITC lines: which one moves which.
#include "tests/panels/panel_rig.h"

namespace marlinset {
namespace {

using testing::ElementsAre;

/// The numbers of the lines and of their duplicates, each with what its echo shows where that differs.
std::string Lines(const FrmStart& form) {
  std::string text;
  for (const int line : FrmStart::kVitcLineIndices) {
    const std::string number = std::to_string(form.upVitc1(line).Value());
    const std::string& shown = form.tLineNumber(line).Text();
    text += (text.empty() ? "" : " ") + number + (shown == number ? "" : "(" + shown + ")");
  }
  return text;
}

struct Step {
  const char* what;
  void (*act)(FrmStart& form);
  const char* lines;
};

void Walk(std::initializer_list<Step> steps) {
  PanelRig rig;
  for (const Step& step : steps) {
    step.act(rig.form);
    EXPECT_EQ(Lines(rig.form), step.lines) << step.what;
  }
}

TEST(LineNumbers, MoveByTheRulesOfTheirMode) {
  Walk({
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
      {"three lines, which duplicates show, too",
       [](auto& f) {
         f.oVITC(2).OperatorClick();
         f.chDups.OperatorCheck(true);
       },
       "18 19 20 14 15 16"},
      {"and have for themselves", [](auto& f) { f.upVitc1(5).OperatorSpin(20); }, "18 19 20 18 19 20"},
      {"room is made as far as needed",
       [](auto& f) {
         f.upVitc1(3).SetMin(13);
         f.upVitc1(1).OperatorSpin(19);
       },
       "11 12 13 18 19 20"},
      {"limits pull without rules", [](auto& f) { f.upVitc1(1).SetMin(10); }, "10 12 13 18 19 20"},
  });
}

TEST(LineNumbers, KeepASynchronizedDuplicateAtItsDistance) {
  Walk({
      {"free while there are no duplicates",
       [](auto& f) {
         f.chDups.OperatorCheck(true);
         f.upVitc1(5).OperatorSpin(12);
         f.chDups.OperatorCheck(false);
         f.chSync.OperatorCheck(true);
         f.upVitc1(1).OperatorSpin(16);
         EXPECT_FALSE(f.upVitc1(5).Enabled() || f.upVitc1(5).Visible() || f.tLineNumber(6).Visible());
       },
       "16 15 16 12 15 16"},
      {"one behind",
       [](auto& f) {
         f.chDups.OperatorCheck(true);
         EXPECT_TRUE(f.upVitc1(5).Visible() && f.tLineNumber(7).Visible());
       },
       "16 15 16 17 15 16"},
      {"and along", [](auto& f) { f.upVitc1(1).OperatorStep(true, 3); }, "13 15 16 14 15 16"},
      {"one change moves it by one", [](auto& f) { f.upVitc1(1).OperatorSpin(10); }, "10 15 16 13 15 16"},
      {"the last line for the duplicate stops the first",
       [](auto& f) { f.upVitc1(1).OperatorStep(false, 20); }, "17 15 16 20 15 16"},
      {"however far", [](auto& f) { f.upVitc1(1).OperatorSpin(20); }, "19 15 16 20 15 16"},
      {"two lines are not synchronized",
       [](auto& f) {
         f.oVITC(1).OperatorClick();
         EXPECT_TRUE(f.upVitc1(5).Enabled() && f.fVITC2.Visible());
         EXPECT_FALSE(f.chSync.On() || f.chSync.Visible() || f.fVITC3.Visible());
       },
       "19 15 16 20 15 16"},
  });
}

}  // namespace
}  // namespace marlinset

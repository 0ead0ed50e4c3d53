// SPDX-License-Identifier: GPL-3.0-or-later
// VITC lines under an operator who does anything.
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <random>

#include "tests/panels/time_code_rig.h"

namespace marlinset {
namespace {

/// An operator who does anything anywhere, with a unit that loses or refuses some of it.
class Operator {
 public:
  explicit Operator(unsigned seed) : random_(seed), rig_({.ackTime = std::chrono::milliseconds{10}}) {
    rig_.tool.commands.MessageSent.Connect([this](const SentMessage& sent) {
      if (sent.command == std::string_view("cmdVitcLines") && sent.acknowledged == true) ++acknowledged_;
    });
  }

  /// One step, and what must hold after it.
  void Step() {
    const bool disturbed = Pick(6) == 0;
    const bool inModes = Pick(8) == 0;
    if (inModes) ChangeTheCircumstances();
    if (disturbed) rig_.pump.At(rig_.pump.Now() + 3, [this] { Act(); });
    const int acknowledged = acknowledged_;
    const int changed = Act();
    if (disturbed) rig_.pump.Pass(50);
    ExpectSound();
    if (!disturbed && changed != 0) ExpectInLine(changed);
    if (!disturbed && acknowledged_ > acknowledged) ExpectTheUnitToHoldTheLines();
  }
  int Acknowledged() const { return acknowledged_; }

 private:
  int Pick(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

  void ChangeTheCircumstances() {
    switch (Pick(5)) {
      case 0:
        return rig_.GoInteractive(Pick(4) != 0);
      case 1:
        return rig_.SetLocal(Pick(3) == 0);
      case 2:
        rig_.line.Unit().Faults().drop = 1;
        return;
      case 3:
        rig_.line.Unit().Faults().nak = 1;
        return;
      default:
        form_.comVS.OperatorSelect(Pick(form_.comVS.ListCount()));
    }
  }

  /// The first line of a set when it has changed, otherwise 0.
  int Act() {
    constexpr int kSpins[] = {1, 1, 1, 5, 5, 2, 3, 6, 7};
    SpinControl& spin = form_.upVitc1(kSpins[Pick(9)]);
    const int before = spin.Value();
    switch (Pick(10)) {
      case 0:
        form_.oVITC(Pick(3)).OperatorClick();
        return 0;
      case 1:
        form_.chDups.OperatorCheck(Pick(2) == 0);
        return 0;
      case 2:
        form_.chSync.OperatorCheck(Pick(3) != 0);
        return 0;
      case 3:
        spin.OperatorSpin(spin.Lowest() + Pick(spin.Highest() - spin.Lowest() + 1));
        break;
      default:
        spin.OperatorStep(Pick(2) == 0);
    }
    return spin.Value() != before && (spin.Index() == 1 || spin.Index() == 5) ? spin.Index() : 0;
  }

  void ExpectSound() {
    EXPECT_EQ(form_.oVITC(0).Value() + form_.oVITC(1).Value() + form_.oVITC(2).Value(), 1);
    EXPECT_FALSE(rig_.vars.VitcChanging);
    EXPECT_EQ(form_.upVitc1(5).Enabled(), !form_.chSync.On());
    for (const int line : FrmStart::kVitcLineIndices) {
      const SpinControl& spin = form_.upVitc1(line);
      EXPECT_EQ(spin.Value(), std::clamp(spin.Value(), spin.Lowest(), spin.Highest())) << line;
    }
  }

  void ExpectInLine(int first) {
    const int mode = form_.vitcModes.Selected();
    for (int behind = 1; behind <= mode; ++behind) {
      EXPECT_EQ(form_.upVitc1(first + behind).Value(), form_.upVitc1(first).Value() + behind) << first;
    }
    if (mode == 0 && first == 1 && form_.chSync.On() && form_.chDups.On()) {
      EXPECT_LT(form_.upVitc1(1).Value(), form_.upVitc1(5).Value());
    }
    if (mode == 0) {
      EXPECT_EQ(form_.tLineNumber(first).Text(), std::to_string(form_.upVitc1(first).Value()));
    } else {
      EXPECT_EQ(Lines(form_).find('('), std::string::npos) << Lines(form_);
    }
  }

  void ExpectTheUnitToHoldTheLines() {
    const std::optional<UnitVitcLines> held = rig_.line.Unit().Memory().VitcLines();
    ASSERT_TRUE(held.has_value());
    for (const int line : {1, 2, 3}) {
      EXPECT_EQ(At(held->line, line - 1), form_.upVitc1(line).Value());
      EXPECT_EQ(At(held->duplicate, line - 1), form_.chDups.On() ? form_.upVitc1(line + 4).Value() : 0);
    }
  }

  std::mt19937 random_;
  TimeCodeRig rig_;
  FrmStart& form_ = rig_.form;
  int acknowledged_ = 0;
};

TEST(TimeCodePanels, HoldTogetherWhateverTheOperatorDoes) {
  int acknowledged = 0;
  for (unsigned seed = 7340; seed < 7350; ++seed) {
    Operator someone(seed);
    for (int step = 0; step < 200; ++step) {
      SCOPED_TRACE(testing::Message() << "seed " << seed << ", step " << step);
      someone.Step();
      if (testing::Test::HasFailure()) return;
    }
    acknowledged += someone.Acknowledged();
  }
  EXPECT_GT(acknowledged, 200) << "most of it was said to the unit";
}

}  // namespace
}  // namespace marlinset

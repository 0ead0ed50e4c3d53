// SPDX-License-Identifier: GPL-3.0-or-later
#include "picture/geometry.h"

#include <random>

#include "tests/picture/picture_rig.h"

namespace marlinset {
namespace {

CellRect PlaceAfter(const std::string& actions, int row) {
  PictureRig rig;
  rig.Do(actions);
  const PicturePlan plan = PlanPicture(rig.form, rig.vars);
  return plan.Find(row) ? plan.Find(row)->place : CellRect{};
}

TEST(Geometry, WorkedByHand) {
  PictureRig rig;
  PicturePlan plan = PlanPicture(rig.form, rig.vars);
  EXPECT_EQ(plan.area, (CellRect{0, 32, 40, 72})) << "from the first row to the end of the tiny font's last";
  EXPECT_TRUE(plan.wide);
  EXPECT_EQ(plan.Find(2), nullptr) << "the operating mode hides it";
  rig.Do("choose comVS \"NTSC\"");
  plan = PlanPicture(rig.form, rig.vars);
  EXPECT_EQ(plan.area, (CellRect{0, 32, 32, 28}));
  EXPECT_FALSE(plan.wide);
  EXPECT_EQ(PlaceAfter("", 0), (CellRect{2, 40, 11, 4}));
  EXPECT_EQ(PlaceAfter("spin udVer(0) 43; check chDblSize(0) 1", 0), (CellRect{2, 40, 11, 8}));
  EXPECT_EQ(PlaceAfter("choose ComWin(3) #1; spin udVer(0) 43; check chField(0) 1; check chSym(0) 1", 0),
            (CellRect{2, 42, 15, 2}));
  EXPECT_EQ(PlaceAfter("spin udVer(0) 33; choose ComWin(3) #2", 0), (CellRect{2, 37, 11, 1}));
  EXPECT_EQ(PlaceAfter("type tWinMess \"Take é\"; spin udVer(13) 48; spin udHor(13) 5", 13),
            (CellRect{5, 48, 6, 4}));
}

/// What an operator may do to the windows, by a number. The unit hears of a new standard, and of a message
/// that moves its window, only with the next whole send.
std::string AnyEdit(std::mt19937& dice) {
  const auto any = [&dice](int end) { return static_cast<int>(dice() % static_cast<unsigned>(end)); };
  constexpr int kWindows = 20;
  const std::string row = "(" + std::to_string(any(kWindows)) + ") ";
  const char* const boxes[] = {"chOnOff", "chSlate", "chDblSize", "chSym", "chField"};
  switch (any(9)) {
    case 0:
    case 1:
      return "spin udVer" + row + std::to_string(30 + any(80));
    case 2:
    case 3:
      return "spin udHor" + row + std::to_string(any(40));
    case 4:
      return "choose ComWin(3) #" + std::to_string(any(3));
    case 5:
      return "type tWinMess \"" + std::string(static_cast<std::size_t>(any(36)), 'w') + "\"; click bSConfig";
    case 6:
      return "choose comVS #" + std::to_string(any(4)) + "; click bSConfig";
    default:
      return "check " + std::string(boxes[any(5)]) + row + std::to_string(any(2));
  }
}

/// The windows as the unit holds them, as far as the picture shows them.
void ExpectAsInTheUnit(const PictureRig& rig) {
  const UnitMemory& unit = rig.line.Unit().Memory();
  const auto held = unit.Windows();
  const int step = rig.form.udVer(0).Increment();
  for (const PlannedWindow& window : PlanPicture(rig.form, rig.vars).windows) {
    const CharWindowRec& record = rig.vars.CharWindows[static_cast<std::size_t>(window.row)];
    SCOPED_TRACE(record.Name);
    const UnitWindow& shown = held.at(record.Number);
    const bool asLongAsItsText = record.Name == "Text" && unit.Message() && !unit.Message()->empty();
    const int length =
        shown.length + (asLongAsItsText ? static_cast<int>(unit.Message()->size()) - record.Length : 0);
    const CellRect place{shown.position, shown.row * step, length, step * (shown.doubleHeight ? 2 : 1)};
    EXPECT_EQ(window.place, place);
    EXPECT_EQ(window.on, shown.on);
    EXPECT_EQ(window.slate, shown.slate);
  }
}

TEST(Geometry, AgreesWithTheUnitAfterEverySendAndEdit) {
  for (unsigned storm = 1; storm <= 6; ++storm) {
    PictureRig rig;
    rig.vars.OperatingMode = storm % 2 ? "KeyKode Accuracy Test" : kDefaultOperatingMode;
    rig.tool.panels.SetDefaults();
    rig.dialogs.onShow = [](const MessageBox& box) {
      return box.buttons == BoxButtons::kYesNo ? BoxAnswer::kYes : BoxAnswer::kOk;
    };
    rig.Do("click bSConfig");
    rig.GoInteractive();
    std::mt19937 dice(storm);
    for (int edit = 0; edit < 60 && !testing::Test::HasFailure(); ++edit) {
      const std::string actions = AnyEdit(dice);
      SCOPED_TRACE("storm " + std::to_string(storm) + ", " + actions);
      rig.Do(actions);
      ExpectAsInTheUnit(rig);
    }
  }
}

}  // namespace
}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "picture/remarks.h"

#include "picture/geometry.h"
#include "tests/picture/picture_rig.h"

namespace marlinset {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

/// The controls of a rule's remarks: "chOnOff(0) chOnOff(1), chOnOff(0) chOnOff(3)".
std::string ControlsOf(const std::vector<Remark>& remarks, const std::string& rule,
                       const std::string& severity) {
  std::string all;
  for (const Remark& remark : remarks) {
    if (remark.rule != rule) continue;
    EXPECT_EQ(NameOf(remark.severity), severity);
    EXPECT_TRUE(remark.text.ends_with('.')) << remark.text;
    if (!all.empty()) all += ",";
    for (const std::string& control : remark.controls) {
      all += (all.empty() ? "" : " ") + control;
    }
  }
  return all;
}

TEST(Remarks, EachRuleSpeaksWhereItAppliesAndIsSilentElsewhere) {
  EXPECT_THAT(RemarksOf(PictureRig().form, PictureRig().vars), IsEmpty());
  for (const TableRow& row : TableOf("remarks")) {
    SCOPED_TRACE(row[0] + ": " + row[2]);
    PictureRig rig;
    rig.Do(row[2]);
    const auto remarks = RemarksOf(rig.form, rig.vars);
    EXPECT_EQ(ControlsOf(remarks, row[0], row[1]), row[3]);
    const bool savable = row[0] != "not-savable" || row[3].empty();
    EXPECT_EQ(ControlsOf(remarks, "not-savable", "warning").empty(), savable);
  }
}

TEST(Remarks, TellWhatToDo) {
  const std::pair<const char*, const char*> texts[] = {
      {"row CharWindows 0 \"Left\" 30", "set Horizontal to 29 or less."},
      {"row CharWindows 0 \"Left\" 30; row CharWindows 0 \"Length\" 41", "is 41 columns wide"},
      {"choose ComWin(3) #2; choose comVS \"1080i/60\"; spin udVer(0) 103; check chDblSize(0) 1",
       "set Vertical to 102 or less."},
      {"spin udVer(0) 43", "instead of 43, because the rows of this font size begin at 32 and are 4 apart"},
      {"row SystemParameters 3 \"Value\" 256", "is 256, but a file gives back 16"},
      {"row SystemParameters 3 \"Value\" -1", "cannot be opened again"},
      {"type tWinMess \"\\u0007\"", "the control character 7"}};
  for (const auto& [actions, text] : texts) {
    PictureRig rig;
    rig.Do(actions);
    const auto remarks = RemarksOf(rig.form, rig.vars);
    ASSERT_FALSE(remarks.empty()) << actions;
    EXPECT_THAT(remarks[0].text, HasSubstr(text));
  }
}

/// A reference database that is of little use, and one that was never read, say so and do no harm.
TEST(Remarks, BearWithPoorReferenceData) {
  const std::pair<std::function<void(Variables&)>, const char*> faults[] = {
      {[](Variables& vars) { vars.CharMaxPositions.clear(); }, "no positions"},
      {[](Variables& vars) {
         std::swap(vars.CharMaxPositions[2].MinVertPosn, vars.CharMaxPositions[2].MaxVertPosn);
       },
       "vertical positions turned round"},
      {[](Variables& vars) { vars.CharMaxPositions[1].MaxHorPosn = 1; }, "horizontal positions turned round"},
      {[](Variables& vars) { vars = {}; }, "no positions of character windows for 1080i/60"}};
  for (const auto& [spoil, trouble] : faults) {
    PictureRig rig;
    rig.Do("check chOnOff(1) 1; row CharWindows 0 \"Left\" 90");
    spoil(rig.vars);
    EXPECT_THAT(PlanPicture(rig.form, rig.vars).trouble, HasSubstr(trouble));
    EXPECT_EQ(ControlsOf(RemarksOf(rig.form, rig.vars), "outside", ""), "");
    EXPECT_NO_THROW(MoveLimitsOf(rig.form, rig.vars, 0));
  }
}

}  // namespace
}  // namespace marlinset

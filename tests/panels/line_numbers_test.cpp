// SPDX-License-Identifier: GPL-3.0-or-later
#include <optional>

#include "tests/panels/panel_rig.h"

namespace marlinset {
namespace {

/// The numbers of the lines and their duplicates; an echo that differs stands in brackets.
std::string Lines(const FrmStart& form) {
  std::string text;
  for (const int line : FrmStart::kVitcLineIndices) {
    const std::string number = std::to_string(form.upVitc1(line).Value());
    const std::string& shown = form.tLineNumber(line).Text();
    text += (text.empty() ? "" : " ") + number + (shown == number ? "" : "(" + shown + ")");
  }
  return text;
}

TEST(LineNumbers, MoveByTheRulesOfTheirMode) {
  std::optional<PanelRig> rig(std::in_place);
  for (const TableRow& row : TableOf("vitc_lines")) {
    SCOPED_TRACE(row[0]);
    const bool fresh = row[1].starts_with("new; ");
    if (fresh) rig.emplace();
    rig->Do(fresh ? row[1].substr(5) : row[1]);
    EXPECT_EQ(Lines(rig->form), row[2]);
  }
}

TEST(LineNumbers, KeepInsideTheirLimits) {
  PanelRig rig;
  FrmStart& f = rig.form;
  rig.Do("click oVITC(2)");
  f.upVitc1(3).SetMin(13);
  f.upVitc1(1).OperatorSpin(19);
  EXPECT_EQ(Lines(f), "11 12 13 14 15 16") << "room is made as far as needed";
  f.upVitc1(1).SetMin(10);
  EXPECT_EQ(Lines(f), "10 12 13 14 15 16") << "limits pull without rules";
}

}  // namespace
}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include <cstdlib>
#include <string_view>

#include "picture/remark_rules.h"

namespace marlinset {
namespace {

struct VitcLine {
  int index;   ///< of upVitc1
  int number;  ///< of the line that it is, or duplicates
  std::string_view name;
};
constexpr VitcLine kLines[] = {
    {1, 1, "the 1st VITC line"},
    {2, 2, "the 2nd VITC line"},
    {3, 3, "the 3rd VITC line"},
    {5, 1, "the duplicate of the 1st VITC line"},
    {6, 2, "the duplicate of the 2nd VITC line"},
    {7, 3, "the duplicate of the 3rd VITC line"},
};

struct LineInUse {
  const SpinControl& spin;
  std::string_view name;

  /// The line as it goes to the unit.
  int Number() const { return std::abs(spin.Value()); }
};

std::vector<LineInUse> LinesInUse(const FrmStart& form) {
  std::vector<LineInUse> lines;
  const int count = form.vitcModes.Selected() + 1;
  for (const VitcLine& line : kLines) {
    const bool duplicate = line.index != line.number;
    if (line.number > count || (duplicate && !form.chDups.On())) continue;
    lines.push_back({form.upVitc1(line.index), line.name});
  }
  return lines;
}

}  // namespace

void FindLinesTwice(const Setup& setup, Findings& found) {
  if (!setup.form.chVITC.On()) return;
  const std::vector<LineInUse> lines = LinesInUse(setup.form);
  for (auto first = lines.begin(); first != lines.end(); ++first) {
    for (auto second = first + 1; second != lines.end(); ++second) {
      if (first->Number() != second->Number()) continue;
      found.push_back({{first->spin.FullName(), second->spin.FullName()},
                       "Line " + std::to_string(first->Number()) + " carries both " +
                           std::string(first->name) + " and " + std::string(second->name) +
                           ": choose another line for one of them."});
    }
  }
}

void FindFlagLine(const Setup& setup, Findings& found) {
  const FrmStart& form = setup.form;
  if (!form.chVITC.On() || !form.chEnable.On()) return;
  const int flag = std::abs(form.UpDown1.Value());
  Finding finding{{form.UpDown1.FullName()}, "The white flag lies on line " + std::to_string(flag) + " as "};
  for (const LineInUse& line : LinesInUse(form)) {
    if (line.Number() != flag) continue;
    if (finding.controls.size() > 1) finding.text += " and ";
    finding.controls.push_back(line.spin.FullName());
    finding.text += line.name;
  }
  if (finding.controls.size() == 1) return;
  finding.text += finding.controls.size() == 2 ? " does" : " do";
  finding.text += ": choose another line for it.";
  found.push_back(std::move(finding));
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "picture/remarks.h"

#include <algorithm>
#include <utility>

#include "picture/remark_rules.h"

namespace marlinset {
namespace {

struct Rule {
  std::string_view name;
  Severity severity;
  void (*look)(const Setup& setup, Findings& found);
};

constexpr Rule kRules[] = {
    {"overlap", Severity::kWarning, FindOverlaps},
    {"outside", Severity::kWarning, FindOutside},
    {"row-moved", Severity::kNote, FindMovedRows},
    {"line-twice", Severity::kWarning, FindLinesTwice},
    {"flag-line", Severity::kWarning, FindFlagLine},
    {"text-empty", Severity::kNote, FindEmptyText},
    {"text-cut", Severity::kWarning, FindCutText},
    {"text-characters", Severity::kWarning, FindStrangeCharacters},
    {"slate-empty", Severity::kNote, FindEmptySlate},
    {"number-lost", Severity::kWarning, FindLostNumbers},
    {"not-savable", Severity::kWarning, FindUnsavable},
};

}  // namespace

std::string_view NameOf(Severity severity) {
  return severity == Severity::kWarning ? "warning" : "note";
}

std::vector<Remark> RemarksOf(const FrmStart& form, const Variables& variables) {
  const Setup setup{form, variables, PlanPicture(form, variables)};
  std::vector<Remark> remarks;
  for (const Rule& rule : kRules) {
    Findings found;
    rule.look(setup, found);
    for (Finding& finding : found) {
      remarks.push_back({rule.name, rule.severity, std::move(finding.controls), std::move(finding.text)});
    }
  }
  return remarks;
}

std::string RemarkCount(const std::vector<Remark>& remarks) {
  const auto warnings = std::ranges::count(remarks, Severity::kWarning, &Remark::severity);
  if (warnings == 0) return {};
  return std::to_string(warnings) + (warnings == 1 ? " remark" : " remarks");
}

}  // namespace marlinset

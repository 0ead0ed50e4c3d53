// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace marlinset {

class FrmStart;
struct Variables;

/// How bad it is.
enum class Severity {
  kNote,     ///< may be meant so; does not count
  kWarning,  ///< hardly meant so: the operator is told how many there are
};
/// "note", "warning".
std::string_view NameOf(Severity severity);

/// What a careful colleague would point out before a setup goes on air.
struct Remark {
  std::string_view rule;  ///< its name in scripts: "overlap"
  Severity severity;
  std::vector<std::string> controls;  ///< by full name: "chOnOff(0)"; the first is where to begin
  std::string text;                   ///< one sentence: what is wrong, and what to do
};

/// The remarks on the present panels: rule by rule, within a rule by rows. Changes nothing; it can be asked
/// at any time, also while a reference database lacks rows.
std::vector<Remark> RemarksOf(const FrmStart& form, const Variables& variables);

/// "1 remark", "2 remarks"; empty without a warning, since notes do not count.
std::string RemarkCount(const std::vector<Remark>& remarks);

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "picture/remarks.h"

namespace marlinset {

class ConfigurationFile;
class FrmStart;
struct Variables;

/// The remarks as lRemarks shows them. They are worked out when somebody asks: edits cost nothing where
/// nobody looks.
class RemarkList {
 public:
  RemarkList(FrmStart& form, const Variables& variables, const ConfigurationFile& file);

  /// Works them out anew and shows their count in lRemarks. While a file is being loaded the panels hold
  /// parts of two setups: returns false then, and all stays as it is.
  bool Refresh();
  /// As of the last Refresh.
  const std::vector<Remark>& Remarks() const { return remarks_; }

 private:
  FrmStart& form_;
  const Variables& vars_;
  const ConfigurationFile& file_;
  std::vector<Remark> remarks_;
};

}  // namespace marlinset

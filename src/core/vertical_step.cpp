// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/vertical_step.h"

#include "core/frm_start.h"
#include "core/variables.h"

namespace marlinset {

void SetVerticalSteps(const Variables& variables, FrmStart& form) {
  const std::string& size = form.ComWin(FrmStart::kFontSize).Text();
  const int step = size.starts_with('L') ? 4 : size.starts_with('S') ? 2 : 1;
  const int rows = static_cast<int>(variables.CharWindows.size());
  for (int row = 0; row < rows; ++row) {
    if (form.udVer.Has(row)) form.udVer(row).SetIncrement(step);
  }
}

}  // namespace marlinset

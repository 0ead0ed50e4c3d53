// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

class FrmStart;
struct Variables;

/// Sets the step of each vertical spin to one row of characters of the selected font size: 4 units
/// for sizes that begin with "L", 2 for "S", otherwise 1.
void SetVerticalSteps(const Variables& variables, FrmStart& form);

}  // namespace marlinset

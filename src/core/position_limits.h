// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

class FrmStart;
struct CharMaxPosRec;
struct Variables;

/// Whether a row offers its font size to the operator: only rows for the hardware that the tool serves do,
/// 1000 and 200.
bool IsOffered(const CharMaxPosRec& limits);

/// Index of the row that limits window positions: the last one of the selected standard and font size, or,
/// where there is none, the one that has limited them so far, which may lie outside the array.
int PositionLimitsRow(const FrmStart& form, const Variables& variables);

}  // namespace marlinset

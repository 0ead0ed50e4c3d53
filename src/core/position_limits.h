// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

class FrmStart;
struct CharMaxPosRec;
struct Variables;

/// Whether a row makes its font size one that can be chosen: only those of the hardware that the tool serves
/// do, 1000 and 200.
bool IsOffered(const CharMaxPosRec& limits);

/// Index of the row that limits window positions: the last one of the selected standard and font size, or,
/// where there is none, the one that has limited them so far. The array may end before that.
int PositionLimitsRow(const FrmStart& form, const Variables& variables);

}  // namespace marlinset

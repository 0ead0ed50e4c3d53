// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace marlinset {

class ComboBox;
class FrmStart;
struct Variables;

/// Fills the panels with a small configuration that needs no database; no two of its values are equal:
///
///   parameters  1/5 (internal), 2/7 'Display brightness' = 300, 3/2 'Genlock phase' = -1, 25/1 (internal)
///   windows     0 number 1 'Video Timecode', 1 number 3 'Keycode' (hidden), 2 number 14 'Text'
///   standard    "1080i/60", code 4; "525i/60" and "720p/60" can be selected, and "2160p", which has no code
///   VITC        two lines: 14, 15, 16, duplicates 34, 35, 36; on; white flag on line 21
///   characters  size "Small (16 lines/field)", code 2; style code 3; the inserter's menu shows On
///   slate       300 frames, mode code 4, no preview; message "take 3 é"
void FillSamplePanels(Variables& variables, FrmStart& form);

/// Selects the entry with this text; adds it if the list lacks it.
void SelectText(ComboBox& box, const std::string& text);

}  // namespace marlinset

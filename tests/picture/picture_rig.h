// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/panels/panel_rig.h"

namespace marlinset {

/// A tool whose limits of window positions are known: rows 32 to 92 of the large font and columns 2 to 40 in
/// "1080i/60". Row 0 is "Video Timecode", on, at row 40 and column 2, 11 columns wide.
struct PictureRig : PanelRig {
  PictureRig() {
    vars.CharMaxPositions = {{"Large (32 lines/field)", "1080i/60", 100, 4, 240, 0, 80},
                             {"Large (32 lines/field)", "1080i/60", 1000, 32, 92, 2, 40},
                             {"Small (16 lines/field)", "1080i/60", 1000, 36, 100, 2, 40},
                             {"Tiny (8 lines/field)", "1080i/60", 1000, 37, 103, 2, 40},
                             {"Large (32 lines/field)", "NTSC", 200, 32, 56, 0, 32},
                             {"Large (32 lines/field)", "720p/60", 1000, 32, 300, 0, 40}};
    Do("choose comVS \"1080i/60\"");
    tool.panels.SetDefaults();
    Do("check chField(0) 0; check chSym(0) 0; spin udVer(0) 40; spin udHor(0) 2; spin UpDown1 20");
  }
};

}  // namespace marlinset

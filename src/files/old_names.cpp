// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/old_names.h"

#include <string_view>

#include "base/text.h"
#include "controls/control.h"

namespace marlinset {
namespace {

struct Renamed {
  std::string_view before;
  std::string_view now;
};

constexpr Renamed kModes[] = {
    {"HD Bi-Phase Accuracy Test", "Bi-Phase Accuracy Test"},
    {"HD KeyKode Accuracy Test", "KeyKode Accuracy Test"},
    {"HD Multi-Camera Episodic", "Multi-Camera Episodic"},
    {"HD Test", "Test"},
    {"HD Pre-stripe Timecode", "Pre-stripe Timecode"},
};

constexpr Renamed kCodes[] = {
    {"7340 Video LTC Reader Time", "Video LTC Reader Time"},
    {"7340 Video LTC Reader User Bits", "Video LTC Reader User Bits"},
    {"7340 Video Recorder Time", "Output Video Recorder Time"},
    {"7340 Video Recorder User Bits", "Video Recorder User Bits"},
};

constexpr std::string_view kRecorderTime = "Video Recorder Time";

struct RenamedInBox {
  std::string_view box;
  int index;
  std::string_view now;
};

constexpr RenamedInBox kRecorderTimes[] = {
    {"COMTB", 1, "Video Recorder Time"},
    {"COMTB", 2, "Output Video Recorder Time"},
    {"COMUB", 2, "Input Video Recorder Time"},
};

}  // namespace

std::string TranslateModeName(const std::string& text) {
  for (const Renamed& mode : kModes) {
    if (text == mode.before) return std::string(mode.now);
  }
  return text;
}

std::string TranslateCodeName(const std::string& text, const Control* box) {
  for (const Renamed& code : kCodes) {
    if (text == code.before) return std::string(code.now);
  }
  if (text != kRecorderTime) return text;
  for (const RenamedInBox& code : kRecorderTimes) {
    if (box && UpperOf(box->Name()) == code.box && box->Index() == code.index) return std::string(code.now);
  }
  return {};
}

}  // namespace marlinset

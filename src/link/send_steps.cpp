// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/send_steps.h"

#include "core/frm_start.h"

namespace marlinset {
namespace {

using enum CommandId;

bool VitcOn(const FrmStart& form) {
  return form.chVITC.On();
}
bool WhiteFlagOn(const FrmStart& form) {
  return form.chEnable.On();
}
bool CharOnTicked(const FrmStart& form) {
  return form.mnuCharOn.Checked();
}
bool CharOffTicked(const FrmStart& form) {
  return form.mnuCharOff.Checked();
}
bool PreviewOn(const FrmStart& form) {
  return form.chPrev.On();
}
bool ModelQ(const FrmStart& form) {
  return form.ModelIsQ();
}

// Controls that more than one name stands for.
constexpr ControlName kVitcModes[] = {{"oVITC", 0}, {"oVITC", 1}, {"oVITC", 2}};
constexpr ControlName kVitcLineControls[] = {{"tLineNumber", 1}, {"tLineNumber", 2}, {"tLineNumber", 3},
                                             {"tLineNumber", 5}, {"tLineNumber", 6}, {"tLineNumber", 7},
                                             {"upVitc1", 1},     {"upVitc1", 2},     {"upVitc1", 3},
                                             {"upVitc1", 5},     {"upVitc1", 6},     {"upVitc1", 7}};

}  // namespace

std::span<const SendStep> StepsBeforeWindows() {
  static constexpr SendStep kSteps[] = {
      {kVitcSource, kVitcModes},
      {kAssignTC, {"comTB", 0}},
      {kAssignUB, {"ComUB", 0}},
      {kAssignAT},
      {kAssignAU},
      {kAssignLI},
      {kAssignLK},
      {kAssignLTB, {"comTB", 1}},
      {kAssignLUB, {"ComUB", 1}},
      {kVitcOn, {"chVITC"}, VitcOn, kVitcOff},
      {kWhiteFlagOn, {"chEnable"}, WhiteFlagOn, kWhiteFlagOff},
      {kWhiteFlagLine, {"tLineNumber", FrmStart::kWhiteFlagEcho}, WhiteFlagOn},
      {kAssignVTB, {"comTB", 2}},
      {kAssignVUB, {"ComUB", 2}},
      {kAssignV2, {"comTB", 3}},
      {kAssignV3TB, {"comTB", 4}},
      {kAssignV3UB, {"ComUB", 4}},
      {kVitcLines, kVitcLineControls},
      {kCharStyle, {"ComWin", 2}},
      {kCharOffForSize, {}, CharOnTicked},
      {kCharSize, {"ComWin", 3}},
      {kCharOnForSize, {}, CharOnTicked},
      {kSlateDuration, {"tLineNumber", FrmStart::kSlateDurationEcho}},
      {kSlateMode, {"ComWin", 1}},
      {kSdiProgramOut, {"ComWin", 4}, ModelQ},
      {kDownConverter, {"ComWin", 0}},
      {kDownConverterControl, {"ComWin", 0}, ModelQ},
  };
  return kSteps;
}

std::span<const SendStep> StepsAfterWindows() {
  static constexpr SendStep kSteps[] = {
      {kSlatePreview, {}, PreviewOn, kSlateMode},
      {kCharOff, {}, CharOffTicked},
      {kCharOn, {}, CharOnTicked},
  };
  return kSteps;
}

}  // namespace marlinset

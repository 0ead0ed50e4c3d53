// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/send_steps.h"

#include "core/choices.h"

namespace marlinset {
namespace {

using enum CommandId;

bool VitcOn(const FrmStart& form, bool /*modelQ*/) {
  return form.chVITC.On();
}
bool WhiteFlagOn(const FrmStart& form, bool /*modelQ*/) {
  return form.chEnable.On();
}
bool CharOnTicked(const FrmStart& form, bool /*modelQ*/) {
  return form.mnuCharOn.Checked();
}
bool CharOffTicked(const FrmStart& form, bool /*modelQ*/) {
  return form.mnuCharOff.Checked();
}
bool PreviewOn(const FrmStart& form, bool /*modelQ*/) {
  return form.chPrev.On();
}
bool ModelQ(const FrmStart& /*form*/, bool modelQ) {
  return modelQ;
}

constexpr Marks BoxMark(ChoiceId id) {
  return {ChoiceOf(id).control, ChoiceOf(id).index};
}

/// The choice that a step's command carries, if any.
std::optional<ChoiceId> ChoiceIn(const SendStep& step) {
  return CommandOf(step.command).data.choice;
}

// Marks that consist of several controls.
constexpr ControlName kVitcModes[] = {{"oVITC", 0}, {"oVITC", 1}, {"oVITC", 2}};
constexpr ControlName kVitcLineControls[] = {{"tLineNumber", 1}, {"tLineNumber", 2}, {"tLineNumber", 3},
                                             {"tLineNumber", 5}, {"tLineNumber", 6}, {"tLineNumber", 7},
                                             {"upVitc1", 1},     {"upVitc1", 2},     {"upVitc1", 3},
                                             {"upVitc1", 5},     {"upVitc1", 6},     {"upVitc1", 7}};

}  // namespace

Marks MarksOf(const SendStep& step) {
  const std::optional<ChoiceId> choice = ChoiceIn(step);
  return choice ? BoxMark(*choice) : step.marks;
}

std::optional<CommandId> CommandIn(const SendStep& step, const FrmStart& form, bool modelQ) {
  const std::optional<ChoiceId> choice = ChoiceIn(step);
  const bool holds =
      choice ? UnitHas(ChoiceOf(*choice), modelQ) : !step.condition || step.condition(form, modelQ);
  return holds ? step.command : step.otherwise;
}

std::span<const SendStep> StepsBeforeWindows() {
  static constexpr SendStep kSteps[] = {
      {kVitcSource, kVitcModes},
      {kAssignTC},
      {kAssignUB},
      {kAssignAT},
      {kAssignAU},
      {kAssignLI},
      {kAssignLK},
      {kAssignLTB},
      {kAssignLUB},
      {kVitcOn, {"chVITC"}, VitcOn, kVitcOff},
      {kWhiteFlagOn, {"chEnable"}, WhiteFlagOn, kWhiteFlagOff},
      {kWhiteFlagLine, {"tLineNumber", FrmStart::kWhiteFlagEcho}, WhiteFlagOn},
      {kAssignVTB},
      {kAssignVUB},
      {kAssignV2},
      {kAssignV3TB},
      {kAssignV3UB},
      {kVitcLines, kVitcLineControls},
      {kCharStyle},
      {kCharOffForSize, {}, CharOnTicked},
      {kCharSize},
      {kCharOnForSize, {}, CharOnTicked},
      {kSlateDuration, {"tLineNumber", FrmStart::kSlateDurationEcho}},
      {kSlateMode},
      {kSdiProgramOut},
      {kDownConverter},
      {kDownConverterControl, BoxMark(ChoiceId::kAspectRatio), ModelQ},
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

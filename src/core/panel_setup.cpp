// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/panel_setup.h"

#include <cstdlib>
#include <string_view>

#include "base/program_title.h"
#include "core/choices.h"
#include "core/frm_start.h"
#include "core/position_limits.h"
#include "core/variables.h"
#include "core/vertical_step.h"
#include "core/vitc_frames.h"

namespace marlinset {
namespace {

/// The filter that both filter boxes select at start.
constexpr int kStartFilter = 9;
constexpr int kLongestSlate = 200;

using enum ChoiceId;

/// The box that rows with this field name feed. Field names without a box are ignored.
struct RoutingBox {
  std::string_view fieldName;
  ChoiceId choice;
};
constexpr RoutingBox kRoutingBoxes[] = {
    {"VTRT", kInputTimeBits},  {"VTRU", kInputUserBits},   {"LTC1GT", kLtcTimeBits},
    {"LTC1GU", kLtcUserBits},  {"VITC1T", kVitc1TimeBits}, {"VITC1U", kVitc1UserBits},
    {"VITC2", kVitc2TimeBits}, {"VITC3T", kVitc3TimeBits}, {"VITC3U", kVitc3UserBits}};

/// The choices of the Windows panel in the order in which start and New set them.
constexpr ChoiceId kWindowChoices[] = {kCharStyle, kFontSize, kSlateMode, kSdiProgramOut};

void SelectFirst(ComboBox& box) {
  if (box.ListCount() >= 1) box.SetListIndex(0);
}

void AddOffered(ComboBox& box, const std::vector<VocabularyEntry>& entries) {
  if (entries.empty()) throw SubscriptOutOfRange();
  for (const VocabularyEntry& entry : entries) {
    if (entry.offered) box.AddItem(std::string(entry.description));
  }
}

void SetLimits(SpinControl& spin, int lowest, int highest) {
  spin.SetMax(lowest);
  spin.SetMin(highest);
}

}  // namespace

PanelSetup::PanelSetup(Variables& variables, FrmStart& form)
    : vars_(variables), form_(form), echoes_(variables, form) {}

void PanelSetup::InitPanels() {
  for (const int mode : form_.oVITC.Indices()) form_.oVITC(mode).SetEnabled(false);
  form_.comVS.Clear();
  AddOffered(form_.comVS, EntriesOf<&Variables::VideoStandards>(vars_));
  ClearRouting();
  for (const int line : {1, 2, 3}) form_.upVitc1(line).SetValue(10);
  FillRouting();
  InitLines();
  NoteVitcDefaults();
  for (const ChoiceId choice : kWindowChoices) Refill(choice);
  FillProcessModes();
  FillFilters();
  ResetSlateAndMessage();
  Refill(kAspectRatio);
  BuildWindowRows();
  BuildParameterRows();
  form_.oView(4).SetVisible(false);
  ArrangeWindowRows();
  form_.oView(0).SetValue(true);
  SelectFirst(form_.comVS);
  SetDefaults();
}

void PanelSetup::SetDefaults() {
  ClearRouting();
  FillRouting();
  SetLineLimits(LineValues::kDefault);
  NoteVitcDefaults();
  for (const ChoiceId choice : kWindowChoices) {
    if (ChoiceOf(choice).onNew == OnNew::kFirst) Refill(choice);
    if (choice == kFontSize) FillFontSizes();
  }
  ResetSlateAndMessage();
  Refill(kAspectRatio);
  FindCharMaxRow();
  for (int row = 1; row <= UBound(vars_.CharWindows); ++row) DefaultWindow(row);
  DefaultWindow(0);
  form_.oView(4).SetVisible(false);
  ArrangeWindowRows();
  form_.bClass.Press();
  SetVerticalSteps(vars_, form_);
  form_.SetCaption(std::string(kProgramTitle));
}

void PanelSetup::Refill(ChoiceId choice) {
  ComboBox& box = BoxOf(form_, choice);
  box.Clear();
  AddOffered(box, ChoiceOf(choice).vocabulary(vars_));
  SelectFirst(box);
}

void PanelSetup::ClearRouting() {
  for (const int mode : form_.oVITC.Indices()) form_.oVITC(mode).SetEnabled(false);
  for (const int i : form_.comTB.Indices()) {
    form_.comTB(i).Clear();
    form_.ComUB(i).Clear();
  }
}

void PanelSetup::FillRouting() {
  for (int i = 0; i <= UBound(vars_.TimeCodeAssignments); ++i) {
    const TimeCodeAssignmentRec& assignment = At(vars_.TimeCodeAssignments, i);
    if (assignment.Name != vars_.OperatingMode || assignment.Ignore1) continue;
    OptionButton& mode = form_.oVITC(assignment.VITCMode - 1);
    mode.SetEnabled(true);
    mode.SetValue(true);
    FillRoutingBox(assignment);
  }
  SelectRoutingDefaults();
  form_.chVITC.SetValue(1);
  form_.chDups.SetValue(0);
  form_.chSync.SetValue(0);
  form_.chEnable.SetValue(0);
}

void PanelSetup::FillRoutingBox(const TimeCodeAssignmentRec& assignment) {
  for (const RoutingBox& row : kRoutingBoxes) {
    if (row.fieldName != assignment.FieldName) continue;
    ComboBox& box = BoxOf(form_, row.choice);
    for (int i = 0; i <= UBound(vars_.CodeSources); ++i) {
      const CodeSourceRec& source = At(vars_.CodeSources, i);
      if (source.FieldValue == assignment.FieldValue) box.AddItem(source.Description);
    }
  }
}

void PanelSetup::SelectRoutingDefaults() {
  for (const int mode : form_.oVITC.Indices()) {
    if (!form_.oVITC(mode).Value()) continue;
    for (const int j : form_.comTB.Indices()) {
      SelectFirst(form_.comTB(j));
      SelectFirst(form_.ComUB(j));
    }
    ShowVitcFrames(form_, mode);
  }
}

/// Sets the line spins at first start, from the first standard and its namesakes.
void PanelSetup::InitLines() {
  const std::string first = At(vars_.VideoStandards, 0).Description;
  for (const VideoStandardRec& standard : vars_.VideoStandards) {
    if (standard.Description != first) continue;
    const auto set = [](SpinControl& spin, int lowest, int highest, int value) {
      SetLimits(spin, lowest, highest);
      spin.SetValue(value);
    };
    set(form_.UpDown1, standard.Vitc1Min, standard.Vitc1Max, standard.Vitc1Default1);
    for (const int line : {1, 5}) {
      set(form_.upVitc1(line), standard.Vitc1Min, standard.Vitc1Max, standard.Vitc1Default2);
    }
    for (const int line : {2, 6}) {
      set(form_.upVitc1(line), standard.Vitc2Line2Min, standard.Vitc2Line2Max, standard.Vitc2Line2Default1);
    }
    for (const int line : {3, 7}) {
      set(form_.upVitc1(line), standard.Vitc3Min, standard.Vitc3Max, standard.Vitc3Default1);
    }
  }
  echoes_.ShowVitcLines();
}

void PanelSetup::SetLineLimits(LineValues values) {
  const bool toDefaults = values == LineValues::kDefault;
  for (int i = 0; i <= UBound(vars_.VideoStandards); ++i) {
    const VideoStandardRec& standard = At(vars_.VideoStandards, i);
    if (standard.Description != form_.comVS.Text()) continue;
    SetLimits(form_.UpDown1, standard.Vitc1Min, standard.Vitc1Max);
    if (toDefaults) form_.UpDown1.SetValue(standard.Vitc1Default1);
    for (const int line : {1, 5}) SetLimits(form_.upVitc1(line), standard.Vitc1Min, standard.Vitc1Max);
    for (const int line : {2, 6}) {
      SetLimits(form_.upVitc1(line), standard.Vitc2Line2Min, standard.Vitc2Line2Max);
    }
    for (const int line : {3, 7}) SetLimits(form_.upVitc1(line), standard.Vitc3Min, standard.Vitc3Max);
    if (!toDefaults) continue;
    form_.upVitc1(5).SetValue(standard.Vitc1Default2);
    form_.upVitc1(1).SetValue(standard.Vitc1Default2);
  }
}

void PanelSetup::NoteVitcDefaults() {
  std::size_t i = 0;
  for (const int line : {1, 5, 2, 6, 3, 7}) {
    vars_.VitcLineDefault[i++] = std::abs(form_.upVitc1(line).Value());
  }
}

void PanelSetup::FillProcessModes() {
  ComboBox& box = BoxOf(form_, kProcessingMode);
  box.Clear();
  for (int i = 0; i <= UBound(vars_.DownConverterProcessModes); ++i) {
    const DownConvProcessRec& mode = At(vars_.DownConverterProcessModes, i);
    if (mode.VideoStandard == form_.comVS.Text() && !mode.Ignore1) box.AddItem(mode.Description);
  }
  // The operator did not choose this mode: a new standard alone sends nothing to the unit.
  if (box.ListCount() >= 1) box.Preselect(0);
}

void PanelSetup::FillFilters() {
  constexpr ChoiceId kFilters[] = {kVerticalFilter, kHorizontalFilter};
  for (const ChoiceId filter : kFilters) AddOffered(BoxOf(form_, filter), ChoiceOf(filter).vocabulary(vars_));
  if (BoxOf(form_, kVerticalFilter).ListCount() < 1) return;
  for (const ChoiceId filter : kFilters) BoxOf(form_, filter).SetListIndex(kStartFilter);
}

void PanelSetup::ResetSlateAndMessage() {
  form_.chPrev.SetValue(0);
  form_.UDDur.SetMax(kLongestSlate);
  form_.UDDur.SetMin(0);
  form_.UDDur.SetValue(0);
  form_.tWinMess.SetText("");
}

/// Offers the sizes for which the unit's hardware has position limits.
void PanelSetup::FillFontSizes() {
  ComboBox& box = BoxOf(form_, kFontSize);
  box.Clear();
  for (int i = 0; i <= UBound(vars_.CharMaxPositions); ++i) {
    const CharMaxPosRec& limits = At(vars_.CharMaxPositions, i);
    if (limits.VideoStandard != form_.comVS.Text()) continue;
    if (!IsOffered(limits)) continue;
    box.AddItem(limits.Description);
    vars_.CurCharMaxRow = i;
  }
  SelectFirst(box);
}

void PanelSetup::FindCharMaxRow() {
  UBound(vars_.CharMaxPositions);  // fails if the table was never read
  vars_.CurCharMaxRow = PositionLimitsRow(form_, vars_);
}

}  // namespace marlinset

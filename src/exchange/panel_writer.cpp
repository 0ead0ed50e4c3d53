// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/panel_writer.h"

#include <limits>
#include <string>

#include "core/frm_start.h"
#include "core/panel_setup.h"
#include "core/variables.h"
#include "core/vertical_step.h"
#include "core/vitc_frames.h"
#include "files/qcf_fields.h"

namespace marlinset {
namespace {

bool IsWithin(std::int64_t number, std::int64_t lowest, std::int64_t highest) {
  return number >= lowest && number <= highest;
}

template <class Number>
bool Fits(std::int64_t number) {
  return IsWithin(number, std::numeric_limits<Number>::min(), std::numeric_limits<Number>::max());
}

/// What a load can give: a text where files keep a text, a tick of 0 to 2, one to three lines or none, a
/// parameter of 16 bits.
bool IsInRange(const QcfField& field, const Control* control, const SingleValue& value) {
  const auto* number = std::get_if<std::int64_t>(&value);
  if ((field.encoding == QcfEncoding::kText) == (number != nullptr)) return false;
  if (!number) return true;
  if (field.encoding == QcfEncoding::kValue) return Fits<std::int16_t>(*number);
  if (field.use == QcfUse::kVitcOption) return IsWithin(*number, 0, 3);
  if (field.use == QcfUse::kInserter) return IsWithin(*number, 0, 1);
  const bool isTick = control && control->Kind() == ControlKind::kCheckBox;
  return isTick ? IsWithin(*number, 0, 2) : Fits<int>(*number);
}

}  // namespace

bool PanelWriter::Takes(const QcfField& field, int record, const SingleValue& value) const {
  if (IsPartOf(QcfUse::kParameters, field)) return IsInRange(field, nullptr, value);
  const Control* control = form_.Find(field.control, record == kNoIndex ? field.index : record);
  if (!control && field.use != QcfUse::kVitcOption) return false;
  return IsInRange(field, control, value);
}

void PanelWriter::Set(const QcfField& field, int record, const SingleValue& value) {
  if (IsPartOf(QcfUse::kParameters, field)) return SetParameter(record, value);
  const int index = record == kNoIndex ? field.index : record;
  if (const auto* text = std::get_if<std::string>(&value)) {
    SetText(field, index, *text);
  } else {
    SetNumber(field, index, static_cast<int>(std::get<std::int64_t>(value)));
  }
}

void PanelWriter::SetNumber(const QcfField& field, int index, int number) {
  if (field.use == QcfUse::kVitcOption) return SetVitcMode(number);
  Control& control = *form_.Find(field.control, index);
  switch (control.Kind()) {
    case ControlKind::kCheckBox:
      static_cast<CheckBox&>(control).TakeValue(number);
      break;
    case ControlKind::kMenuItem:
      form_.mnuCharOn.SetChecked(number == 1);
      form_.mnuCharOff.SetChecked(number != 1);
      break;
    default:
      static_cast<SpinControl&>(control).TakeValue(number);
      break;
  }
  if (&control == &form_.chDups) ShowDuplicateLines(form_);
  if (&control == &form_.chSync) ShowSyncLines(form_);
  if (field.use == QcfUse::kVitcLine) form_.tLineNumber(index).SetText(std::to_string(number));
}

void PanelWriter::SetVitcMode(int lines) {
  for (const int mode : form_.oVITC.Indices()) form_.oVITC(mode).TakeValue(mode == lines - 1);
  if (lines == 0) return;
  ShowVitcFrames(form_, lines - 1);
  ShowSyncChoice(form_, lines - 1);
}

void PanelWriter::SetText(const QcfField& field, int index, const std::string& text) {
  Control& control = *form_.Find(field.control, index);
  if (control.Kind() != ControlKind::kComboBox) return static_cast<TextBox&>(control).TakeText(text);
  auto& box = static_cast<ComboBox&>(control);
  box.TakeText(text);
  RememberSelection(box);
  if (field.use == QcfUse::kFontSize) SetVerticalSteps(vars_, form_);
}

/// What typing into the box is taken back to.
void PanelWriter::RememberSelection(const ComboBox& box) {
  if (box.ListIndex() < 0) return;
  const auto selected = static_cast<std::uint8_t>(box.ListIndex());
  if (&box == &form_.comVS) vars_.VsLastIndex = selected;
  if (box.Name() == form_.comTB.Name()) At(vars_.TbLastIndex, box.Index()) = selected;
  if (box.Name() == form_.ComUB.Name()) At(vars_.UbLastIndex, box.Index()) = selected;
}

/// The row of a parameter that is internal to the unit shows nothing but its value, and its spin means
/// nothing.
void PanelWriter::SetParameter(int record, const SingleValue& value) {
  SystemParameterRec& parameter = At(vars_.SystemParameters, record);
  const bool hasRow = form_.HasParameterRow(record);
  const bool shown = hasRow && form_.udVal(record).Visible();
  if (const auto* text = std::get_if<std::string>(&value)) {
    parameter.Description = *text;
    if (shown) form_.lDesc(record).SetCaption(*text);
    return;
  }
  parameter.Value = static_cast<std::int16_t>(std::get<std::int64_t>(value));
  if (shown) form_.udVal(record).TakeValue(parameter.Value);
  if (hasRow) panels_.ShowParameterText(record);
}

}  // namespace marlinset

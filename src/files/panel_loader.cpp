// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/panel_loader.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "controls/dialogs.h"
#include "core/frm_start.h"
#include "core/panel_setup.h"
#include "core/variables.h"
#include "core/vertical_step.h"
#include "core/window_ticks.h"
#include "files/old_names.h"
#include "files/qcf_reader.h"
#include "platform/platform.h"

namespace marlinset {
namespace {

Control& ControlOf(const FrmStart& form, const QcfField& field, int index) {
  Control* control = form.Find(field.control, index);
  if (!control) throw NoSuchElement(index);
  return *control;
}

/// A four-byte number as tools in the field can hold it. Throws Overflow above 31 bits.
int Whole(std::int64_t number) {
  if (number > std::numeric_limits<std::int32_t>::max()) throw Overflow();
  return static_cast<int>(number);
}

std::int64_t NumberOf(const QcfEntry& entry) {
  return std::get<std::int64_t>(entry.value);
}

CharWindowRec WindowOf(const QcfRecord& record) {
  constexpr std::pair<std::string_view, std::int16_t CharWindowRec::*> kPositions[] = {
      {"udVer", &CharWindowRec::DefaultVertPosn}, {"udHor", &CharWindowRec::DefaultHorPosn}};
  CharWindowRec window;
  for (const QcfEntry& entry : record) {
    if (entry.field->encoding == QcfEncoding::kText) window.Name = std::get<std::string>(entry.value);
    for (const WindowTick& tick : kWindowTicks) {
      if (tick.control == entry.field->control) window.*tick.preset = NumberOf(entry) != 0;
    }
    for (const auto& [control, position] : kPositions) {
      if (control == entry.field->control) window.*position = static_cast<std::int16_t>(NumberOf(entry));
    }
  }
  return window;
}

std::vector<SystemParameterRec> ReadParameters(QcfReader& reader) {
  std::vector<SystemParameterRec> parameters;
  const QcfValue value = reader.Read(QcfFieldOf(QcfUse::kParameters));
  for (const QcfRecord& record : std::get<std::vector<QcfRecord>>(value)) {
    parameters.push_back({.Class = static_cast<std::int16_t>(NumberOf(record[kClassPart])),
                          .Parameter = static_cast<std::int16_t>(NumberOf(record[kNumberPart])),
                          .Description = std::get<std::string>(record[kDescriptionPart].value),
                          .Value = LoadedParameterValue(NumberOf(record[kValuePart]))});
  }
  return parameters;
}

}  // namespace

PanelLoader::PanelLoader(Platform& platform, Variables& variables, FrmStart& form, PanelSetup& panels)
    : platform_(platform),
      vars_(variables),
      form_(form),
      panels_(panels),
      upgrade_(platform, variables, form, panels) {}

LoadOutcome PanelLoader::Load(std::span<const std::uint8_t> bytes, Mode mode) {
  using enum LoadOutcome::End;
  mode_ = mode;
  // Once the windows are loaded, a failure of panels or database says nothing about the file.
  LoadOutcome incomplete{kIncomplete};
  const auto take = [&incomplete](const auto& step) {
    try {
      step();
      return true;
    } catch (const RuntimeError& failure) {
      incomplete.failure = std::to_string(failure.Number()) + "    " + failure.Description();
      return false;
    }
  };
  std::vector<SystemParameterRec> parameters;
  try {
    QcfReader reader(bytes);
    LoadPanels(reader);
    if (!take([this] { UnloadParameterRows(); })) return incomplete;
    parameters = ReadParameters(reader);
  } catch (const QcfError& failure) {
    return {failure.Which() == QcfError::Fault::kHeader ? kForeignHeader : kNoModel};
  } catch (const RuntimeError&) {
    return {kDamaged};
  }
  if (!take([&] { TakeParameters(std::move(parameters)); })) return incomplete;
  return {kLoaded};
}

/// Loads the file up to and including the character windows, and arranges these.
void PanelLoader::LoadPanels(QcfReader& reader) {
  for (const QcfField& field : QcfFields()) {
    if (field.use == QcfUse::kVersion || field.since > reader.FormatVersion()) continue;
    if (field.use == QcfUse::kParameters) return;
    Apply(field, reader.Read(field), reader.FormatVersion());
  }
}

void PanelLoader::Apply(const QcfField& field, const QcfValue& value, int version) {
  if (field.use == QcfUse::kWindows) {
    TakeWindows(std::get<std::vector<QcfRecord>>(value), version);
  } else if (field.encoding == QcfEncoding::kText) {
    ApplyText(field, std::get<std::string>(value));
  } else {
    ApplyNumber(field, std::get<std::int64_t>(value));
  }
}

void PanelLoader::ApplyNumber(const QcfField& field, std::int64_t stored) {
  const int number = Whole(stored);
  switch (field.use) {
    case QcfUse::kVitcOption:
      if (number >= 1 && number <= 3) form_.oVITC(number - 1).SetValue(true);
      return;
    case QcfUse::kInserter:
      return TakeInserter(number == 1);
    case QcfUse::kVitcLine:
      return TakeVitcLine(form_.upVitc1(field.index), number);
    default:
      break;
  }
  Control& control = ControlOf(form_, field, field.index);
  if (control.Kind() == ControlKind::kCheckBox) {
    static_cast<CheckBox&>(control).SetValue(number);
  } else {
    static_cast<SpinControl&>(control).SetValue(number);
  }
}

void PanelLoader::ApplyText(const QcfField& field, const std::string& text) {
  switch (field.use) {
    case QcfUse::kOperatingMode:
      return TakeOperatingMode(text);
    case QcfUse::kSource:
      return LookUp(field, text, TranslateCodeName(text));
    case QcfUse::kSourceOfBox:
      return LookUp(field, text, TranslateCodeName(text, &BoxOf(field, field.index)));
    case QcfUse::kFontSize:
      LookUp(field, text, text);
      return SetVerticalSteps(vars_, form_);  // for the rows that exist now
    case QcfUse::kCombo:
      return LookUp(field, text, text);
    default:
      return static_cast<TextBox&>(ControlOf(form_, field, field.index)).SetText(text);
  }
}

void PanelLoader::TakeOperatingMode(const std::string& text) {
  const std::string name = TranslateModeName(text);
  const bool known = std::any_of(vars_.OperatingModes.begin(), vars_.OperatingModes.end(),
                                 [&](const OperatingModeRec& mode) { return mode.Name == name; });
  if (!known) throw TypeMismatch();
  if (mode_ == Mode::kOfFile) vars_.OperatingMode = name;
  panels_.SetDefaults();
}

void PanelLoader::TakeInserter(bool on) {
  form_.mnuCharOff.SetChecked(!on);
  form_.mnuCharOn.SetChecked(on);
}

/// A line below the range of the video standard becomes the highest line of the range. A line above it
/// becomes the lowest one, or one less unless it is a duplicate. Files and units in the field rely on this.
void PanelLoader::TakeVitcLine(SpinControl& line, int number) {
  const int lowest = line.Lowest();
  const bool isDuplicate = line.Index() >= 5;
  if (number < lowest) {
    line.SetValue(line.Highest());
  } else if (number > line.Highest()) {
    line.SetValue(isDuplicate ? lowest : lowest - 1);
  } else {
    line.SetValue(number);
  }
}

ComboBox& PanelLoader::BoxOf(const QcfField& field, int index) const {
  return static_cast<ComboBox&>(ControlOf(form_, field, index));
}

/// Ignores an empty text for an empty box: a mode without sources for a box writes one. Reports a name that
/// became empty by translation all the same.
void PanelLoader::LookUp(const QcfField& field, const std::string& text, const std::string& wanted) {
  ComboBox& box = BoxOf(field, field.index);
  const auto found = std::find(box.List().begin(), box.List().end(), wanted);
  if (found != box.List().end()) {
    box.SetListIndex(static_cast<int>(found - box.List().begin()));
    return;
  }
  if (text.empty() && box.ListCount() == 0) return;
  platform_.dialogs.Tell(std::string(field.missing));
  ComboBox& fallback = BoxOf(field, field.fallback);
  if (fallback.ListCount() > 0) fallback.SetListIndex(0);
}

void PanelLoader::TakeWindows(const std::vector<QcfRecord>& records, int version) {
  std::vector<CharWindowRec> windows(records.size());
  std::ranges::transform(records, windows.begin(), WindowOf);
  std::vector<CharWindowRec> before = std::exchange(vars_.CharWindows, std::move(windows));
  try {
    upgrade_.MergeCharWindows(version < 2 ? Upgrade::DoubleHeight::kFromDatabase
                                          : Upgrade::DoubleHeight::kFromFile);
  } catch (const RuntimeError&) {
    vars_.CharWindows = std::move(before);  // the rows on the panel still belong to these windows
    throw;
  }
  upgrade_.SortCharWindows();
  upgrade_.RebuildWindowRows();
  panels_.ArrangeWindowRows();
}

/// Removes all rows of the parameter list except the first.
void PanelLoader::UnloadParameterRows() {
  for (const int row : form_.lClass.Indices()) {
    if (row > 0) form_.ForParameterRow([row](auto& column) { column.Unload(row); });
  }
}

/// Makes `parameters` the working list, merged with the reference database and sorted by class.
///
/// A row's spin writes every parameter with its description, here as in the operator's hands: of two
/// parameters with one description, both take the value of the first. Sent and saved configurations have
/// always been so.
void PanelLoader::TakeParameters(std::vector<SystemParameterRec> parameters) {
  vars_.SystemParameters = std::move(parameters);
  upgrade_.RemoveDeletedParameters();
  int lastRow = UBound(vars_.SystemParameters);
  for (int row = 0; row <= lastRow; ++row) {
    panels_.LoadParameterRow(row);
    panels_.FillParameterRow(row);
  }
  upgrade_.MergeParameters(lastRow);
  form_.bClass.Press();
}

}  // namespace marlinset

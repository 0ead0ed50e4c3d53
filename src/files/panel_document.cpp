// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/panel_document.h"

#include <algorithm>
#include <utility>

#include "core/frm_start.h"
#include "core/variables.h"
#include "files/qcf_writer.h"

namespace marlinset {
namespace {

QcfValue ValueOfControl(const FrmStart& form, const QcfField& field, int index) {
  const Control* control = form.Find(field.control, index);
  if (!control) throw NoSuchElement(index);
  switch (control->Kind()) {
    case ControlKind::kComboBox:
      return static_cast<const ComboBox*>(control)->Text();
    case ControlKind::kTextBox:
      return static_cast<const TextBox*>(control)->Text();
    case ControlKind::kCheckBox:
      return std::int64_t{static_cast<const CheckBox*>(control)->Value()};
    case ControlKind::kSpin:
      return std::int64_t{static_cast<const SpinControl*>(control)->Value()};
    case ControlKind::kMenuItem:
      return std::int64_t{static_cast<const MenuItem*>(control)->Checked() ? 1 : 0};
    default:
      return control->Caption();
  }
}

std::vector<QcfRecord> WindowRecords(const Variables& variables, const FrmStart& form,
                                     const QcfField& field) {
  std::vector<QcfRecord> records;
  for (int row = 0; row <= UBound(variables.CharWindows); ++row) {
    QcfRecord record;
    for (const QcfField& part : field.record) record.push_back({&part, ValueOfControl(form, part, row)});
    records.push_back(std::move(record));
  }
  return records;
}

std::vector<QcfRecord> ParameterRecords(const Variables& variables, const QcfField& field) {
  std::vector<QcfRecord> records;
  for (int i = 0; i <= UBound(variables.SystemParameters); ++i) {
    const SystemParameterRec& parameter = At(variables.SystemParameters, i);
    const QcfValue values[] = {std::int64_t{parameter.Class}, std::int64_t{parameter.Parameter},
                               parameter.Description, StoredParameterValue(parameter.Value)};
    QcfRecord record;
    for (const QcfField& part : field.record) record.push_back({&part, values[record.size()]});
    records.push_back(std::move(record));
  }
  return records;
}

QcfValue ValueOf(const Variables& variables, const FrmStart& form, const QcfField& field) {
  switch (field.use) {
    case QcfUse::kVersion:
      return std::int64_t{kQcfVersion};
    case QcfUse::kOperatingMode:
      return variables.OperatingMode;
    case QcfUse::kVitcOption:
      return std::int64_t{form.vitcModes.Selected() + 1};
    case QcfUse::kWindows:
      return WindowRecords(variables, form, field);
    case QcfUse::kParameters:
      return ParameterRecords(variables, field);
    default:
      return ValueOfControl(form, field, field.index);
  }
}

/// Whether the file can hold the value in this field.
bool Fits(const QcfField& field, const QcfValue& value) {
  const auto* number = std::get_if<std::int64_t>(&value);
  if (!number) return field.encoding == QcfEncoding::kText;
  if (field.encoding == QcfEncoding::kByte) return std::in_range<std::uint8_t>(*number);
  return field.encoding == QcfEncoding::kU32 && std::in_range<std::uint32_t>(*number);
}

/// Puts the value into the field of a control. Returns false if these entries have none.
bool PutInto(QcfRecord& entries, const Control& control, int index, const QcfValue& value) {
  const auto found = std::ranges::find_if(entries, [&](const QcfEntry& entry) {
    return entry.field->control == control.Name() && entry.field->index == index;
  });
  if (found == entries.end()) return false;
  if (Fits(*found->field, value)) found->value = value;
  return true;
}

std::vector<QcfRecord>& RecordsIn(QcfDocument& document, QcfUse use) {
  const auto found = std::ranges::find_if(document.entries,
                                          [use](const QcfEntry& entry) { return entry.field->use == use; });
  return std::get<std::vector<QcfRecord>>(found->value);
}

/// As the list does: all parameters with the description of the row take its value.
void PutParameter(QcfDocument& document, const std::string& description, std::int64_t number) {
  if (!std::in_range<std::int16_t>(number)) return;
  for (QcfRecord& record : RecordsIn(document, QcfUse::kParameters)) {
    if (std::get<std::string>(record[kDescriptionPart].value) != description) continue;
    record[kValuePart].value = StoredParameterValue(static_cast<std::int16_t>(number));
  }
}

void Put(QcfDocument& document, const FrmStart& form, const PendingEdit& edit) {
  const Control& control = *edit.control;
  const QcfValue value = std::visit([](const auto& plain) { return QcfValue(plain); }, edit.value);
  if (control.Name() == form.oVITC.Name()) {
    const auto option = std::ranges::find(document.entries, QcfUse::kVitcOption,
                                          [](const QcfEntry& entry) { return entry.field->use; });
    option->value = std::int64_t{control.Index() + 1};
  } else if (control.Name() == form.udVal.Name()) {
    PutParameter(document, form.lDesc(control.Index()).Caption(), std::get<std::int64_t>(value));
  } else if (!PutInto(document.entries, control, control.Index(), value)) {
    auto& windows = RecordsIn(document, QcfUse::kWindows);
    const auto row = static_cast<std::size_t>(control.Index());
    if (row < windows.size()) PutInto(windows[row], control, kNoIndex, value);
  }
}

}  // namespace

QcfDocument DocumentOfPanels(const Variables& variables, const FrmStart& form) {
  QcfDocument document;
  document.identification = OwnIdentification();
  for (const QcfField& field : QcfFields()) {
    document.entries.push_back({&field, ValueOf(variables, form, field)});
  }
  return document;
}

QcfDocument DocumentOfPanels(const Variables& variables, const FrmStart& form, const PendingEdits& edits) {
  QcfDocument document = DocumentOfPanels(variables, form);
  for (const PendingEdit& edit : edits) {
    if (&edit.control->Owner() == &form) Put(document, form, edit);
  }
  return document;
}

}  // namespace marlinset

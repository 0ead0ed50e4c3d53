// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/panel_document.h"

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

}  // namespace

QcfDocument DocumentOfPanels(const Variables& variables, const FrmStart& form) {
  QcfDocument document;
  document.identification = OwnIdentification();
  for (const QcfField& field : QcfFields()) {
    document.entries.push_back({&field, ValueOf(variables, form, field)});
  }
  return document;
}

}  // namespace marlinset

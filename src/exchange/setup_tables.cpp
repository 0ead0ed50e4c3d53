// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/setup_tables.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <utility>

#include "core/frm_start.h"
#include "core/variables.h"
#include "csv/csv.h"
#include "files/panel_document.h"
#include "files/qcf_fields.h"

namespace marlinset {
namespace {

using enum ColumnUse;

constexpr auto kParameterColumns = std::to_array<TableColumn>(
    {{"Class"}, {"Parameter"}, {"Description", kText}, {"Value", kValue, "udVal"}});
constexpr int kMostPosition = 255;  // one byte in a file
constexpr auto kWindowColumns =
    std::to_array<TableColumn>({{"Name"},
                                {"Number"},
                                {"On", kValue, "chOnOff", 0, 1},
                                {"Slate", kValue, "chSlate", 0, 1},
                                {"Double Height", kValue, "chDblSize", 0, 1},
                                {"Symbol", kValue, "chSym", 0, 1, &CharWindowRec::SymbolLength},
                                {"Field", kValue, "chField", 0, 1, &CharWindowRec::FieldLength},
                                {"Vertical", kValue, "udVer", 0, kMostPosition},
                                {"Horizontal", kValue, "udHor", 0, kMostPosition}});

constexpr std::pair<TableKind, std::string_view> kKinds[] = {{TableKind::kParameters, "parameters"},
                                                             {TableKind::kWindows, "windows"}};

bool ShowsParameter(const FrmStart& form, int row) {
  return form.udVal.Has(row) && form.udVal(row).Visible();
}

bool ShowsWindow(const FrmStart& form, int row) {
  return form.HasWindowRow(row) && form.lName(row).Visible();
}

/// What identifies a row, and what the reader sees of it besides.
std::vector<std::string> HeadOf(TableKind kind, int row, const Variables& variables) {
  if (kind == TableKind::kWindows) {
    const CharWindowRec& window = At(variables.CharWindows, row);
    return {window.Name, std::to_string(window.Number)};
  }
  const SystemParameterRec& parameter = At(variables.SystemParameters, row);
  return {std::to_string(parameter.Class), std::to_string(parameter.Parameter), parameter.Description};
}

std::string ValueOf(const FrmStart& form, const TableColumn& column, int row, const Variables& variables) {
  const Control& control = *form.Find(column.control, row);
  if (control.Kind() == ControlKind::kCheckBox) return static_cast<const CheckBox&>(control).On() ? "1" : "0";
  // The spin of a parameter goes beyond what its record, files and units hold.
  if (column.control == form.udVal.Name()) return std::to_string(At(variables.SystemParameters, row).Value);
  return std::to_string(static_cast<const SpinControl&>(control).Value());
}

}  // namespace

std::string_view NameOf(TableKind kind) {
  return std::ranges::find(kKinds, kind, &std::pair<TableKind, std::string_view>::first)->second;
}

std::optional<TableKind> TableKindOf(std::string_view name) {
  for (const auto& [kind, known] : kKinds) {
    if (name == known) return kind;
  }
  return std::nullopt;
}

std::span<const TableColumn> ColumnsOf(TableKind kind) {
  if (kind == TableKind::kParameters) return kParameterColumns;
  return kWindowColumns;
}

std::vector<int> TableRows(TableKind kind, const Variables& variables, const FrmStart& form) {
  const bool windows = kind == TableKind::kWindows;
  const std::size_t count = windows ? variables.CharWindows.size() : variables.SystemParameters.size();
  std::vector<int> rows;
  for (int row = 0; row < static_cast<int>(count); ++row) {
    if (windows ? ShowsWindow(form, row) : ShowsParameter(form, row)) rows.push_back(row);
  }
  return rows;
}

std::map<ParameterKey, int> RowsByParameter(const Variables& variables, const FrmStart& form) {
  std::map<ParameterKey, int> rows;
  for (const int row : TableRows(TableKind::kParameters, variables, form)) {
    rows.emplace(KeyOf(At(variables.SystemParameters, row)), row);
  }
  return rows;
}

std::vector<int> RowsOf(std::span<const ParameterKey> parameters, const Variables& variables,
                        const FrmStart& form) {
  const std::map<ParameterKey, int> known = RowsByParameter(variables, form);
  std::vector<int> rows;
  for (const ParameterKey& key : parameters) {
    if (const auto found = known.find(key); found != known.end()) rows.push_back(found->second);
  }
  return rows;
}

std::string TableOf(TableKind kind, std::span<const int> rows, char separator, const Variables& variables,
                    const FrmStart& form) {
  std::vector<std::string> names;
  for (const TableColumn& column : ColumnsOf(kind)) names.emplace_back(column.name);
  std::string table = CsvLine(names, separator);
  for (const int row : rows) {
    std::vector<std::string> fields = HeadOf(kind, row, variables);
    for (const TableColumn& column : ColumnsOf(kind)) {
      if (column.use == kValue) fields.push_back(ValueOf(form, column, row, variables));
    }
    table += CsvLine(fields, separator);
  }
  return table;
}

std::vector<NewValue> NamedValues(std::span<const PanelValue> values, const Variables& variables,
                                  const FrmStart& form) {
  std::map<std::pair<std::string_view, int>, int> wanted;
  for (const PanelValue& value : values) wanted[{value.control, value.row}] = value.value;
  std::vector<NewValue> named;
  for (const QcfNamedValue& present : ValuesOf(DocumentOfPanels(variables, form))) {
    const auto found = wanted.find({present.field->control, present.record});
    if (found != wanted.end()) named.push_back({present.name, std::int64_t{found->second}});
  }
  return named;
}

std::vector<ComparedValue> DifferencesFrom(std::span<const NewValue> values, const Variables& variables,
                                           const FrmStart& form) {
  std::map<std::string_view, const SingleValue*> wanted;
  for (const NewValue& value : values) wanted.emplace(value.name, &value.value);
  std::vector<ComparedValue> differences;
  for (const QcfNamedValue& present : ValuesOf(DocumentOfPanels(variables, form))) {
    const auto found = wanted.find(present.name);
    if (found == wanted.end() || *found->second == present.value) continue;
    differences.push_back({.name = present.name,
                           .group = GroupOf(*present.field),
                           .about = IsPartOf(QcfUse::kParameters, *present.field)
                                        ? At(variables.SystemParameters, present.record).Description
                                        : "",
                           .here = present.value,
                           .there = *found->second});
  }
  return differences;
}

int CountRows(std::span<const ComparedValue> values) {
  std::set<std::string_view> owners;
  for (const ComparedValue& value : values) {
    owners.insert(std::string_view(value.name).substr(0, value.name.rfind(" / ")));
  }
  return static_cast<int>(owners.size());
}

}  // namespace marlinset

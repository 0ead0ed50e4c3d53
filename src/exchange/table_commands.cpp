// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/table_commands.h"

#include <algorithm>
#include <cctype>
#include <memory>
#include <utility>

#include "base/text.h"
#include "controls/dialogs.h"
#include "controls/guard.h"
#include "core/frm_start.h"
#include "core/variables.h"
#include "csv/csv.h"
#include "files/qcf_fields.h"
#include "platform/file_dialog.h"
#include "platform/file_system.h"
#include "platform/new_file.h"
#include "platform/platform.h"
#include "platform/settings_keys.h"

namespace marlinset {
namespace {

constexpr std::string_view kCsvTables = "CSV tables";
constexpr std::string_view kNothingPasted = "Nothing was pasted.";
constexpr const char* kHowToPaste =
    "The clipboard holds no parameters. Copy a table whose first line names its columns (Class, "
    "Parameter, Description and Value), or numbers alone, one for each parameter that is selected here.";
constexpr std::string_view kOnlyInTable = "only in the table";
constexpr std::size_t kMostNamed = 20;  // rows in a box

/// What a text from the clipboard is, by its first line: that of a table has names of columns, that of values
/// alone no letter.
enum class Pasted { kTable, kValues, kProse };
Pasted KindOf(std::string_view text) {
  const std::string line(text.substr(0, text.find_first_of("\r\n", text.find_first_not_of("\r\n "))));
  if (std::ranges::none_of(line, [](unsigned char c) { return std::isalpha(c) != 0; }))
    return Pasted::kValues;
  const bool names = std::ranges::any_of(ColumnsOf(TableKind::kParameters),
                                         [upper = UpperOf(line)](const TableColumn& column) {
                                           return upper.find(UpperOf(column.name)) != std::string::npos;
                                         });
  return names ? Pasted::kTable : Pasted::kProse;
}

PanelValue ParameterValue(int row, int value) {
  return {ColumnsOf(TableKind::kParameters)[kValueColumn].control, row, value};
}

std::string Counted(std::size_t count, const std::string& noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

}  // namespace

TableCommands::TableCommands(Platform& platform, const Variables& variables, FrmStart& form,
                             TakeOver& takeOver, const CompareCommand& compare)
    : platform_(platform), vars_(variables), form_(form), takeOver_(takeOver), compare_(compare) {
  form_.mnuExportPar.OnClick([this] { AskForExport(TableKind::kParameters); });
  form_.mnuExportWin.OnClick([this] { AskForExport(TableKind::kWindows); });
  form_.mnuImportPar.OnClick([this] { AskForImport(TableKind::kParameters); });
  form_.mnuImportWin.OnClick([this] { AskForImport(TableKind::kWindows); });
}

std::optional<int> TableCommands::ReferenceOf(const ParameterKey& parameter) const {
  for (const SystemParameterRec& known : vars_.ReferenceParameters) {
    if (KeyOf(known) == parameter) return known.Value;
  }
  return std::nullopt;
}

std::string TableCommands::CopyOf(std::span<const ParameterKey> parameters) const {
  return TableOf(TableKind::kParameters, RowsOf(parameters, vars_, form_), '\t', vars_, form_);
}

TableImport TableCommands::ImportOf(std::string action, const TableContent& content) const {
  return {std::move(action), NamedValues(content.values, vars_, form_), content.unknown};
}

TableContent TableCommands::PasteOf(const std::string& text, std::span<const ParameterKey> selected) const {
  const Pasted kind = KindOf(text);
  if (kind == Pasted::kTable) return ReadTable(TableKind::kParameters, text, vars_, form_);
  if (kind == Pasted::kProse) throw RuntimeError(kErrInvalidCall, std::string(kNothingPasted), kHowToPaste);
  const std::vector<int> values = ReadValues(text);
  const std::vector<int> rows = RowsOf(selected, vars_, form_);
  if (rows.empty() || (values.size() != 1 && values.size() != rows.size())) {
    throw RuntimeError(kErrInvalidCall, std::string(kNothingPasted),
                       "The clipboard holds " + Counted(values.size(), "value") + ", and " +
                           Counted(rows.size(), "parameter") + (rows.size() == 1 ? " is" : " are") +
                           " selected. Select as many parameters as there are values.");
  }
  TableContent content;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    content.values.push_back(ParameterValue(rows[i], values[values.size() == 1 ? 0 : i]));
  }
  return content;
}

void TableCommands::Paste(const std::string& text, std::span<const ParameterKey> selected) {
  Attempt(kNothingPasted, [&] {
    const TableImport import = ImportOf("Paste Parameters", PasteOf(text, selected));
    Take(import);
    TellUnknown(import.unknown);
  });
}

void TableCommands::Reset(std::span<const ParameterKey> parameters) {
  Attempt("Nothing was reset.", [&] {
    TableContent content;
    for (const int row : RowsOf(parameters, vars_, form_)) {
      if (const auto value = ReferenceOf(KeyOf(At(vars_.SystemParameters, row))))
        content.values.push_back(ParameterValue(row, *value));
    }
    Take(ImportOf("Reset to Reference", content));
  });
}

/// What the operator asks for outside of any control: a failure is shown as the guard would.
void TableCommands::Attempt(std::string_view failed, const std::function<void()>& action) {
  std::optional<MessageBox> box;
  try {
    action();
  } catch (const TableError& wrong) {
    box = MessageBox{.text = std::string(failed), .icon = BoxIcon::kCritical, .remedy = wrong.what()};
  } catch (const RuntimeError& failure) {
    box = MessageBox{.text = failure.Description(), .icon = BoxIcon::kCritical, .remedy = failure.Remedy()};
  }
  if (box) platform_.guard.Run([&] { platform_.dialogs.Show(*box); });
}

void TableCommands::TellUnknown(const std::vector<std::string>& unknown) {
  if (unknown.empty()) return;
  std::string names;
  for (std::size_t i = 0; i < std::min(unknown.size(), kMostNamed); ++i)
    names += (i == 0 ? "" : ", ") + unknown[i];
  if (unknown.size() > kMostNamed) names += " and " + std::to_string(unknown.size() - kMostNamed) + " more";
  platform_.guard.Run([&] {
    platform_.dialogs.Show(
        {.text = Counted(unknown.size(), "row") + " of the table fit no parameter of this setup.",
         .icon = BoxIcon::kInformation,
         .remedy = names});
  });
}

void TableCommands::Export(TableKind kind, const std::string& path) {
  const std::string table = TableOf(kind, TableRows(kind, vars_, form_), ',', vars_, form_);
  const std::vector<std::uint8_t> bytes(table.begin(), table.end());
  const auto file = platform_.files.OpenForWriting(path);
  file->Write(bytes);
  file->Commit();
}

TableImport TableCommands::Read(TableKind kind, const std::string& path) const {
  const std::vector<std::uint8_t> bytes = platform_.files.OpenForReading(path)->ReadAll();
  const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  return ImportOf("Import " + FileNameOf(path), ReadTable(kind, text, vars_, form_));
}

int TableCommands::Take(const TableImport& import) {
  const std::vector<ComparedValue> differences = DifferencesFrom(import.values, vars_, form_);
  takeOver_.Set(import.action, TakeOver::All(differences));
  return CountRows(differences);
}

/// What the panel lacks can be seen, but not taken over.
std::vector<ComparedValue> TableCommands::RowsToOffer(TableKind kind, const TableImport& import) const {
  const bool windows = kind == TableKind::kWindows;
  std::vector<ComparedValue> rows = DifferencesFrom(import.values, vars_, form_);
  const QcfField& field = QcfFieldOf(windows ? QcfUse::kWindows : QcfUse::kParameters);
  for (const std::string& unknown : import.unknown) {
    rows.push_back({.name = std::string(field.name) + " / " + unknown,
                    .group = GroupOf(field.record.front()),
                    .here = {},
                    .there = std::string(kOnlyInTable)});
  }
  return rows;
}

void TableCommands::AskForExport(TableKind kind) {
  const std::string file = AskForNewFile(platform_,
                                         {.title = "Export as CSV",
                                          .kind = std::string(kCsvTables),
                                          .extension = ".csv",
                                          .suffix = " " + std::string(NameOf(kind))},
                                         vars_.CurrentFile, LastFolder(platform_.settings, vars_.AppPath));
  if (file.empty()) return;
  Attempt({}, [&] {
    Export(kind, file);
    form_.StatBar(FrmStart::kVideoPanel).SetText(FileNameOf(file) + " written to " + FolderOfPath(file));
  });
}

void TableCommands::AskForImport(TableKind kind) {
  std::string folder = importFolder_;
  if (folder.empty()) folder = FolderOfPath(platform_.fileDialog.FileName);
  if (folder.empty()) folder = LastFolder(platform_.settings, vars_.AppPath);
  const auto file = AskToOpen(platform_.fileDialog, {.CancelError = true,
                                                     .Filter = std::string(kCsvTables) + "|*.csv",
                                                     .Flags = kHideReadOnly,
                                                     .FileName = {},
                                                     .InitDir = folder,
                                                     .DialogTitle = "Import from CSV"});
  if (!file) return;
  importFolder_ = FolderOfPath(*file);
  Attempt({}, [&] {
    const auto import = std::make_shared<const TableImport>(ReadNamed(kind, *file));
    if (!compare_.show) return;
    compare_.show({.title = import->action,
                   .action = import->action,
                   .ticked = true,
                   .differences = [this, kind, import] { return RowsToOffer(kind, *import); }});
  });
}

/// Names the file in what is wrong with its content.
TableImport TableCommands::ReadNamed(TableKind kind, const std::string& path) const {
  try {
    return Read(kind, path);
  } catch (const TableError& wrong) {
    throw RuntimeError(kErrFileFormat, "This table cannot be imported.", path + "\n" + wrong.what());
  }
}

}  // namespace marlinset

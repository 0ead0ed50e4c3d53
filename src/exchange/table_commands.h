// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "exchange/compare_command.h"
#include "exchange/table_reader.h"
#include "exchange/take_over.h"

namespace marlinset {

/// What a table would change.
struct TableImport {
  std::string action;                ///< as the history lists it: "Import parameters.csv"
  std::vector<NewValue> values;      ///< whether the panels have them already or not
  std::vector<std::string> unknown;  ///< rows that the panel lacks
};

/// Parameters and windows as tables: export to and import from CSV files, copy and paste of parameters, and
/// the way back to the reference database. Connects to the entries of the File menu.
class TableCommands {
 public:
  TableCommands(Platform& platform, const Variables& variables, FrmStart& form, TakeOver& takeOver,
                const CompareCommand& compare);

  /// The value that the reference database has for a parameter; nothing if it lacks that.
  std::optional<int> ReferenceOf(const ParameterKey& parameter) const;
  /// These parameters as text for the clipboard.
  std::string CopyOf(std::span<const ParameterKey> parameters) const;

  /// Pastes a text from the clipboard: a table with names of columns, or values alone, one for all or as many
  /// as there are selected parameters. Shows in a box what is wrong with it, and which rows the list lacks.
  void Paste(const std::string& text, std::span<const ParameterKey> selected);
  /// Gives parameters the values of the reference database, as far as that has them.
  void Reset(std::span<const ParameterKey> parameters);

  /// Writes all rows of a panel into a CSV file. Throws RuntimeError if it cannot be written.
  void Export(TableKind kind, const std::string& path);
  /// Reads a CSV file; changes nothing. Throws RuntimeError if it cannot be read, TableError for its content.
  TableImport Read(TableKind kind, const std::string& path) const;
  /// Takes over all that a table would change, and returns in how many rows of the panel that was. Throws
  /// RuntimeError as TakeOver::Set does.
  int Take(const TableImport& import);

 private:
  void AskForExport(TableKind kind);
  void AskForImport(TableKind kind);
  TableImport ReadNamed(TableKind kind, const std::string& path) const;
  TableContent PasteOf(const std::string& text, std::span<const ParameterKey> selected) const;
  TableImport ImportOf(std::string action, const TableContent& content) const;
  std::vector<ComparedValue> RowsToOffer(TableKind kind, const TableImport& import) const;
  void Attempt(std::string_view failed, const std::function<void()>& action);
  void TellUnknown(const std::vector<std::string>& unknown);

  Platform& platform_;
  const Variables& vars_;
  FrmStart& form_;
  TakeOver& takeOver_;
  const CompareCommand& compare_;
  std::string importFolder_;  ///< of the table last chosen
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include <cctype>
#include <limits>
#include <optional>

#include "base/runtime_error.h"
#include "base/text.h"
#include "files/panel_document.h"
#include "files/qcf_writer.h"
#include "picture/remark_rules.h"

namespace marlinset {
namespace {

std::string NameOf(const SystemParameterRec& parameter) {
  return "Parameter " + std::to_string(parameter.Class) + "/" + std::to_string(parameter.Parameter) + " " +
         Quoted(parameter.Description);
}

/// The value that a load brings back after a save; nothing if the load would fail.
std::optional<int> GivenBack(std::int16_t value) {
  try {
    return LoadedParameterValue(StoredParameterValue(value));
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

std::string Advice(const SystemParameterRec& parameter) {
  return IsInternalClass(parameter.Class) ? "correct it in the reference database."
                                          : "choose another value; 0 to 255 are always kept.";
}

/// Whether the list shows a number beyond the 16 bits of a value: the parameter then keeps its value from
/// before.
bool ShowsMore(const FrmStart& form, int row) {
  using Limits = std::numeric_limits<std::int16_t>;
  if (!form.udVal.Has(row) || !form.udVal(row).Visible()) return false;
  const int shown = form.udVal(row).Value();
  return shown < Limits::min() || shown > Limits::max();
}

std::string LossOf(const FrmStart& form, int row, const SystemParameterRec& parameter) {
  const std::string is = NameOf(parameter) + " is ";
  if (ShowsMore(form, row)) {
    return is + std::to_string(form.udVal(row).Value()) + " in the list, but " +
           std::to_string(parameter.Value) +
           " in a file: choose a value that a unit can hold; 0 to 255 are always kept.";
  }
  const std::optional<int> back = GivenBack(parameter.Value);
  if (back == parameter.Value) return {};
  const std::string value = is + std::to_string(parameter.Value);
  if (!back) return value + ", and a file with it cannot be opened again: " + Advice(parameter);
  return value + ", but a file gives back " + std::to_string(*back) + ": " + Advice(parameter);
}

/// The full name of a control; `row` counts for the parts of a record.
std::string ControlOf(const QcfField& field, std::optional<int> row) {
  const int index = row.value_or(field.index);
  return std::string(field.control) + (index == kNoIndex ? "" : "(" + std::to_string(index) + ")");
}

/// "Vertical of "Video Timecode"": a record is named by its text.
std::string SubjectOf(const QcfEntry& entry, const QcfRecord* record) {
  std::string subject(entry.field->name);
  if (!record) return "The " + subject;
  for (const QcfEntry& part : *record) {
    const auto* text = std::get_if<std::string>(&part.value);
    if (text) subject += " of " + Quoted(*text);
  }
  return subject;
}

void AddUnsavable(const QcfEntry& entry, std::optional<int> row, const QcfRecord* record, Findings& found) {
  if (CanBeWritten(entry)) return;
  std::string text = SubjectOf(entry, record);
  if (const auto* number = std::get_if<std::int64_t>(&entry.value)) {
    text += " is " + std::to_string(*number) + ", but a file can only hold " +
            (entry.field->encoding == QcfEncoding::kByte ? "0 to 255" : "0 and more") +
            " there: change it, or no save will work.";
  } else if (const auto* words = std::get_if<std::string>(&entry.value)) {
    text += " has " + std::to_string(LengthOf(*words)) +
            " characters, a number that no file can hold: make it shorter, or no save will work.";
  }
  found.push_back({{ControlOf(*entry.field, row)}, std::move(text)});
}

/// The length of the configuration is a number in the file, too. Only the message can change it at will.
constexpr std::string_view kWrongLength =
    "The setup has a length that no file can hold: make the text message one character shorter or longer, or "
    "no save will work.";

void FindUnsavableIn(const QcfDocument& document, Findings& found) {
  for (const QcfEntry& entry : document.entries) {
    const auto* records = std::get_if<std::vector<QcfRecord>>(&entry.value);
    if (!records) AddUnsavable(entry, std::nullopt, nullptr, found);
    for (int row = 0; records && row < static_cast<int>(records->size()); ++row) {
      const QcfRecord& record = At(*records, row);
      for (const QcfEntry& part : record) AddUnsavable(part, row, &record, found);
    }
  }
}

}  // namespace

void FindLostNumbers(const Setup& setup, Findings& found) {
  int row = 0;
  for (const SystemParameterRec& parameter : setup.vars.SystemParameters) {
    std::string loss = LossOf(setup.form, row, parameter);
    if (!loss.empty()) {
      found.push_back({{setup.form.udVal.Name() + "(" + std::to_string(row) + ")"}, std::move(loss)});
    }
    ++row;
  }
}

void FindUnsavable(const Setup& setup, Findings& found) {
  std::optional<QcfDocument> document;
  try {
    document = DocumentOfPanels(setup.vars, setup.form);
    WriteDocument(*document);
  } catch (const RuntimeError&) {
    if (!document) return;  // an array that was never read: nothing on the panels is at fault
    FindUnsavableIn(*document, found);
    if (found.empty()) found.push_back({{setup.form.tWinMess.FullName()}, std::string(kWrongLength)});
  }
}

}  // namespace marlinset

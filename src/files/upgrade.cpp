// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/upgrade.h"

#include <algorithm>
#include <string>
#include <utility>

#include "base/text.h"
#include "controls/dialogs.h"
#include "core/frm_start.h"
#include "core/panel_setup.h"
#include "core/window_ticks.h"
#include "platform/platform.h"

namespace marlinset {
namespace {

/// Provisional limits of a window's position, until those of standard and font size apply: rows and columns
/// of a small picture.
constexpr int kLowestRow = 30;
constexpr int kLastColumn = 32;

bool SameKey(const SystemParameterRec& a, const SystemParameterRec& b) {
  return a.Parameter == b.Parameter && a.Class == b.Class;
}

bool Holds(const std::vector<SystemParameterRec>& list, const SystemParameterRec& wanted) {
  return std::any_of(list.begin(), list.end(),
                     [&](const SystemParameterRec& parameter) { return SameKey(parameter, wanted); });
}

/// Copies what the database knows better than any file.
void CopyConstants(const CharWindowRec& row, CharWindowRec& window) {
  window.Number = row.Number;
  window.On = row.On;
  window.Top = row.Top;
  window.Left = row.Left;
  window.Length = row.Length;
  window.SymbolOn = row.SymbolOn;
  window.SymbolLength = row.SymbolLength;
  window.FieldOn = row.FieldOn;
  window.FieldLength = row.FieldLength;
  window.SlateOn = row.SlateOn;
  window.Ignore1 = row.Ignore1;
}

}  // namespace

Upgrade::Upgrade(Platform& platform, Variables& variables, FrmStart& form, PanelSetup& panels)
    : platform_(platform), vars_(variables), form_(form), panels_(panels) {}

template <class Rec>
std::optional<std::vector<Rec>> Upgrade::ReadTable(std::string_view name, RowFilter keep) {
  std::optional<OpenTable> table;
  try {
    table.emplace(platform_.engine, vars_.DatabasePath, name);
  } catch (const RuntimeError& failure) {
    platform_.dialogs.Tell(std::to_string(failure.Number()) + " " + failure.Description());
    return std::nullopt;
  }
  return ReadRows<Rec>(*table->rows, keep, OnFailure::kThrow);
}

template <class Rec>
std::optional<std::vector<Rec>> Upgrade::ReadTableOf(std::vector<Rec> Variables::*array) {
  const ReferenceArray<Rec> reference = ReferenceArrayOf(array);
  return ReadTable<Rec>(reference.table, reference.keep);
}

CharWindowRec* Upgrade::FindWindow(const std::string& name) {
  const std::string wanted = UpperOf(Trim(name));
  const auto found =
      std::find_if(vars_.CharWindows.begin(), vars_.CharWindows.end(),
                   [&](const CharWindowRec& window) { return UpperOf(Trim(window.Name)) == wanted; });
  return found == vars_.CharWindows.end() ? nullptr : &*found;
}

void Upgrade::MergeCharWindows(DoubleHeight doubleHeight) {
  const auto rows = ReadTableOf(&Variables::CharWindows);
  if (!rows) return;
  bool added = false;
  for (const CharWindowRec& row : *rows) {
    CharWindowRec* window = FindWindow(row.Name);
    if (window) {
      CopyConstants(row, *window);
      if (doubleHeight == DoubleHeight::kFromDatabase) window->DoubleHeight = row.DoubleHeight;
    } else {
      vars_.CharWindows.push_back(row);
      added = true;
    }
  }
  if (added) {
    platform_.dialogs.Tell(
        "New character windows have been added to this configuration.  Please verify the settings.");
  }
}

void Upgrade::SortCharWindows() {
  std::vector<CharWindowRec>& windows = vars_.CharWindows;
  for (std::size_t i = 0; i < windows.size(); ++i) {
    for (std::size_t j = i; j < windows.size(); ++j) {
      if (windows[j].Number < windows[i].Number) std::swap(windows[i], windows[j]);
    }
  }
}

void Upgrade::RebuildWindowRows() {
  for (int row = form_.lName.UBound(); row >= 1; --row) {
    form_.ForWindowRow([row](auto& array) { array.Unload(row); });
  }
  for (int row = 1; row <= UBound(vars_.CharWindows); ++row) {
    form_.ForWindowRow([row](auto& array) { array.Load(row); });
  }
  for (int row = 0; row <= UBound(vars_.CharWindows); ++row) {
    const CharWindowRec window = At(vars_.CharWindows, row);
    form_.lName(row).SetCaption(window.Name);
    SetWindowTicks(form_, row, window);
    SpinControl& vertical = form_.udVer(row);
    vertical.SetMin(kLowestRow);
    vertical.SetMax(0);
    vertical.SetIncrement(form_.udVer(0).Increment());
    vertical.SetValue(window.DefaultVertPosn);
    vertical.Announce();
    vertical.SetProvisional(true);
    SpinControl& horizontal = form_.udHor(row);
    horizontal.SetMin(0);
    horizontal.SetMax(kLastColumn);
    horizontal.SetValue(window.DefaultHorPosn);
    horizontal.Announce();
    horizontal.SetProvisional(true);
  }
}

void Upgrade::RemoveDeletedParameters() {
  const auto deleted = ReadTable<SystemParameterRec>(kDeletedParameters);
  if (!deleted) return;
  std::vector<SystemParameterRec> kept;
  for (const SystemParameterRec& parameter : vars_.SystemParameters) {
    if (!Holds(*deleted, parameter)) kept.push_back(parameter);
  }
  if (kept.size() == vars_.SystemParameters.size()) return;
  if (kept.empty()) throw SubscriptOutOfRange();
  vars_.SystemParameters = std::move(kept);
  platform_.dialogs.Tell("Extra parameters have been removed from the QCF file");
}

void Upgrade::MergeParameters(int& lastRow) {
  const auto rows = ReadTableOf(&Variables::SystemParameters);
  if (!rows) return;
  vars_.ReferenceParameters = *rows;
  bool added = false;
  for (const SystemParameterRec& row : *rows) {
    if (Holds(vars_.SystemParameters, row)) continue;
    vars_.SystemParameters.push_back(row);
    ++lastRow;
    panels_.LoadParameterRow(lastRow);
    panels_.FillParameterRow(lastRow);
    added = true;
  }
  vars_.NextParameterClass = lastRow;
  panels_.FitParameterSheet();
  if (!added) return;
  platform_.dialogs.Show(
      {.text = "New parameters have been added to this configuration.  Please verify the settings.",
       .icon = BoxIcon::kInformation});
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/parameter_dialogs.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/numbers.h"
#include "controls/dialogs.h"
#include "core/frm_start.h"
#include "core/load_arrays.h"
#include "core/variables.h"
#include "panels/parameter_list.h"
#include "platform/platform.h"

namespace marlinset {
namespace {

constexpr char32_t kBackspace = 8;
/// Classes and parameters must be below this, whatever the texts say.
constexpr double kEndOfNumbers = 40;
constexpr double kReservedClass = 25;

/// The number that a text begins with, rounded as in a record; 0 if it begins with none.
double NumberIn(const TextBox& box) {
  return std::nearbyint(LeadingNumberOf(box.Text()));
}

bool InRange(double number) {
  return number >= 0 && number < kEndOfNumbers;
}

bool HasKey(const SystemParameterRec& record, double classNumber, double parameter) {
  return record.Parameter == parameter && record.Class == classNumber;
}

bool Holds(const std::vector<SystemParameterRec>& records, double classNumber, double parameter) {
  return std::any_of(records.begin(), records.end(), [=](const SystemParameterRec& record) {
    return HasKey(record, classNumber, parameter);
  });
}

}  // namespace

ParameterDialogs::ParameterDialogs(Platform& platform, Variables& variables, ReferenceDatabase& database,
                                   ParameterList& list, FrmStart& form)
    : frmEditParameters(platform.guard),
      frmDeleteParameter(platform.guard),
      platform_(platform),
      vars_(variables),
      database_(database),
      list_(list) {
  form.mnuAddParameter.OnClick([this] { mnuAddParameter_Click(); });
  form.mnuRemoveParameter.OnClick([this] { mnuRemoveParameter_Click(); });

  FrmEditParameters& edit = frmEditParameters;
  const auto filter = [this](bool minus) {
    return [this, minus](int, KeyPress& press) { FilterKey(press, minus); };
  };
  edit.txtClass.OnKey(filter(false));
  edit.txtParameter.OnKey(filter(false));
  edit.txtValue.OnKey(filter(true));
  edit.cmdUpdate.OnClick([this] { cmdUpdate_Click(); });
  edit.cmdDone.OnClick([this] { frmEditParameters.SetVisible(false); });
  frmDeleteParameter.Command2.OnClick([this] { Command2_Click(); });
  frmDeleteParameter.Command1.OnClick([this] { frmDeleteParameter.SetVisible(false); });
}

void ParameterDialogs::mnuAddParameter_Click() {
  if (frmEditParameters.Visible()) return;
  frmEditParameters.Clear();
  platform_.dialogs.ShowModal(frmEditParameters);
}

void ParameterDialogs::FilterKey(KeyPress& press, bool minus) {
  const bool digit = press.code >= U'0' && press.code <= U'9';
  if (digit || press.code == kBackspace || (minus && press.code == U'-')) return;
  press.cancelled = true;
  platform_.dialogs.Tell("Invalid input.\rPlease enter digits only (0-9)");
}

void ParameterDialogs::cmdUpdate_Click() {
  const FrmEditParameters& edit = frmEditParameters;
  const double classNumber = NumberIn(edit.txtClass);
  const double parameter = NumberIn(edit.txtParameter);
  const std::string refusal = Refusal(classNumber, parameter);
  if (!refusal.empty()) {
    platform_.dialogs.Show({.text = refusal, .buttons = BoxButtons::kOkCancel, .icon = BoxIcon::kCritical});
    return;
  }
  AddParameter({.Class = static_cast<std::int16_t>(classNumber),
                .Parameter = static_cast<std::int16_t>(parameter),
                .Description = edit.txtDescription.Text(),
                .Value = Int16Of(LeadingNumberOf(edit.txtValue.Text()))});
  vars_.ConfigSaved = false;
  frmEditParameters.Clear();
  frmEditParameters.SetVisible(false);
}

/// The texts name another limit than the checks apply; operators look them up as they are.
std::string ParameterDialogs::Refusal(double classNumber, double parameter) const {
  if (!InRange(classNumber)) return "Inavlid Class input, Enter a number between 0 and 64";
  if (classNumber == kReservedClass) return "Invalid Class input";
  if (!InRange(parameter)) return "Inavlid Parameter input, Enter a number between 0 and 64";
  if (IsParameterPresent(classNumber, parameter)) return "Entry already found in parameters list";
  if (IsParameterRetired(classNumber, parameter)) return "Entry is invalid, retired parameter";
  return {};
}

bool ParameterDialogs::IsParameterPresent(double classNumber, double parameter) const {
  return Holds(vars_.SystemParameters, classNumber, parameter);
}

bool ParameterDialogs::IsParameterRetired(double classNumber, double parameter) const {
  return Holds(database_.ReadDeletedParameters(), classNumber, parameter);
}

void ParameterDialogs::AddParameter(SystemParameterRec parameter) {
  vars_.SystemParameters.push_back(std::move(parameter));
  ++vars_.NextParameterClass;
  list_.bClass_Click();
  platform_.dialogs.Show(
      {.text = "The new parameter has been added to this configuration.", .icon = BoxIcon::kInformation});
}

void ParameterDialogs::mnuRemoveParameter_Click() {
  if (frmDeleteParameter.Visible()) return;
  LoadDeletable();
  platform_.dialogs.ShowModal(frmDeleteParameter);
}

/// Lists only parameters that were added: the next load would bring back the system's own.
void ParameterDialogs::LoadDeletable() {
  const std::vector<SystemParameterRec> own = database_.ReadSystemParameters();
  ListView& shown = frmDeleteParameter.lstParameter;
  shown.SetColumns({"Class", "Parameter", "Description", "Value", "Index"});
  for (const SystemParameterRec& record : vars_.SystemParameters) {
    if (Holds(own, record.Class, record.Parameter)) continue;
    shown.AddRow({std::to_string(record.Class), std::to_string(record.Parameter), record.Description,
                  std::to_string(record.Value), std::to_string(shown.Count())});
  }
}

void ParameterDialogs::Command2_Click() {
  ListView& shown = frmDeleteParameter.lstParameter;
  if (shown.Count() == 0) return;
  if (shown.Selected() < 0) {
    platform_.dialogs.Tell("Select a parameter to delete");
    return;
  }
  const ListView::Row row = shown.Rows()[static_cast<std::size_t>(shown.Selected())];
  RemoveParameter(std::stoi(row[0]), std::stoi(row[1]));
  list_.bClass_Click();
  // The list went to the unit meanwhile, and the operator may have clicked in between.
  const auto place = std::find(shown.Rows().begin(), shown.Rows().end(), row);
  if (place != shown.Rows().end()) shown.RemoveRow(static_cast<int>(place - shown.Rows().begin()));
  platform_.dialogs.Tell("The Parameter entry has been deleted");
  if (shown.Count() > 0) shown.Select(0);
}

void ParameterDialogs::RemoveParameter(int classNumber, int parameter) {
  std::vector<SystemParameterRec> kept;
  for (const SystemParameterRec& record : vars_.SystemParameters) {
    if (!HasKey(record, classNumber, parameter)) kept.push_back(record);
  }
  if (kept.empty()) throw SubscriptOutOfRange();
  vars_.SystemParameters = std::move(kept);
  vars_.ConfigSaved = false;
}

}  // namespace marlinset

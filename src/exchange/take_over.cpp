// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/take_over.h"

#include <algorithm>
#include <map>
#include <string_view>

#include "base/text.h"
#include "controls/guard.h"
#include "core/frm_start.h"
#include "core/variables.h"
#include "exchange/panel_writer.h"
#include "files/panel_document.h"
#include "link/whole_send.h"
#include "platform/platform.h"

namespace marlinset {

namespace {

RuntimeError NotThere(const std::string& name) {
  return {kErrInvalidCall, "The panels have no value " + Quoted(name) + " that can be set."};
}

}  // namespace

/// A value on its way to its control.
struct TakeOver::Place {
  const QcfField* field;
  int record;
  SingleValue value;
};

TakeOver::TakeOver(Platform& platform, Variables& variables, FrmStart& form, PanelSetup& panels,
                   WholeSend& wholeSend)
    : platform_(platform), vars_(variables), form_(form), panels_(panels), wholeSend_(wholeSend) {}

std::string TakeOverName(const std::string& fileName) {
  return "Take Over from " + fileName;
}

bool TakeOver::CanSet(const QcfField& field) {
  return field.use != QcfUse::kVersion && field.use != QcfUse::kOperatingMode && !field.identifies;
}

std::vector<NewValue> TakeOver::Chosen(const std::vector<ComparedValue>& differences,
                                       const std::vector<std::string>& names) const {
  const std::vector<QcfNamedValue> present = ValuesOf(DocumentOfPanels(vars_, form_));
  std::vector<NewValue> values;
  for (const std::string& name : names) {
    if (std::ranges::find(values, name, &NewValue::name) != values.end()) continue;
    const auto row = std::ranges::find(differences, name, &ComparedValue::name);
    if (row != differences.end()) {
      if (row->OneSided()) {
        throw RuntimeError(kErrInvalidCall, "Only one side has " + Quoted(name) + ".");
      }
      values.push_back({name, *row->there});
      continue;
    }
    const auto mine = std::ranges::find(present, name, &QcfNamedValue::name);
    if (mine == present.end() || !CanSet(*mine->field)) throw NotThere(name);
  }
  return values;
}

std::vector<NewValue> TakeOver::All(const std::vector<ComparedValue>& differences) {
  std::vector<NewValue> values;
  for (const ComparedValue& row : differences) {
    if (!row.OneSided()) values.push_back({row.name, *row.there});
  }
  return values;
}

void TakeOver::Set(const std::string& action, const std::vector<NewValue>& values) {
  if (platform_.guard.AtWork() > 0) {
    throw RuntimeError(kErrInvalidCall, "The tool is waiting for the unit. Try again when it is done.");
  }
  const std::vector<Place> places = PlacesOf(values);
  if (places.empty()) return;
  platform_.guard.RunFor(form_.mnuCompare, [&] {
    platform_.guard.Name(action);
    wholeSend_.SendChangesOf([&] { SetPlaces(places); });
  });
}

/// Leaves out what the panels have already.
std::vector<TakeOver::Place> TakeOver::PlacesOf(const std::vector<NewValue>& values) const {
  std::map<std::string_view, const QcfNamedValue*> byName;
  const std::vector<QcfNamedValue> present = ValuesOf(DocumentOfPanels(vars_, form_));
  for (const QcfNamedValue& value : present) byName.emplace(value.name, &value);
  const PanelWriter writer(vars_, form_, panels_);
  std::vector<Place> places;
  for (const NewValue& wanted : values) {
    const auto found = byName.find(wanted.name);
    if (found == byName.end() || !CanSet(*found->second->field)) {
      throw NotThere(wanted.name);
    }
    const QcfNamedValue& mine = *found->second;
    if (!writer.Takes(*mine.field, mine.record, wanted.value)) {
      throw RuntimeError(kErrBadProperty, Quoted(wanted.name) + " does not take this value.");
    }
    if (mine.value != wanted.value) places.push_back({mine.field, mine.record, wanted.value});
  }
  return places;
}

void TakeOver::SetPlaces(const std::vector<Place>& places) {
  PanelWriter writer(vars_, form_, panels_);
  for (const Place& place : places) writer.Set(*place.field, place.record, place.value);
  vars_.ConfigSaved = false;
}

}  // namespace marlinset

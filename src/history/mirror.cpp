// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/mirror.h"

#include <set>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>

#include "core/frm_start.h"
#include "core/record_columns.h"
#include "core/variables.h"
#include "history/scope.h"

namespace marlinset {
namespace {

// Numbers of what is no control.
constexpr std::uint32_t kVariables = 0, kWindows = 1, kParameters = 2;
constexpr unsigned kIndexBits = 16;

constexpr ThingKey Key(std::uint32_t number, int index) {
  return (number << kIndexBits) | static_cast<std::uint32_t>(index + 1);
}
constexpr std::uint32_t NumberIn(ThingKey thing) {
  return thing >> kIndexBits;
}
constexpr int IndexIn(ThingKey thing) {
  return static_cast<int>(thing & ((1U << kIndexBits) - 1)) - 1;
}

/// Runs `number` or `text` with each variable that belongs to the configuration without being shown.
template <class Vars, class Number, class Text>
void ForVariables(Vars& vars, const Number& number, const Text& text) {
  text(vars.OperatingMode);
  text(vars.ParDisType);
  number(vars.CurCharMaxRow);
  number(vars.NextParameterClass);
  number(vars.VsLastIndex);
  for (auto& index : vars.TbLastIndex) number(index);
  for (auto& index : vars.UbLastIndex) number(index);
  for (auto& line : vars.VitcLineDefault) number(line);
}

template <class Rec>
void Pack(const Rec& record, FieldPacker& packer) {
  for (const RecordColumn<Rec>& column : Rec::kColumns) {
    std::visit(
        [&](auto field) {
          if constexpr (std::is_same_v<decltype(field), std::string Rec::*>) {
            packer.Text(record.*field);
          } else {
            packer.Number(static_cast<std::int64_t>(record.*field));
          }
        },
        column.field);
  }
}

/// Leaves what no column holds, a window's highlight, as it is.
template <class Rec>
void Restore(Rec& record, std::string_view state) {
  FieldReader fields(state);
  for (const RecordColumn<Rec>& column : Rec::kColumns) {
    std::visit(
        [&](auto field) {
          using Value = std::remove_reference_t<decltype(record.*field)>;
          if constexpr (std::is_same_v<Value, std::string>) {
            record.*field = fields.Text();
          } else {
            record.*field = static_cast<Value>(fields.Number());
          }
        },
        column.field);
  }
}

/// Records come and go at the end of their array.
template <class Rec>
void RestoreRecord(std::vector<Rec>& records, int index, const std::optional<std::string>& state) {
  const auto place = static_cast<std::size_t>(index);
  if (!state) {
    if (place < records.size()) records.resize(place);
    return;
  }
  if (place >= records.size()) records.resize(place + 1);
  Restore(records[place], *state);
}

}  // namespace

Mirror::Mirror(Variables& variables, FrmStart& form) : vars_(variables), form_(form) {
  for (const std::uint32_t number : {kVariables, kWindows, kParameters}) {
    names_.push_back({});
    numbers_[std::string(1, static_cast<char>(number))] = number;  // no control has such a name
  }
}

void Mirror::Begin() {
  states_.clear();
  windows_ = parameters_ = 0;
  form_.NoteTouches();
  form_.TakeTouches();
  Changes all;
  for (const Control* control : form_.Controls()) {
    const auto key = KeyOf(*control);
    if (!key) continue;
    packer_.Clear();
    control->PackState(packer_);
    states_[*key] = packer_.Bytes();
  }
  LookAtVariables(all);
}

std::uint32_t Mirror::NumberOf(const std::string& control) {
  const auto found = numbers_.find(control);
  if (found != numbers_.end()) return found->second;
  const auto number = static_cast<std::uint32_t>(names_.size());
  names_.push_back({control});
  numbers_[control] = number;
  return number;
}

std::optional<ThingKey> Mirror::KeyOf(const Control& control) {
  const std::size_t known = names_.size();
  const std::uint32_t number = NumberOf(control.Name());
  if (number == known) names_[number].belongs = BelongsToConfiguration(control);
  return names_[number].belongs ? std::optional(Key(number, control.Index())) : std::nullopt;
}

Control* Mirror::ControlOf(ThingKey thing) const {
  const std::string& control = names_[NumberIn(thing)].control;
  return control.empty() ? nullptr : form_.Find(control, IndexIn(thing));
}

/// Notes a change; a null state means that the thing is not there any more.
void Mirror::Compare(ThingKey thing, const std::string* state, Changes& changes) {
  const auto found = states_.find(thing);
  const bool known = found != states_.end();
  if (!known && !state) return;
  if (known && state && found->second == *state) return;
  Change& change = changes.emplace_back(Change{.thing = thing, .before = {}, .after = {}});
  if (state) change.after = *state;
  if (!known) {
    states_[thing] = *state;
    return;
  }
  change.before = std::move(found->second);
  if (state) {
    found->second = *state;
  } else {
    states_.erase(found);
  }
}

Changes Mirror::Look() {
  Changes changes;
  LookAtControls(changes);
  LookAtVariables(changes);
  return changes;
}

void Mirror::LookAtControls(Changes& changes) {
  const Form::Touches touches = form_.TakeTouches();
  for (const Control* control : touches.changed) {
    if (!control) continue;
    const auto key = KeyOf(*control);
    if (!key) continue;
    packer_.Clear();
    control->PackState(packer_);
    Compare(*key, &packer_.Bytes(), changes);
  }
  for (const auto& [name, index] : touches.gone) {
    const auto number = numbers_.find(name);
    if (number == numbers_.end()) continue;
    const ThingKey key = Key(number->second, index);
    if (states_.contains(key) && !form_.Find(name, index)) Compare(key, nullptr, changes);
  }
}

void Mirror::LookAtVariables(Changes& changes) {
  packer_.Clear();
  ForVariables(
      std::as_const(vars_), [this](auto number) { packer_.Number(number); },
      [this](const std::string& text) { packer_.Text(text); });
  Compare(Key(kVariables, kNoIndex), &packer_.Bytes(), changes);
  LookAtRecords(vars_.CharWindows, kWindows, changes);
  LookAtRecords(vars_.SystemParameters, kParameters, changes);
}

template <class Rec>
void Mirror::LookAtRecords(const std::vector<Rec>& records, std::uint32_t number, Changes& changes) {
  std::size_t& known = number == kWindows ? windows_ : parameters_;
  for (std::size_t i = 0; i < records.size(); ++i) {
    packer_.Clear();
    Pack(records[i], packer_);
    Compare(Key(number, static_cast<int>(i)), &packer_.Bytes(), changes);
  }
  for (std::size_t i = records.size(); i < known; ++i) {
    Compare(Key(number, static_cast<int>(i)), nullptr, changes);
  }
  known = records.size();
}

void Mirror::RestoreVariables(std::string_view state) {
  FieldReader fields(state);
  ForVariables(
      vars_,
      [&](auto& number) { number = static_cast<std::remove_reference_t<decltype(number)>>(fields.Number()); },
      [&](std::string& text) { text = fields.Text(); });
}

/// Adds and removes the controls of rows, row by row, as a load does.
void Mirror::ArrangeRows(const Changes& changes) {
  std::set<std::pair<std::string_view, int>> added, removed;
  std::set<int> rows;
  for (const Change& change : changes) {
    const std::string& control = names_[NumberIn(change.thing)].control;
    const bool wanted = change.after.has_value();
    const int index = IndexIn(change.thing);
    if (control.empty() || wanted == (form_.Find(control, index) != nullptr)) continue;
    (wanted ? added : removed).emplace(control, index);
    rows.insert(index);
  }
  for (const int row : rows) {
    const auto arrange = [&](auto& array) {
      if (added.contains({array.Name(), row})) array.Load(row);
      if (removed.contains({array.Name(), row})) array.Unload(row);
    };
    form_.ForWindowRow(arrange);
    form_.ForParameterRow(arrange);
  }
}

void Mirror::Apply(const Changes& changes) {
  for (const Change& change : changes) {
    const std::uint32_t number = NumberIn(change.thing);
    if (number == kVariables) RestoreVariables(*change.after);
    if (number == kWindows) RestoreRecord(vars_.CharWindows, IndexIn(change.thing), change.after);
    if (number == kParameters) RestoreRecord(vars_.SystemParameters, IndexIn(change.thing), change.after);
  }
  ArrangeRows(changes);
  for (const Change& change : changes) {
    Control* control = change.after ? ControlOf(change.thing) : nullptr;
    if (!control) continue;
    FieldReader fields(*change.after);
    control->RestoreState(fields);
  }
  Look();
}

}  // namespace marlinset

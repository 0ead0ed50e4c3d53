// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/unit/unit_json.h"

#include <nlohmann/json.hpp>
#include <optional>
#include <utility>

namespace marlinset {
namespace {

/// Members stay in the order in which they are added.
using Json = nlohmann::ordered_json;

template <class T>
Json OrNull(const std::optional<T>& value) {
  return value ? Json(*value) : Json();
}

/// An object even if nothing is added to it.
template <class Members, class KeyText, class Value>
Json Object(const Members& members, KeyText keyText, Value value) {
  Json object = Json::object();
  for (const auto& [key, member] : members) object[keyText(key)] = value(member);
  return object;
}

std::string ParameterKey(UnitMemory::Key key) {
  return std::to_string(key.first) + "/" + std::to_string(key.second);
}

std::string NumberKey(int key) {
  return std::to_string(key);
}

template <class T>
Json AsIs(const T& value) {
  return value;
}

Json HeldJson(const UnitMemory& memory) {
  Json held = Json::object();
  for (const UnitCommand& command : UnitCommands()) {
    const auto found = memory.All().find(command.name);
    if (found == memory.All().end()) continue;
    const auto keyText = [&](UnitMemory::Key key) {
      return command.key == SettingKey::kClassParameter ? ParameterKey(key) : NumberKey(key.first);
    };
    const Json settings = Object(found->second, keyText, AsIs<Bytes>);
    held[std::string(command.name)] = command.key == SettingKey::kNone ? settings.front() : settings;
  }
  return held;
}

Json WindowJson(const UnitWindow& window) {
  return {{"on", window.on},         {"slate", window.slate},       {"doubleHeight", window.doubleHeight},
          {"symbol", window.symbol}, {"field", window.fieldDigit},  {"highlighted", window.highlighted},
          {"row", window.row},       {"position", window.position}, {"length", window.length}};
}

Json VitcJson(const UnitMemory& memory) {
  const auto lines = memory.VitcLines();
  return {{"on", OrNull(memory.VitcOn())},
          {"source", OrNull(memory.VitcSource())},
          {"lines", lines ? Json(lines->line) : Json()},
          {"duplicates", lines ? Json(lines->duplicate) : Json()}};
}

}  // namespace

std::string StateJson(const UnitModel& unit) {
  const UnitMemory& memory = unit.Memory();
  const Json state = {
      {"model", unit.Model()},
      {"standard", unit.Standard()},
      {"manual", unit.Manual()},
      {"video", unit.Video()},
      {"local", unit.Local()},
      {"broadcast", unit.Broadcasting()},
      {"held", HeldJson(memory)},
      {"parameters", Object(memory.Parameters(), ParameterKey, AsIs<int>)},
      {"routing", Object(memory.Routing(), NumberKey, AsIs<int>)},
      {"windows", Object(memory.Windows(), NumberKey, WindowJson)},
      {"vitc", VitcJson(memory)},
      {"whiteFlag", {{"on", OrNull(memory.WhiteFlagOn())}, {"line", OrNull(memory.WhiteFlagLine())}}},
      {"inserter",
       {{"on", OrNull(memory.CharOnOff())},
        {"size", OrNull(memory.CharSize())},
        {"style", OrNull(memory.CharStyle())}}},
      {"slate", {{"duration", OrNull(memory.SlateDuration())}, {"mode", OrNull(memory.SlateMode())}}},
      {"message", OrNull(memory.Message())},
      {"converter",
       {{"aspect", OrNull(memory.DownConverter())}, {"control", OrNull(memory.DownConverterControl())}}},
      {"sdiProgramOut", OrNull(memory.SdiProgramOut())}};
  // A message holds whatever arrived on the line.
  return state.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace marlinset

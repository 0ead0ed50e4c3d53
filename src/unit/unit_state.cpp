// SPDX-License-Identifier: GPL-3.0-or-later
#include "unit/unit_state.h"

#include <optional>

namespace marlinset {
namespace {

constexpr char kDigits[] = "0123456789abcdef";

// JSON text of a value: what the state needs and no more.

std::string Json(bool value) {
  return value ? "true" : "false";
}

std::string Json(int value) {
  return std::to_string(value);
}

std::string Json(const std::string& text) {
  std::string quoted = "\"";
  for (const char c : text) {
    const auto code = static_cast<unsigned char>(c);
    if (code < 0x20) {
      quoted += std::string("\\u00") + kDigits[code >> 4U] + kDigits[code & 15U];
      continue;
    }
    if (c == '"' || c == '\\') quoted += '\\';
    quoted += c;
  }
  return quoted + "\"";
}

template <class Numbers>
std::string JsonList(const Numbers& numbers) {
  std::string list;
  for (const int number : numbers) list += (list.empty() ? "" : ",") + std::to_string(number);
  return "[" + list + "]";
}

template <class T>
std::string Json(const std::optional<T>& value) {
  return value ? Json(*value) : "null";
}

std::string Json(const std::optional<std::array<int, 3>>& value) {
  return value ? JsonList(*value) : "null";
}

class JsonObject {
 public:
  template <class T>
  JsonObject& Add(const std::string& name, const T& value) {
    return AddRaw(name, Json(value));
  }
  JsonObject& AddRaw(const std::string& name, const std::string& json) {
    members_ += (members_.empty() ? "" : ",") + Json(name) + ":" + json;
    return *this;
  }
  std::string Text() const { return "{" + members_ + "}"; }

 private:
  std::string members_;
};

std::string KeyText(SettingKey kind, UnitMemory::Key key) {
  const std::string first = std::to_string(key.first);
  return kind == SettingKey::kClassParameter ? first + "/" + std::to_string(key.second) : first;
}

std::string HeldJson(const UnitMemory& memory) {
  JsonObject held;
  for (const UnitCommand& command : UnitCommands()) {
    const auto found = memory.All().find(command.name);
    if (found == memory.All().end()) continue;
    JsonObject settings;
    for (const auto& [key, fields] : found->second)
      settings.AddRaw(KeyText(command.key, key), JsonList(fields));
    const bool single = command.key == SettingKey::kNone;
    held.AddRaw(std::string(command.name),
                single ? JsonList(found->second.begin()->second) : settings.Text());
  }
  return held.Text();
}

std::string ParametersJson(const UnitMemory& memory) {
  JsonObject all;
  for (const auto& [key, value] : memory.Parameters())
    all.Add(KeyText(SettingKey::kClassParameter, key), value);
  return all.Text();
}

std::string RoutingJson(const UnitMemory& memory) {
  JsonObject all;
  for (const auto& [selector, code] : memory.Routing()) all.Add(std::to_string(selector), code);
  return all.Text();
}

std::string WindowsJson(const UnitMemory& memory) {
  JsonObject all;
  for (const auto& [number, window] : memory.Windows()) {
    JsonObject one;
    one.Add("on", window.on).Add("slate", window.slate).Add("doubleHeight", window.doubleHeight);
    one.Add("symbol", window.symbol).Add("field", window.fieldDigit);
    one.Add("highlighted", window.highlighted).Add("row", window.row);
    one.Add("position", window.position).Add("length", window.length);
    all.AddRaw(std::to_string(number), one.Text());
  }
  return all.Text();
}

std::string VitcJson(const UnitMemory& memory) {
  const auto lines = memory.VitcLines();
  JsonObject vitc;
  vitc.Add("on", memory.VitcOn()).Add("source", memory.VitcSource());
  vitc.AddRaw("lines", lines ? JsonList(lines->line) : "null");
  vitc.AddRaw("duplicates", lines ? JsonList(lines->duplicate) : "null");
  return vitc.Text();
}

}  // namespace

std::string StateJson(const UnitModel& unit) {
  const UnitMemory& memory = unit.Memory();
  JsonObject whiteFlag;
  whiteFlag.Add("on", memory.WhiteFlagOn()).Add("line", memory.WhiteFlagLine());
  JsonObject inserter;
  inserter.Add("on", memory.CharOnOff()).Add("size", memory.CharSize()).Add("style", memory.CharStyle());
  JsonObject slate;
  slate.Add("duration", memory.SlateDuration()).Add("mode", memory.SlateMode());
  JsonObject converter;
  converter.Add("aspect", memory.DownConverter()).Add("control", memory.DownConverterControl());

  JsonObject state;
  state.Add("model", unit.Model()).Add("standard", unit.Standard()).Add("manual", unit.Manual());
  state.Add("video", unit.Video()).Add("local", unit.Local()).Add("broadcast", unit.Broadcasting());
  state.AddRaw("held", HeldJson(memory)).AddRaw("parameters", ParametersJson(memory));
  state.AddRaw("routing", RoutingJson(memory)).AddRaw("windows", WindowsJson(memory));
  state.AddRaw("vitc", VitcJson(memory)).AddRaw("whiteFlag", whiteFlag.Text());
  state.AddRaw("inserter", inserter.Text()).AddRaw("slate", slate.Text());
  state.Add("message", memory.Message()).AddRaw("converter", converter.Text());
  state.Add("sdiProgramOut", memory.SdiProgramOut());
  return state.Text();
}

std::string HexOf(const Bytes& bytes) {
  std::string hex;
  for (const std::uint8_t byte : bytes) {
    hex += kDigits[byte >> 4U];
    hex += kDigits[byte & 15U];
  }
  return hex;
}

}  // namespace marlinset

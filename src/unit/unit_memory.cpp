// SPDX-License-Identifier: GPL-3.0-or-later
#include "unit/unit_memory.h"

#include <algorithm>

#include "base/text.h"

namespace marlinset {
namespace {

// The first data byte of a message's fields.
constexpr std::size_t kData = 3;

// Flag byte of a window.
constexpr int kFieldDigit = 2;
constexpr int kSymbol = 4;
constexpr int kDoubleHeight = 16;
constexpr int kSlate = 32;
constexpr int kOn = 64;
constexpr int kHighlighted = 128;

UnitMemory::Key KeyOf(const UnitCommand& command, std::span<const std::uint8_t> fields) {
  switch (command.key) {
    case SettingKey::kFirst:
      return {fields[kData], 0};
    case SettingKey::kClassParameter:
      return {fields[kData + 1], fields[kData]};
    case SettingKey::kNone:
      break;
  }
  return {};
}

UnitWindow WindowOf(const Bytes& fields) {
  const int flags = fields[kData + 1];
  UnitWindow window;
  window.on = (flags & kOn) != 0;
  window.slate = (flags & kSlate) != 0;
  window.doubleHeight = (flags & kDoubleHeight) != 0;
  window.symbol = (flags & kSymbol) != 0;
  window.fieldDigit = (flags & kFieldDigit) != 0;
  window.highlighted = (flags & kHighlighted) != 0;
  window.row = fields[kData + 2];
  window.position = fields[kData + 3];
  window.length = fields[kData + 4];
  return window;
}

std::int32_t ParameterOf(const Bytes& fields) {
  std::uint32_t value = 0;
  for (std::size_t i = 4; i > 0; --i) value = value << 8U | fields[kData + 1 + i];
  return static_cast<std::int32_t>(value);
}

}  // namespace

void UnitMemory::Keep(const UnitCommand& command, std::span<const std::uint8_t> fields) {
  if (!command.opposite.empty()) held_.erase(command.opposite);
  held_[command.name][KeyOf(command, fields)] = Bytes(fields.begin(), fields.end());
}

const std::map<UnitMemory::Key, Bytes>& UnitMemory::Settings(std::string_view command) const {
  static const std::map<Key, Bytes> kNothing;
  const auto found = held_.find(command);
  return found == held_.end() ? kNothing : found->second;
}

const Bytes* UnitMemory::Held(std::string_view command, Key key) const {
  const auto& settings = Settings(command);
  const auto found = settings.find(key);
  return found == settings.end() ? nullptr : &found->second;
}

std::optional<int> UnitMemory::Value(std::string_view command) const {
  const Bytes* fields = Held(command);
  return fields ? std::optional<int>((*fields)[kData]) : std::nullopt;
}

std::optional<bool> UnitMemory::OnOff(std::string_view on, std::string_view off) const {
  if (Held(on)) return true;
  return Held(off) ? std::optional(false) : std::nullopt;
}

std::map<UnitMemory::Key, std::int32_t> UnitMemory::Parameters() const {
  std::map<Key, std::int32_t> all;
  for (const auto& [key, fields] : Settings("cmdSetParameter")) all[key] = ParameterOf(fields);
  all.erase(Key{});
  return all;
}

std::map<int, int> UnitMemory::Routing() const {
  std::map<int, int> all;
  for (const auto& [key, fields] : Settings("cmdInputAssign")) all[key.first] = fields[kData + 1];
  return all;
}

std::map<int, UnitWindow> UnitMemory::Windows() const {
  std::map<int, UnitWindow> all;
  for (const auto& [key, fields] : Settings("cmdWindow")) all[key.first] = WindowOf(fields);
  return all;
}

std::optional<UnitVitcLines> UnitMemory::VitcLines() const {
  const Bytes* fields = Held("cmdVitcLines");
  if (!fields) return std::nullopt;
  UnitVitcLines lines;
  for (std::size_t i = 0; i < lines.line.size(); ++i) {
    lines.line[i] = (*fields)[kData + 2 * i];
    lines.duplicate[i] = (*fields)[kData + 2 * i + 1];
  }
  return lines;
}

std::optional<int> UnitMemory::SlateDuration() const {
  const Bytes* fields = Held("cmdSlateDuration");
  if (!fields) return std::nullopt;
  return (*fields)[kData] * 256 + (*fields)[kData + 1];
}

std::optional<std::string> UnitMemory::Message() const {
  const Bytes* fields = Held("cmdText");
  if (!fields) return std::nullopt;
  Bytes text(fields->begin() + kData + 1, fields->end());
  while (!text.empty() && text.back() == 0) text.pop_back();
  return FromCodePage(text);
}

std::optional<std::array<int, 3>> UnitMemory::DownConverterControl() const {
  const Bytes* fields = Held("cmdDownConverterControl");
  if (!fields) return std::nullopt;
  return std::array<int, 3>{(*fields)[kData], (*fields)[kData + 1], (*fields)[kData + 2]};
}

}  // namespace marlinset

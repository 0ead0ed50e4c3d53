// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace marlinset {

/// What the unit does with a command.
enum class UnitAction : std::uint8_t {
  kSelect,       ///< answers only when asked from now on
  kBroadcast,    ///< sends unasked from now on
  kSetStandard,  ///< takes a video standard if the selection is manual; no answer
  kVideoSense,   ///< answers with its video status
  kIdentify,     ///< answers with its model
  kFirmware,     ///< answers with its firmware text
  kSetting,      ///< stores the setting and acknowledges it
};

/// What distinguishes the settings of one command.
enum class SettingKey : std::uint8_t {
  kNone,            ///< the command is one setting
  kFirst,           ///< by the first data byte: a window's number, a selector
  kClassParameter,  ///< by class (second data byte) and parameter (first data byte)
};

/// One command that the unit knows.
struct UnitCommand {
  std::string_view name;
  std::uint8_t address;
  std::uint8_t packetId;
  std::uint8_t command;
  std::uint8_t fewestFields;  ///< counting address, packet id and command
  std::uint8_t mostFields;
  UnitAction action;
  SettingKey key = SettingKey::kNone;
  bool onlyHd7340Q = false;        ///< other models don't know the command
  std::string_view opposite = {};  ///< setting that this one replaces: on replaces off
};

/// The command of a message, by address, packet id and command; nullptr if there is none, or if the command
/// cannot have that number of fields.
const UnitCommand* FindUnitCommand(std::span<const std::uint8_t> fields);

/// All commands, in the order of their numbers.
std::span<const UnitCommand> UnitCommands();

}  // namespace marlinset

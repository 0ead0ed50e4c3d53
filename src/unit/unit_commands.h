// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace marlinset {

/// What the unit does with a command.
enum class UnitAction : std::uint8_t {
  kSelect,       ///< speaks only when spoken to from now on
  kBroadcast,    ///< speaks on its own from now on
  kSetStandard,  ///< takes a video standard while the selection is manual; no answer
  kVideoSense,   ///< answers with its video status
  kIdentify,     ///< answers with its model
  kFirmware,     ///< answers with its firmware text
  kSetting,      ///< keeps what it was told and acknowledges
};

/// What tells one setting of a command from another of the same command.
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
  std::string_view opposite = {};  ///< setting that this one takes the place of: on for off
};

/// The command of a message, by address, packet id and command; nullptr when there is none or when the number
/// of fields is not one that the command can have.
const UnitCommand* FindUnitCommand(std::span<const std::uint8_t> fields);

/// All commands, in the order of their numbers.
std::span<const UnitCommand> UnitCommands();

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "unit/unit_commands.h"

#include <algorithm>
#include <iterator>

namespace marlinset {
namespace {

using enum UnitAction;
using enum SettingKey;

// A text message holds 32 characters; a sender that cuts a longer text may leave empty bytes after them.
constexpr UnitCommand kCommands[] = {
    {"cmdSelect", 15, 0, 33, 3, 3, kSelect},
    {"cmdBroadcast", 15, 0, 34, 3, 3, kBroadcast},
    {"cmdSetVideoStandard", 15, 0, 36, 4, 4, kSetStandard},
    {"cmdVideoSense", 15, 0, 52, 3, 3, kVideoSense},
    {"cmdGetID", 15, 0, 53, 3, 3, kIdentify},
    {"cmdGetFirmware", 15, 0, 54, 4, 4, kFirmware},
    {"cmdSetParameter", 15, 0, 192, 9, 9, kSetting, kClassParameter},
    {"cmdVitcOn", 1, 5, 46, 3, 3, kSetting, kNone, false, "cmdVitcOff"},
    {"cmdVitcOff", 1, 5, 47, 3, 3, kSetting, kNone, false, "cmdVitcOn"},
    {"cmdWhiteFlagOn", 1, 5, 56, 3, 3, kSetting, kNone, false, "cmdWhiteFlagOff"},
    {"cmdWhiteFlagOff", 1, 5, 57, 3, 3, kSetting, kNone, false, "cmdWhiteFlagOn"},
    {"cmdVitcSource", 1, 5, 138, 4, 4, kSetting},
    {"cmdInputAssign", 1, 5, 160, 5, 5, kSetting, kFirst},
    {"cmdVitcLines", 1, 5, 163, 9, 9, kSetting},
    {"cmdWhiteFlagLine", 1, 5, 169, 5, 5, kSetting},
    {"cmdCharSize", 2, 8, 32, 4, 4, kSetting},
    {"cmdWindow", 2, 8, 33, 8, 8, kSetting, kFirst},
    {"cmdCharOnOff", 2, 8, 34, 4, 4, kSetting},
    {"cmdCharStyle", 2, 8, 35, 4, 4, kSetting},
    {"cmdSlateDuration", 2, 8, 36, 5, 5, kSetting},
    {"cmdSlateMode", 2, 8, 37, 4, 4, kSetting},
    {"cmdText", 2, 8, 40, 4, 255, kSetting},
    {"cmdDownConverter", 2, 8, 43, 4, 4, kSetting},
    {"cmdDownConverterControl", 2, 8, 45, 6, 6, kSetting, kNone, true},
    {"cmdSdiProgramOut", 2, 8, 46, 4, 4, kSetting, kNone, true},
};

}  // namespace

const UnitCommand* FindUnitCommand(std::span<const std::uint8_t> fields) {
  const auto* found = std::find_if(std::begin(kCommands), std::end(kCommands), [&](const UnitCommand& row) {
    return row.address == fields[0] && row.packetId == fields[1] && row.command == fields[2];
  });
  if (found == std::end(kCommands)) return nullptr;
  return fields.size() >= found->fewestFields && fields.size() <= found->mostFields ? found : nullptr;
}

std::span<const UnitCommand> UnitCommands() {
  return kCommands;
}

}  // namespace marlinset

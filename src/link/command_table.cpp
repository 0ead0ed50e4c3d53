// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/command_table.h"

#include <algorithm>
#include <iterator>

#include "base/text.h"
#include "core/choices.h"
#include "link/message_data.h"

namespace marlinset {
namespace {

using enum CommandId;

constexpr const char* kVitcError = "VITC Enable error";
constexpr const char* kFlagError = "White Flag Enable error";
constexpr const char* kFlagLineError = "White FlagLine Set error";
constexpr const char* kLinesError = "Input assignment VUB error";
constexpr const char* kSlateModeError = "Slate Mode Assignment error";
constexpr const char* kCharOnError = "Char On error";
constexpr const char* kCharOffError = "Char Off error";

constexpr Manner kSent{Ack::kNone};
constexpr Manner kAsked{Ack::kReply};
/// The routing panels share the slate mode's failure text for all their channels.
constexpr Manner kRouting{Ack::kStandard, kSlateModeError};

constexpr Manner Standard(const char* failure, int quotedField = kNoField) {
  return {Ack::kStandard, failure, quotedField};
}

// For each command: id, name, meaning, fixed fields and data; then its manner in the whole send and from a
// panel.
constexpr SettingCommand kCommands[] = {
    {kSelect, "cmdSelect", "Select mode", {15, 0, 33}, nullptr, kSent, kSent},
    {kBroadcast, "cmdBroadcast", "Broadcast mode", {15, 0, 34}, nullptr, kSent, kSent},
    {kSetVideoStandard, "cmdSetVideoStandard", "Video standard", {15, 0, 36}, AddStandard, kSent, kSent},
    {kVideoSense, "cmdVideoSense", "Video status?", {15, 0, 52}, nullptr, kAsked, kAsked},
    {kGetID, "cmdGetID", "Identification?", {15, 0, 53}, nullptr, kSent, kSent},
    {kGetFirmware, "cmdGetFirmware", "Firmware?", {15, 0, 54, 1}, nullptr, kSent, kSent},
    {kAutoSelection,
     "cmdSetParameter",
     "Automatic selection of the standard",
     {15, 0, 192, 0, 0, 0, 0, 0, 0},
     nullptr,
     kSent,
     kSent},
    {kManualSelection,
     "cmdSetParameter",
     "Manual selection of the standard",
     {15, 0, 192, 0, 0, 1, 0, 0, 0},
     nullptr,
     kSent,
     kSent},
    {kSetParameter,
     "cmdSetParameter",
     "Parameter",
     {15, 0, 192},
     AddParameter,
     Standard("Problem with parameter."),
     {Ack::kWholeInterval, "Problem with parameter."}},
    {kVitcOn, "cmdVitcOn", "VITC on", {1, 5, 46}, nullptr, Standard(kVitcError, 2), Standard(kVitcError, 2)},
    {kVitcOff,
     "cmdVitcOff",
     "VITC off",
     {1, 5, 47},
     nullptr,
     Standard(kVitcError, 2),
     Standard(kVitcError, 2)},
    {kWhiteFlagOn,
     "cmdWhiteFlagOn",
     "White flag on",
     {1, 5, 56},
     nullptr,
     Standard(kFlagError, 2),
     Standard(kFlagError, 2)},
    {kWhiteFlagOff,
     "cmdWhiteFlagOff",
     "White flag off",
     {1, 5, 57},
     nullptr,
     Standard(kFlagError, 2),
     Standard(kFlagError, 2)},
    {kVitcSource,
     "cmdVitcSource",
     "Number of VITC lines",
     {1, 5, 138},
     AddVitcSource,
     Standard("Problem setting VITC."),
     Standard("Problem setting VITC.")},
    {kAssignTC,
     "cmdInputAssign",
     "Input, time bits",
     {1, 5, 160, 32},
     ChoiceId::kInputTimeBits,
     Standard("Input assignment TC error"),
     kRouting},
    {kAssignUB,
     "cmdInputAssign",
     "Input, user bits",
     {1, 5, 160, 33},
     ChoiceId::kInputUserBits,
     Standard("Input assignment UB error"),
     kRouting},
    {kAssignAT,
     "cmdInputAssign",
     "Channel AT",
     {1, 5, 160, 34, 0},
     nullptr,
     Standard("Input assignment AT error"),
     kRouting},
    {kAssignAU,
     "cmdInputAssign",
     "Channel AU",
     {1, 5, 160, 35, 0},
     nullptr,
     Standard("Input assignment AU error"),
     kRouting},
    {kAssignLK,
     "cmdInputAssign",
     "Channel LK",
     {1, 5, 160, 36, 0},
     nullptr,
     Standard("Input assignment LK error"),
     kRouting},
    {kAssignLI,
     "cmdInputAssign",
     "Channel LI",
     {1, 5, 160, 37, 0},
     nullptr,
     Standard("Input assignment LI error"),
     kRouting},
    {kAssignLTB,
     "cmdInputAssign",
     "LTC, time bits",
     {1, 5, 160, 48},
     ChoiceId::kLtcTimeBits,
     Standard("Input assignment LTB error"),
     kRouting},
    {kAssignLUB,
     "cmdInputAssign",
     "LTC, user bits",
     {1, 5, 160, 49},
     ChoiceId::kLtcUserBits,
     Standard("Input assignment LUB error"),
     kRouting},
    {kAssignVTB,
     "cmdInputAssign",
     "VITC 1st line, time bits",
     {1, 5, 160, 50},
     ChoiceId::kVitc1TimeBits,
     Standard("Input assignment VTB error"),
     kRouting},
    {kAssignVUB,
     "cmdInputAssign",
     "VITC 1st line, user bits",
     {1, 5, 160, 51},
     ChoiceId::kVitc1UserBits,
     Standard("Input assignment VUB error"),
     kRouting},
    {kAssignV2,
     "cmdInputAssign",
     "VITC 2nd line",
     {1, 5, 160, 52},
     ChoiceId::kVitc2TimeBits,
     Standard("Input assignment V2 error"),
     kRouting},
    {kAssignV3TB,
     "cmdInputAssign",
     "VITC 3rd line, time bits",
     {1, 5, 160, 53},
     ChoiceId::kVitc3TimeBits,
     Standard("Input assignment V3TB error"),
     kRouting},
    {kAssignV3UB,
     "cmdInputAssign",
     "VITC 3rd line, user bits",
     {1, 5, 160, 54},
     ChoiceId::kVitc3UserBits,
     Standard("Input assignment V3UB error"),
     kRouting},
    {kVitcLines,
     "cmdVitcLines",
     "VITC lines",
     {1, 5, 163},
     AddVitcLines,
     Standard(kLinesError),
     Standard(kLinesError)},
    {kWhiteFlagLine,
     "cmdWhiteFlagLine",
     "White flag line",
     {1, 5, 169},
     AddWhiteFlagLine,
     Standard(kFlagLineError, 3),
     Standard(kFlagLineError, 2)},
    {kCharSize,
     "cmdCharSize",
     "Font size",
     {2, 8, 32},
     ChoiceId::kFontSize,
     {Ack::kLong, "Char Size Assignment error"},
     {Ack::kLockedSlow, "Char Size Assignment error"}},
    {kWindow,
     "cmdWindow",
     "Window",
     {2, 8, 33},
     AddWindow,
     Standard("Window Assignment error"),
     Standard("Window Assignment error")},
    {kCharOff,
     "cmdCharOnOff",
     "Characters off",
     {2, 8, 34, 0},
     nullptr,
     Standard(kCharOffError),
     Standard(kCharOffError)},
    {kCharOn,
     "cmdCharOnOff",
     "Characters on",
     {2, 8, 34, 1},
     nullptr,
     Standard(kCharOnError),
     Standard(kCharOnError)},
    // Both halves of the off-and-on around a font size share the failure text of the second one, as operators
    // know it.
    {kCharOffForSize,
     "cmdCharOnOff",
     "Characters off for the font size",
     {2, 8, 34, 0},
     nullptr,
     Standard(kCharOnError),
     {Ack::kLockedSlow, kCharOnError}},
    {kCharOnForSize,
     "cmdCharOnOff",
     "Characters on again",
     {2, 8, 34, 1},
     nullptr,
     Standard(kCharOnError),
     {Ack::kLocked, kCharOnError}},
    {kCharStyle,
     "cmdCharStyle",
     "Character style",
     {2, 8, 35},
     ChoiceId::kCharStyle,
     {Ack::kSlow, "Char Style Assignment error"},
     {Ack::kLockedSlow, "Char Style Assignment error"}},
    {kSlateDuration,
     "cmdSlateDuration",
     "Slate duration",
     {2, 8, 36},
     AddSlateDuration,
     Standard("Slate Duration Assignment error"),
     Standard("Slate Duration Assignment error")},
    {kSlateMode,
     "cmdSlateMode",
     "Slate mode",
     {2, 8, 37},
     ChoiceId::kSlateMode,
     Standard(kSlateModeError),
     {Ack::kLocked, kSlateModeError}},
    {kSlatePreview,
     "cmdSlateMode",
     "Slate preview",
     {2, 8, 37, 1},
     nullptr,
     Standard("Slate On error"),
     Standard("Slate On error")},
    {kText,
     "cmdText",
     "Text message",
     {2, 8, 40, 14},
     AddText,
     Standard("Text Assignment error"),
     Standard("Text Assignment error")},
    {kDownConverter,
     "cmdDownConverter",
     "Aspect ratio",
     {2, 8, 43},
     ChoiceId::kAspectRatio,
     Standard("Down Converter Assignment error"),
     {Ack::kSlow, "Down Converter Assignment error"}},
    {kDownConverterControl,
     "cmdDownConverterControl",
     "Processing mode and filters",
     {2, 8, 45},
     AddDownConverterControl,
     Standard("HD Downconverter Control Assignment error"),
     {Ack::kLockedSlow, "HD Down Converter Control Assignment error"}},
    {kSdiProgramOut,
     "cmdSdiProgramOut",
     "SDI program out",
     {2, 8, 46},
     ChoiceId::kSdiProgramOut,
     Standard("SDI Program Out Assignment error"),
     {Ack::kLockedSlow, "SDI Program Out Assignment error"}},
};

}  // namespace

const SettingCommand& CommandOf(CommandId id) {
  const auto* found = std::find_if(std::begin(kCommands), std::end(kCommands),
                                   [id](const auto& row) { return row.id == id; });
  if (found == std::end(kCommands)) throw SubscriptOutOfRange();
  return *found;
}

std::vector<std::uint8_t> BytesOf(std::span<const PacketField> fields) {
  std::vector<std::uint8_t> bytes;
  bytes.reserve(fields.size());
  for (const PacketField& field : fields) bytes.push_back(static_cast<std::uint8_t>(field.value_or(0)));
  return bytes;
}

std::vector<PacketField> FieldsOf(CommandId id) {
  const auto fixed = CommandOf(id).begin.All();
  return {fixed.begin(), fixed.end()};
}

bool IsQuery(std::span<const PacketField> fields) {
  static constexpr CommandId kQueries[] = {kVideoSense, kGetID, kGetFirmware};
  return std::ranges::any_of(
      kQueries, [fields](CommandId query) { return std::ranges::equal(FieldsOf(query), fields); });
}

const SettingCommand* CommandOfMessage(std::span<const PacketField> fields) {
  const SettingCommand* longest = nullptr;
  for (const SettingCommand& command : kCommands) {
    const auto begin = command.begin.All();
    if (begin.size() > fields.size() || (longest && begin.size() <= longest->begin.size)) continue;
    const auto matches = [](int a, const PacketField& b) { return a == b.value_or(0); };
    if (std::ranges::equal(begin, fields.first(begin.size()), matches)) longest = &command;
  }
  return longest;
}

Message MessageOf(const SettingCommand& command, const MessageSource& source) {
  Message message{FieldsOf(command.id), command.meaning};
  if (command.data.choice) AddChoice(*command.data.choice, source, message);
  if (command.data.add) command.data.add(source, message);
  return message;
}

std::optional<CommandId> CommandOfBox(const ComboBox& box) {
  const Choice* choice = ChoiceOfBox(box);
  if (!choice) return std::nullopt;
  const auto* found =
      std::ranges::find_if(kCommands, [choice](const auto& row) { return row.data.choice == choice->id; });
  return found == std::end(kCommands) ? std::nullopt : std::optional(found->id);
}

bool IsSendable(const SystemParameterRec& parameter) {
  return !IsInternalClass(parameter.Class);
}

std::string MessageText(std::string_view text) {
  return LeftOf(UpperOf(text), kMessageCharacters);
}

int MaxLeftOf(std::string_view text) {
  return static_cast<int>(kMessageCharacters) - static_cast<int>(LengthOf(text));
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/variables.h"

namespace marlinset {

class ComboBox;
class FrmStart;
enum class ChoiceId;

/// The messages that the tool sends to the unit. A command of the protocol has several ids if its message or
/// its failure text depends on the occasion.
enum class CommandId {
  kSelect,            ///< the unit sends only when asked
  kBroadcast,         ///< the unit also sends unasked
  kSetVideoStandard,  ///< the standard of comVS
  kVideoSense,
  kGetID,
  kGetFirmware,
  kAutoSelection,    ///< the unit follows the standard of its input
  kManualSelection,  ///< the unit takes its standard by command
  kSetParameter,     ///< `row` of SystemParameters
  kVitcOn,
  kVitcOff,
  kWhiteFlagOn,
  kWhiteFlagOff,
  kVitcSource,  ///< number of VITC lines
  kAssignTC,
  kAssignUB,
  kAssignAT,  ///< four channels without a control, always code 0
  kAssignAU,
  kAssignLK,
  kAssignLI,
  kAssignLTB,
  kAssignLUB,
  kAssignVTB,
  kAssignVUB,
  kAssignV2,
  kAssignV3TB,
  kAssignV3UB,
  kVitcLines,
  kWhiteFlagLine,
  kCharSize,
  kWindow,   ///< `row` of CharWindows
  kCharOff,  ///< the character inserter
  kCharOn,
  kCharOffForSize,  ///< off and on again around a change of the font size
  kCharOnForSize,
  kCharStyle,
  kSlateDuration,
  kSlateMode,
  kSlatePreview,  ///< shows the slate now, whatever its mode
  kText,
  kDownConverter,         ///< aspect ratio
  kDownConverterControl,  ///< processing mode and filters; model Q only
  kSdiProgramOut,         ///< model Q only
};

/// Who sends: the whole-configuration send, or the handler of a panel's control.
enum class Sender { kWholeSend, kPanel };

/// How an exchange ends.
enum class Ack {
  kNone,           ///< sent without awaiting an answer
  kReply,          ///< the answer is a frame; sends the query at most twice
  kStandard,       ///< acknowledged within dPause
  kLong,           ///< acknowledged within dPause set to 10 s, whose interval is then restored
  kSlow,           ///< acknowledged within TimerNew: the unit needs seconds to process it
  kLocked,         ///< as kStandard, and no panel sends meanwhile (UnitLocalMode)
  kLockedSlow,     ///< as kSlow, and no panel sends meanwhile
  kWholeInterval,  ///< lasts the full interval of dPause, even if the acknowledgement comes early
};

constexpr int kNoField = -1;

/// How an exchange ends for one kind of sender, and what the operator reads if it fails: a fixed text,
/// followed by the number in the message's field `quotedField` if there is one.
struct Manner {
  Ack ack = Ack::kStandard;
  const char* failure = "";
  int quotedField = kNoField;
};

/// What a message takes its data from.
struct MessageSource {
  const FrmStart& form;
  const Variables& vars;
  Sender sender = Sender::kWholeSend;
  int row = 0;       ///< of a window or parameter
  int flagBase = 0;  ///< base of a window's flag byte: 128 highlights the window on the unit's output
  std::optional<int> left = {};  ///< where a window will begin, if not where it does now
};

/// A message: its fields, and its meaning in an operator's words.
struct Message {
  std::vector<PacketField> fields;
  std::string meaning;
};

/// The fields as bytes: the low byte of each, 0 for an empty one.
std::vector<std::uint8_t> BytesOf(std::span<const PacketField> fields);

/// The fields with which every message of a command begins.
struct FixedFields {
  std::size_t size;
  std::array<std::int16_t, 9> fields;

  template <class... Field>
  constexpr FixedFields(Field... field)
      : size(sizeof...(field)), fields{static_cast<std::int16_t>(field)...} {}
  std::span<const std::int16_t> All() const { return std::span(fields).first(size); }
};

/// What follows the fixed fields: nothing, the code of a choice, or what a routine appends, which may add to
/// the meaning too.
struct MessageData {
  using Adder = void (*)(const MessageSource& source, Message& message);
  constexpr MessageData(Adder adder) : add(adder) {}
  constexpr MessageData(ChoiceId id) : choice(id) {}

  Adder add = nullptr;
  std::optional<ChoiceId> choice = {};
};

struct SettingCommand {
  CommandId id;
  const char* name;     ///< as in docs/protocol.md: "cmdVitcLines"
  const char* meaning;  ///< a word or two for operators
  FixedFields begin;
  MessageData data;
  Manner wholeSend;
  Manner panel;

  const Manner& MannerOf(Sender sender) const { return sender == Sender::kWholeSend ? wholeSend : panel; }
};

const SettingCommand& CommandOf(CommandId id);

/// The fixed fields of a command, which are its whole message if it takes no data from the panels.
std::vector<PacketField> FieldsOf(CommandId id);

/// Whether the fields are those of a query, which the unit answers with a frame instead of a lone byte.
bool IsQuery(std::span<const PacketField> fields);

/// The command whose fixed fields begin a message, the longest of several; null if there is none.
const SettingCommand* CommandOfMessage(std::span<const PacketField> fields);

/// The message of a command, built from the panels as they are now. A code is looked up by the text of its
/// box: the last row with that text counts, and a text without a row leaves the field empty.
Message MessageOf(const SettingCommand& command, const MessageSource& source);

/// The command that carries the choice of a box and nothing else; empty for a box that the unit does not
/// know, or that it receives together with others.
std::optional<CommandId> CommandOfBox(const ComboBox& box);

/// Whether a parameter goes to the unit: classes 1 and 25 are internal and do not.
bool IsSendable(const SystemParameterRec& parameter);

/// The most characters that the unit takes for the text message.
constexpr std::size_t kMessageCharacters = 32;
/// The text message as the unit receives it: in capitals, cut to kMessageCharacters.
std::string MessageText(std::string_view text);
/// The column furthest to the right in which a window with this text can begin.
int MaxLeftOf(std::string_view text);

}  // namespace marlinset

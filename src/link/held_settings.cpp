// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/held_settings.h"

#include <algorithm>

#include "core/frm_start.h"
#include "link/communications.h"
#include "link/identification.h"
#include "link/ports.h"
#include "link/setting_commands.h"

namespace marlinset {
namespace {

/// Address, packet id and command: the fields by which a command is known.
constexpr std::size_t kCommandFields = 3;
constexpr std::size_t kCommandField = 2;  // the last of them

/// Commands that are not listed set one thing each.
struct SettingKind {
  std::array<int, kCommandFields> command;
  int sameAs;             ///< the command that stands for all that set the same thing
  std::size_t keyFields;  ///< fields behind the command that say which of its settings it is
};
constexpr SettingKind kKinds[] = {
    {{15, 0, 192}, 192, 2},  // parameter and class
    {{1, 5, 160}, 160, 1},   // channel
    {{2, 8, 33}, 33, 1},     // window
    {{1, 5, 47}, 46, 0},     // VITC off, on
    {{1, 5, 57}, 56, 0},     // white flag off, on
};
/// Queries, and the switch between Select and Broadcast mode.
constexpr CommandId kNoSettings[] = {CommandId::kSelect, CommandId::kBroadcast, CommandId::kVideoSense,
                                     CommandId::kGetID, CommandId::kGetFirmware};

}  // namespace

std::optional<LastMessages::Thing> LastMessages::ThingOf(std::span<const PacketField> fields) {
  if (fields.size() < kCommandFields) return std::nullopt;
  const auto begins = [fields](CommandId id) {
    const auto fixed = CommandOf(id).begin.All();
    return std::ranges::equal(fixed.first(kCommandFields), fields.first(kCommandFields),
                              [](int a, const PacketField& b) { return a == b.value_or(0); });
  };
  if (std::ranges::any_of(kNoSettings, begins)) return std::nullopt;
  Thing thing{};
  for (std::size_t i = 0; i < kCommandFields; ++i) thing[i] = fields[i].value_or(0);
  for (const SettingKind& kind : kKinds) {
    if (!std::ranges::equal(kind.command, std::span(thing).first(kCommandFields))) continue;
    const std::size_t end = std::min(kCommandFields + kind.keyFields, fields.size());
    for (std::size_t i = kCommandFields; i < end; ++i) thing[i] = fields[i].value_or(0);
    thing[kCommandField] = kind.sameAs;
    break;
  }
  return thing;
}

bool LastMessages::Has(std::span<const PacketField> fields) const {
  const std::span<const std::uint8_t> last = LastFor(fields);
  return !last.empty() && std::ranges::equal(last, BytesOf(fields));
}

std::span<const std::uint8_t> LastMessages::LastFor(std::span<const PacketField> fields) const {
  const auto thing = ThingOf(fields);
  const auto found = thing ? last_.find(*thing) : last_.end();
  return found != last_.end() ? std::span<const std::uint8_t>(found->second)
                              : std::span<const std::uint8_t>();
}

void LastMessages::Take(std::span<const PacketField> fields) {
  if (const auto thing = ThingOf(fields)) last_[*thing] = BytesOf(fields);
}

void LastMessages::Drop(std::span<const PacketField> fields) {
  if (const auto thing = ThingOf(fields)) last_.erase(*thing);
}

HeldSettings::HeldSettings(FrmStart& form, SettingCommands& commands, Ports& ports) {
  commands.MessageSent.Connect([this](const SentMessage& message) { Note(message); });
  commands.VerdictChanged.Connect([this](const SentMessage& message, Verdict) { Note(message); });
  ports.Closed.Connect([this] { Forget(); });
  StatusPanel& exchange = form.StatBar(FrmStart::kExchangePanel);
  exchange.Changed.Connect([this, &exchange] {
    if (exchange.Text() == kLocalModeText) Forget();
  });
  StatusPanel& model = form.StatBar(FrmStart::kModelPanel);
  model.Changed.Connect([this, &form, &model] {
    if (UnitIsIdentified(form)) {
      FollowModel(model.Text());
      modelQ_ = form.ModelIsQ();
    } else if (model.Text() == kGetIdFailedText) {
      Forget();
    }
  });
}

void HeldSettings::Note(const SentMessage& message) {
  const bool held = message.verdict ? message.verdict == Verdict::kAcknowledged : message.wentOut;
  if (held) {
    messages_.Take(message.fields);
  } else {
    messages_.Drop(message.fields);
  }
  Changed.Emit();
}

void HeldSettings::FollowModel(const std::string& panel) {
  if (panel == model_) return;
  if (!model_.empty()) Forget();
  model_ = panel;
}

void HeldSettings::Forget() {
  messages_.Clear();
  known_ = false;
  Changed.Emit();
}

void HeldSettings::NoteWholeSend() {
  known_ = true;
  Changed.Emit();
}

}  // namespace marlinset

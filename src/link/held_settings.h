// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "controls/signal.h"
#include "core/variables.h"

namespace marlinset {

class FrmStart;
class Ports;
class SettingCommands;
struct SentMessage;

/// The last message for each thing that messages set. A thing is a command with its key (parameter and class,
/// channel, window); VITC on and off set one thing, and so do white flag on and off.
class LastMessages {
 public:
  /// Address, packet id and command, then the fields that say which of the command's settings it is.
  using Thing = std::array<int, 5>;

  /// What a message sets; nothing for a query, or a switch between Select and Broadcast mode.
  static std::optional<Thing> ThingOf(std::span<const PacketField> fields);

  /// Whether the last message for its thing had the same bytes.
  bool Has(std::span<const PacketField> fields) const;
  /// The bytes of the last message for the thing that this one sets; empty if there was none.
  std::span<const std::uint8_t> LastFor(std::span<const PacketField> fields) const;
  /// Takes a message for the last one for its thing.
  void Take(std::span<const PacketField> fields);
  /// Forgets the thing that a message sets.
  void Drop(std::span<const PacketField> fields);
  void Clear() { last_.clear(); }

 private:
  std::map<Thing, std::vector<std::uint8_t>> last_;
};

/// What the unit holds as far as the tool knows: the messages that the unit acknowledged last, and those that
/// were sent and need no answer. Forgets everything when the port closes or its device goes away, when an
/// identification fails or names another model, when the unit is in local mode and when a link is lost;
/// forgets one thing when its message was not acknowledged beyond doubt.
class HeldSettings {
 public:
  /// Follows what `commands` sends from now on.
  HeldSettings(FrmStart& form, SettingCommands& commands, Ports& ports);

  const LastMessages& Messages() const { return messages_; }
  /// The unit may hold anything.
  void Forget();
  /// A whole send has completed.
  void NoteWholeSend();
  /// Whether the unit holds a whole setup: a whole send has completed and nothing made the tool forget it.
  bool Known() const { return known_; }
  /// Whether the unit that identified itself last is of model Q.
  bool OfModelQ() const { return modelQ_; }

  /// What the unit holds, or `Known`, may have changed.
  Signal<> Changed;

 private:
  void Note(const SentMessage& message);
  void FollowModel(const std::string& panel);

  LastMessages messages_;
  std::string model_;  ///< of the unit that holds them, as panel 4 names it
  bool modelQ_ = false;
  bool known_ = false;
};

}  // namespace marlinset

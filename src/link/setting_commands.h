// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "controls/signal.h"
#include "link/answers.h"
#include "link/command_table.h"

namespace marlinset {

class Communications;
struct Platform;

/// A message that was sent, for reports on the traffic.
struct SentMessage {
  int number;                       ///< counts the messages since the start, from 1
  const char* command;              ///< name of its command, empty for a repeated message
  std::string meaning;              ///< "Window 3 'Video Timecode'"
  std::vector<PacketField> fields;  ///< address, packet id, command, data
  bool wentOut = false;             ///< its bytes left, see Communications::WentOut
  /// Whether the unit took it; for a query, whether it was answered. Empty if no answer is awaited.
  std::optional<Verdict> verdict = {};
  std::string failure = {};  ///< what the operator reads; empty without a failure

  /// The frame as it went over the line.
  std::vector<std::uint8_t> Frame() const;
};

/// Bases of a window's flag byte: the unit highlights the window on its output, or does not.
constexpr int kHighlightOn = 128;
constexpr int kHighlightOff = 0;

/// Sends settings to the unit: composes the message from the panels, waits as the command's row in the
/// command table says, and shows the row's text if the answer is missing. Sends nothing twice; a failure
/// changes no panel. The caller decides whether something may be sent now (interactive mode, local mode),
/// except where noted.
class SettingCommands {
 public:
  SettingCommands(Platform& platform, Variables& variables, FrmStart& form, Communications& communications);

  /// Whether the operator's changes go out at once: interactive mode is on, and the unit takes commands.
  bool Live() const;

  /// Sends one command in the manner of `sender`. Returns whether it was acknowledged or, for a query,
  /// answered; True for what needs no answer. `row` is the row of a window or parameter, `flagBase` the base
  /// of a window's flag byte. Throws Overflow for a value that does not fit its byte.
  bool Send(CommandId id, Sender sender, int row = 0, int flagBase = 0);

  /// Sends the previous message once more, with the routing panels' failure text; does nothing if none was
  /// sent yet.
  void SendAgain();

  /// Sends a row of SystemParameters if its class goes to the unit. Always lasts the full interval of dPause.
  void SendParameter(int row);

  /// While changes go out at once (Live): sends the slate's preview if it is ticked, otherwise the slate
  /// mode.
  void SendSlate();

  /// Whether a window has both its record and its row of controls; one without is skipped.
  bool HasWindow(int row) const;
  /// Sends a window's state, highlighted, and in interactive mode the slate's after it.
  void SendWindowAll(int row);
  /// Whether a window's highlight can be sent: not in local mode, and not for a window that is hidden.
  bool Highlights(int row) const;
  /// Highlights a window on the unit's output (`onBit` kHighlightOn) or ends that (kHighlightOff). Shows a
  /// missing acknowledgement only as "ACK LOST" in panel 1. Does nothing unless Highlights allows it.
  void SendWindowInteractive(int row, int onBit);

  /// Switches the character inserter by one of its commands and shows the outcome. If acknowledged, the
  /// menu's ticks show `showOn`; otherwise, after the box, the indicator is red and neither is ticked.
  bool SendCharInserter(CommandId id, Sender sender, bool showOn);

  /// The operator leaves: ends all waits, at once or, while a change of the font size has the characters off,
  /// when they are on again. A message left unanswered is reported as usual and then ends the waits
  /// too, as does a second call; what switches the characters on still goes out.
  void EndWaits();
  /// Whether EndWaits has been called and the waits go on until the characters are on again.
  bool EndDeferred() const;
  /// Whether a change of the font size has switched the characters off and not on again.
  bool OffForSize() const { return offForSize_; }
  /// Ends that state: they are on again, or nothing will switch them on, as when a send passes over that
  /// message.
  void EndOffForSize();

  /// Reports a message that another routine has exchanged.
  void Report(CommandId id, bool answered);

  /// Raised after each exchange, before its failure is shown.
  Signal<const SentMessage&> MessageSent;
  /// EndWaits has been called, but the waits go on for now.
  Signal<> Deferred;
  /// An extra answer came for a message already reported: it is uncertain now. Passes its previous verdict.
  Signal<const SentMessage&, Verdict> VerdictChanged;

 private:
  enum class Failure { kBox, kPanel };

  bool Exchange(const char* name, Message message, const Manner& manner, Failure shown = Failure::kBox);
  bool Await(Ack ack);
  bool LongAckWait();
  void Belie(Verdict before);
  void ShowFailure(const std::string& text, Failure shown);

  Platform& platform_;
  Variables& vars_;
  FrmStart& form_;
  Communications& comms_;
  int count_ = 0;
  std::optional<SentMessage> judged_;  ///< the setting judged last
  bool offForSize_ = false;            ///< from the inserter's off until its on
  bool endWanted_ = false;             ///< EndWaits has been called meanwhile
};

}  // namespace marlinset

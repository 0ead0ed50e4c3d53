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

/// One message that was sent, for whoever reports on the traffic.
struct SentMessage {
  int number;                       ///< counts the messages since the start, from 1
  const char* command;              ///< name of its command, empty for a repeated message
  std::string meaning;              ///< "Window 3 'Video Timecode'"
  std::vector<PacketField> fields;  ///< address, packet id, command, data
  bool wentOut = false;             ///< its bytes left; not through a port that is closed, or gone by then
  /// How sure it is that the unit took it; for a query, whether it was answered. Nothing when no answer is
  /// awaited.
  std::optional<Verdict> verdict = {};
  std::string failure = {};  ///< what the operator reads, empty when there is nothing to tell

  /// As it went over the line.
  std::vector<std::uint8_t> Frame() const;
};

/// Bases of a window's flag byte: its window is highlighted on the unit's output, or not.
constexpr int kHighlightOn = 128;
constexpr int kHighlightOff = 0;

/// Sends settings to the unit: composes the message from the panels, waits as its row of the command table
/// says, and shows the row's text when the answer is missing. Nothing is sent twice, and a failure changes no
/// panel. Whether something may be sent now (interactive mode, local mode) is the caller's decision except
/// where told otherwise.
class SettingCommands {
 public:
  SettingCommands(Platform& platform, Variables& variables, FrmStart& form, Communications& communications);

  /// Interactive mode is on and the unit takes commands: what the operator changes goes out at once.
  bool Live() const;

  /// Sends one command in the manner of `sender`. Returns whether it was acknowledged, for a query whether
  /// it was answered; True for what needs no answer. `row` is that of a window or parameter, and
  /// `flagBase` the base of a window's flag byte. A value that does not fit its byte is failure 6.
  bool Send(CommandId id, Sender sender, int row = 0, int flagBase = 0);

  /// Sends the message of the previous sending once more, with the routing panels' failure text; nothing when
  /// none was sent yet.
  void SendAgain();

  /// Sends a row of SystemParameters, if its class goes to the unit. Always lasts the whole interval of
  /// dPause.
  void SendParameter(int row);

  /// In interactive mode, and unless the unit is in local mode: the slate's preview while it is ticked,
  /// otherwise its mode.
  void SendSlate();

  /// Whether a window has its record and its row of controls; one without is passed over.
  bool HasWindow(int row) const;
  /// Sends a window's state, highlighted; in interactive mode the slate's after it.
  void SendWindowAll(int row);
  /// Whether a window's highlight can be sent: not in local mode, nor of a window that is not shown.
  bool Highlights(int row) const;
  /// Highlights a window on the unit's output (`onBit` kHighlightOn) or ends that (kHighlightOff). A missing
  /// acknowledgement shows as "ACK LOST" in panel 1 only. Does nothing where Highlights says so.
  void SendWindowInteractive(int row, int onBit);

  /// Switches the character inserter by one of the commands for it and shows the outcome: acknowledged, the
  /// menu's ticks show `showOn`; otherwise, after the box, the indicator is red and neither is ticked.
  bool SendCharInserter(CommandId id, Sender sender, bool showOn);

  /// Reports a message that another routine has exchanged.
  void Report(CommandId id, bool answered);

  /// After each exchange, before its failure is shown.
  Signal<const SentMessage&> MessageSent;
  /// An answer too many came for a message that was told already: it is uncertain, and was told as this.
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
};

}  // namespace marlinset

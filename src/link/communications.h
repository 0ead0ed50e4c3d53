// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <span>
#include <vector>

#include "controls/signal.h"
#include "core/variables.h"
#include "link/answers.h"
#include "link/replies.h"

namespace marlinset {

class FrmStart;
class Timer;
struct Platform;

/// The message of a send over a closed port, or over one whose device went away. Operators know these words.
constexpr const char* kPortClosedText = "Open Com Port before sending cmmands.";

/// What panel 1 shows of the last exchange: a setting has left, and how the unit answered.
constexpr const char* kSentText = "Sent";
constexpr const char* kAckText = "Ack In";
constexpr const char* kNakText = "Nack In";
constexpr const char* kLocalModeText = "Local Mode";

/// The wire layer: every message to the unit leaves through SendPacket, every byte from it comes in through
/// ReceivePacket. Panel 1 of the status bar shows the result of the last exchange and doubles as state.
class Communications {
 public:
  Communications(Platform& platform, Variables& variables, FrmStart& form);

  /// Frames the fields (address, packet id, command, data), writes them to the port and pumps until they have
  /// left. Sends the low byte of a negative field, and 0 for an empty one; throws Overflow above 255. On a
  /// closed port it shows a box and sets panel 1 to "Ack In", so that the caller's wait ends at once and
  /// reports no second error.
  void SendPacket(const std::vector<PacketField>& fields);

  /// Each frame as it is written to the port, from start mark to checksum.
  Signal<std::span<const std::uint8_t>> FrameSent;
  /// The bytes taken from the line at one moment, before anything acts on them.
  Signal<std::span<const std::uint8_t>> BytesRead;
  /// A wait for an answer is over, with or without one.
  Signal<> WaitOver;

  /// Treats the contents of the receive buffer as one message; does nothing if it is empty. Acts only through
  /// the status bar, the flags and the decoders. A failure on the way shows as "Buff Over" in panel 3.
  void ReceivePacket();

  /// The acknowledged send of `PacketFields`: sets panel 1 to "Sent", sends once, and waits on `timer` until
  /// "Ack In". Returns whether an Ack ended the wait; `answers` says what that is worth. This and the waits
  /// below first read what has already arrived, so that it is not taken for the answer.
  bool AckWait(Timer& timer);
  /// The same on dPause.
  bool AckWait();
  /// As AckWait(timer), but holds UnitLocalMode True during the wait so that no panel sends, and sets it
  /// False afterwards.
  bool LockedAckWait(Timer& timer);
  /// As AckWait(), but lasts the full interval: the receive event takes the acknowledgement during the pump,
  /// while the wait itself does not look for it.
  bool WholeIntervalWait();

  /// The query wait: sends the fields, and sends them once more if nothing has come within 100 ms, which ends
  /// the wait. Clears UnitStandardText first.
  void ReplyWait(std::vector<PacketField> fields);

  /// Pumps and receives while `timer` runs and `done` returns False, then stops the timer. Ends early if the
  /// port or the program goes away, and at once if the timer can't tick because its own handler is what
  /// waits.
  void WaitOn(Timer& timer, const std::function<bool()>& done);

  /// Sends `PacketFields`, which need no answer.
  void SendUnanswered();
  /// Pumps for 25 ms, so that the answer to a message that nobody waits for comes in by itself. Units
  /// acknowledge even what needs no answer; read together with the next answer, it would hide that one.
  void LetAnswerIn();

  /// Whether the program still runs and the line is open; every wait ends when this is False.
  bool LineUp() const;
  /// Whether the bytes of the last message left; False if the port was closed, if the device went away before
  /// they had, or if the port discarded them because the line took none.
  bool WentOut() const { return wentOut_; }

  /// Marks the beginning or the end of a whole send.
  void SetInSend(bool runs) { inSend_ = runs; }
  bool InSend() const { return inSend_; }
  /// Whether the device went away in the middle of a whole send. The send then ends and reports it in one
  /// box; no other routine reports it, and nothing more is sent.
  bool LostInSend() const;

  /// The account of the answers to settings.
  Answers answers;

 private:
  void Transmit(const std::vector<PacketField>& fields);
  void RefusePacket();
  std::vector<std::uint8_t> DrainInput();
  void QuietenUnit();
  bool LogByte(std::uint8_t byte);
  void HandleMessage(std::span<const std::uint8_t> message);
  void HandleFrame(std::span<const std::uint8_t> frame);
  void ReadWhatCame();
  bool AckIn() const;
  bool AckEnds(const std::function<void()>& wait);

  Platform& platform_;
  Variables& vars_;
  FrmStart& form_;
  Replies replies_;
  bool quietening_ = false;
  bool wentOut_ = false;
  bool inSend_ = false;
};

}  // namespace marlinset

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

/// What a send over a closed port is told with, and one whose device went away: operators know these words.
constexpr const char* kPortClosedText = "Open Com Port before sending cmmands.";

/// The wire layer: every message to the unit leaves through SendPacket, every byte from it comes in through
/// ReceivePacket. Panel 1 of the status bar is the result of the last exchange and is read as state: "Sent"
/// while an answer is awaited, then "Ack In", "Nack In" or "Local Mode".
class Communications {
 public:
  Communications(Platform& platform, Variables& variables, FrmStart& form);

  /// Frames the fields (address, packet id, command, data), writes them to the port and pumps until they have
  /// gone. A negative field goes out as its low byte, an empty one as 0; above 255 is failure 6. On a closed
  /// port: a box, and panel 1 "Ack In", so that the caller's wait ends at once and reports no second error.
  void SendPacket(const std::vector<PacketField>& fields);

  /// Each frame as it goes to the port, start mark to checksum.
  Signal<std::span<const std::uint8_t>> FrameSent;

  /// Takes what lies in the receive buffer as one message. Safe to call with nothing to read. All effects go
  /// through the status bar, the flags and the decoders; a failure on the way ends as "Buff Over" in panel 3.
  void ReceivePacket();

  /// The acknowledged send of `PacketFields`: panel 1 "Sent", one attempt, wait on `timer` until "Ack In".
  /// Returns whether an Ack ended the wait; `answers` says what that is worth. Here and in the waits below,
  /// what came before is read before anything else, so that it is not taken for the answer.
  bool AckWait(Timer& timer);
  /// The same on dPause.
  bool AckWait();
  /// As AckWait(timer), with UnitLocalMode held True during the wait so that no panel sends meanwhile; False
  /// after.
  bool LockedAckWait(Timer& timer);
  /// As AckWait(), but lasts the whole interval: the receive event takes the acknowledgement during the pump,
  /// the wait itself doesn't look for it.
  bool WholeIntervalWait();

  /// The query wait: the fields are sent, and sent once more if nothing has come within 100 ms; the wait ends
  /// there. Clears UnitStandardText first.
  void ReplyWait(std::vector<PacketField> fields);

  /// Pumps and receives while `timer` runs and `done` does not hold, then stops the timer. Ends early when
  /// the port or the program goes away, and at once when the timer can't tick because its own handler is what
  /// waits.
  void WaitOn(Timer& timer, const std::function<bool()>& done);

  /// Sends `PacketFields`, which need no answer.
  void SendUnanswered();
  /// Gives the answer to a message that nobody waits for 25 ms to come in by itself. Units acknowledge also
  /// what needs no answer; together with the next answer it would hide that one.
  void LetAnswerIn();

  /// Whether the program still runs and the line is open: no wait lasts longer.
  bool LineUp() const;
  /// Whether the bytes of the last message left: not through a closed port, nor when the device went away
  /// under them.
  bool WentOut() const { return wentOut_; }

  /// A whole send runs, or does not any more.
  void SetInSend(bool runs) { inSend_ = runs; }
  bool InSend() const { return inSend_; }
  /// The device went away in the middle of a whole send. The send ends there and tells of it, in one box;
  /// nobody else does, and nothing more is sent.
  bool LostInSend() const;

  /// What came for the settings that were sent.
  Answers answers;

 private:
  bool AckEnds(const std::function<void()>& wait);
  bool AckIn() const;
  void ReadWhatCame();
  void Transmit(const std::vector<PacketField>& fields);
  void RefusePacket();
  std::vector<std::uint8_t> DrainInput();
  void HandleMessage(std::span<const std::uint8_t> message);
  void HandleFrame(std::span<const std::uint8_t> frame);
  void DispatchPacket(std::span<const std::uint8_t> frame);
  bool LogByte(std::uint8_t byte);
  void QuietenUnit();

  Platform& platform_;
  Variables& vars_;
  FrmStart& form_;
  Replies replies_;
  bool quietening_ = false;
  bool wentOut_ = false;
  bool inSend_ = false;
};

}  // namespace marlinset

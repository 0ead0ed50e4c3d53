// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <span>

#include "platform/signal.h"

namespace marlinset {

/// How sure it is that the unit took a setting.
enum class Verdict : std::uint8_t {
  kAcknowledged,    ///< one Ack came in its wait, and nothing else but sound frames
  kRefused,         ///< only Naks came, or the answer of a unit in local mode: not taken
  kUnacknowledged,  ///< nothing came in its wait
  kUncertain,  ///< an answer too many, too early to be meant, or among noise, or one that may be another's:
               ///< taken or not
};
constexpr std::size_t kVerdicts = 4;

/// "acknowledged", "refused", "unacknowledged", "uncertain".
const char* NameOf(Verdict verdict);

/// Counts the lone answers (Ack, Nak, local mode) that come in and says what they are worth. Neither messages
/// nor answers bear a number: only their count and the moment tell which setting an answer belongs to.
///
///   in its wait              to it; a second one makes it uncertain
///   while its bytes leave    to nobody: it is uncertain, and the setting before as well
///   behind its wait, until   to it still, as one too many. Acknowledged becomes uncertain, refused does when
///   the next one leaves      it is an Ack; unacknowledged stays, since the operator has read that
///
/// Acknowledged is said only while tool and unit are in step, that is while no answer is owed:
///
/// - A setting with nothing in its wait leaves one answer owed. That answer may come in the wait of a setting
///   behind it, so each of those that gets one is uncertain, also the refused.
/// - They are in step again when an answer too many has come for each one owed; when a query was answered
///   that left behind all settings, since the unit answers in order; or 20 s later, longer than any wait.
/// - A Nak with another answer in the same wait may be the setting's before, whose wait a stray Ack has
/// ended:
///   both are uncertain.
///
/// Two faults that cancel each other out, an answer that is lost and a stray one in its place, cannot be told
/// from none by counting.
///
/// A query is answered by a frame, in local mode by 6: an Ack or Nak behind it still counts for the setting
/// before. Any other message may have an answer that nobody awaits, and ends the account of the setting
/// before. Where a message goes out in the middle of a wait, an answer may be either's: both are uncertain,
/// and both count as owed one.
class Answers {
 public:
  /// A setting is about to go out; Judge follows in any case. May stand inside another's wait.
  void Expect();
  /// Any message goes out, also that of a setting that is expected to be answered.
  /// `now` in milliseconds of the pump's clock.
  void Leaves(bool isQuery, std::int64_t now);
  /// What was read at one moment. `early`: bytes of a message still wait for their way out.
  void Take(std::span<const std::uint8_t> bytes, bool early);
  /// The wait of the setting is over, with an Ack as the last answer or without.
  void Judge(bool acknowledged);

  /// Of the setting judged last; kUnacknowledged before there was one.
  Verdict Last() const { return last_; }

  /// An answer too many came: the setting judged last is uncertain now; it was taken for this.
  Signal<Verdict> Belied;

 private:
  void TakeFrame(std::span<const std::uint8_t> frame);
  void Count(std::uint8_t answer, bool early);
  void CountBehind(std::uint8_t answer);
  void Belie();
  Verdict Weigh(bool acknowledged) const;

  int open_ = 0;              ///< waits that stand, one in the other
  int messages_ = 0;          ///< that went out since the outermost of them began
  bool crossed_ = false;      ///< more than one of them
  bool noise_ = false;        ///< came meanwhile
  bool doubtful_ = false;     ///< an answer came that may be one owed
  bool asked_ = false;        ///< the message that went out last is a query
  bool accountable_ = false;  ///< answers may still belong to that setting
  Verdict last_ = Verdict::kUnacknowledged;
  int taken_ = 0;  ///< answers in the waits that stand
  int early_ = 0;
  int acks_ = 0;
  int refusals_ = 0;
  std::int64_t left_ = 0;             ///< when the last message did
  std::deque<std::int64_t> owed_;     ///< settings whose answer missed the wait, by when they left
  std::deque<std::int64_t> queries_;  ///< that were not answered yet, by when they left
};

}  // namespace marlinset

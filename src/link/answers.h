// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "controls/signal.h"

namespace marlinset {

/// How sure it is that the unit took a setting.
enum class Verdict : std::uint8_t {
  kAcknowledged,    ///< one Ack came in its wait, and nothing else but sound frames
  kRefused,         ///< only Naks came, or the answer of a unit in local mode: not taken
  kUnacknowledged,  ///< nothing came in its wait
  kUncertain,       ///< an answer too many, too early to be meant, or among noise: taken or not
};
constexpr std::size_t kVerdicts = 4;

/// "acknowledged", "refused", "unacknowledged", "uncertain".
const char* NameOf(Verdict verdict);

/// Counts the lone answers (Ack, Nak, local mode) that come in and says what they are worth. Neither messages
/// nor answers bear a number, so only the moment tells which setting an answer belongs to:
///
///   in its wait              to it; a second one makes it uncertain
///   while its bytes leave    to nobody: it is uncertain, and the setting before as well
///   behind its wait, until   to it still, as one too many. Acknowledged becomes uncertain, refused does when
///   the next one leaves      it is an Ack; unacknowledged stays, since the operator has read that
///
/// The Ack of a setting that went unacknowledged looks, in the wait of the next one, like that one's own. But
/// each setting uses up one answer, so the one too many shows in the end, at that setting or at one that
/// follows: a send is acknowledged throughout only when there was one Ack for each setting and no other
/// answer.
///
/// A query is answered by a frame, in local mode by 6: an Ack or Nak behind it still counts for the setting
/// before. Any other message may have an answer that nobody awaits, and ends the account of the setting
/// before. Where a message goes out in the middle of a wait, an answer may be either's: both are uncertain.
class Answers {
 public:
  /// A setting is about to go out; Judge follows in any case. May stand inside another's wait.
  void Expect();
  /// Any message goes out, also that of a setting that is expected to be answered.
  void Leaves(bool isQuery);
  /// What was read at one moment. `early`: bytes of a message still wait for their way out.
  void Take(std::span<const std::uint8_t> bytes, bool early);
  /// The wait of the setting is over, with an Ack as the last answer or without.
  void Judge(bool acknowledged);

  /// Of the setting judged last; kUnacknowledged before there was one.
  Verdict Last() const { return last_; }

  /// An answer too many came: the setting judged last is uncertain now; it was taken for this.
  Signal<Verdict> Belied;

 private:
  void Count(std::uint8_t answer, bool early);
  void Belie(std::uint8_t answer);
  Verdict Weigh(bool acknowledged) const;

  int open_ = 0;              ///< waits that stand, one in the other
  int messages_ = 0;          ///< that went out since the outermost of them began
  bool crossed_ = false;      ///< more than one of them
  bool noise_ = false;        ///< came meanwhile
  bool asked_ = false;        ///< a query went out behind the setting judged last
  bool accountable_ = false;  ///< answers may still belong to that setting
  Verdict last_ = Verdict::kUnacknowledged;
  int early_ = 0;
  int acks_ = 0;
  int refusals_ = 0;
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "controls/signal.h"

namespace marlinset {

/// How certain it is that the unit took a setting.
enum class Verdict : std::uint8_t {
  kAcknowledged,    ///< exactly one Ack came during its wait, otherwise only valid frames
  kRefused,         ///< only Naks came, or a unit in local mode answered: not taken
  kUnacknowledged,  ///< nothing came during its wait
  kUncertain,       ///< an extra answer, one too early to be meant, or noise: taken or not
};
constexpr std::size_t kVerdicts = 4;

/// "acknowledged", "refused", "unacknowledged", "uncertain".
const char* NameOf(Verdict verdict);

/// Counts the lone answers (Ack, Nak, local mode) that come in and judges what they are worth. Neither
/// messages nor answers carry a number, so only the moment shows which setting an answer belongs to:
///
///   during its wait          to it; a second one makes it uncertain
///   while its bytes leave    to nobody: it is uncertain, and so is the setting before
///   after its wait, until    still to it, as an extra: acknowledged becomes uncertain, and so does refused
///   the next one leaves      if the extra is an Ack; unacknowledged stays, as the operator has read that
///
/// A late Ack of a setting that went unacknowledged looks like the Ack of the next one if it arrives during
/// that one's wait. But each setting uses up one answer, so the extra one shows in the end, at that setting
/// or a later one: a send is acknowledged throughout only if there was one Ack for each setting and no other
/// answer.
///
/// A query is answered by a frame, or in local mode by 6, so an Ack or Nak after it still counts for the
/// setting before. Any other message may get an answer that nobody awaits, and closes the account of the
/// setting before. If a message goes out in the middle of a wait, an answer may belong to either: both are
/// uncertain.
class Answers {
 public:
  /// A setting is about to go out; Judge must follow. May be called during another setting's wait.
  void Expect();
  /// Any message goes out, including that of an expected setting.
  void Leaves(bool isQuery);
  /// Takes the bytes read at one moment. `early`: bytes of a message are still waiting to leave.
  void Take(std::span<const std::uint8_t> bytes, bool early);
  /// The wait of the setting is over, with or without an Ack as the last answer.
  void Judge(bool acknowledged);

  /// Of the setting judged last; kUnacknowledged before the first one.
  Verdict Last() const { return last_; }

  /// An extra answer came: the setting judged last is uncertain now. Passes its previous verdict.
  Signal<Verdict> Belied;

 private:
  void Count(std::uint8_t answer, bool early);
  void Belie(std::uint8_t answer);
  Verdict Weigh(bool acknowledged) const;

  int open_ = 0;              ///< waits in progress, one inside the other
  int messages_ = 0;          ///< sent since the outermost of them began
  bool crossed_ = false;      ///< more than one of them
  bool noise_ = false;        ///< came during these waits
  bool asked_ = false;        ///< a query went out after the setting judged last
  bool accountable_ = false;  ///< answers may still belong to that setting
  Verdict last_ = Verdict::kUnacknowledged;
  int early_ = 0;
  int acks_ = 0;
  int refusals_ = 0;
};

}  // namespace marlinset

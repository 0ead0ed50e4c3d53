// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/answers.h"

#include <utility>

#include "wire/frame.h"

namespace marlinset {

const char* NameOf(Verdict verdict) {
  static constexpr const char* kNames[kVerdicts] = {"acknowledged", "refused", "unacknowledged", "uncertain"};
  return kNames[static_cast<std::size_t>(verdict)];
}

void Answers::Expect() {
  if (open_++ > 0) {
    crossed_ = true;
    return;
  }
  crossed_ = noise_ = false;
  messages_ = early_ = acks_ = refusals_ = 0;
}

void Answers::Leaves(bool isQuery) {
  if (isQuery) {
    asked_ = true;
  } else if (open_ == 0) {
    accountable_ = false;
  } else if (++messages_ > 1) {
    crossed_ = true;
  }
}

/// Finds answers between the frames that they came with. Stops at noise: after it nothing can be told apart,
/// and it may hide a Nak.
void Answers::Take(std::span<const std::uint8_t> bytes, bool early) {
  while (!bytes.empty()) {
    const Piece piece = FirstPiece(bytes);
    if (piece.kind == PieceKind::kAnswer) {
      Count(piece.bytes[0], early);
    } else if (piece.kind != PieceKind::kFrame) {
      noise_ = true;
    }
    bytes = bytes.subspan(piece.bytes.size());
  }
}

void Answers::Count(std::uint8_t answer, bool early) {
  if (open_ == 0 || (early && !crossed_)) Belie(answer);
  if (open_ == 0) return;
  ++(early ? early_ : answer == kAck ? acks_ : refusals_);
}

void Answers::Belie(std::uint8_t answer) {
  if (!accountable_ || (asked_ && answer == kLocalMode)) return;
  if (last_ != Verdict::kAcknowledged && (last_ != Verdict::kRefused || answer != kAck)) return;
  Belied.Emit(std::exchange(last_, Verdict::kUncertain));
}

void Answers::Judge(bool acknowledged) {
  last_ = Weigh(acknowledged);
  --open_;
  accountable_ = true;
  asked_ = false;
}

Verdict Answers::Weigh(bool acknowledged) const {
  if (early_ + acks_ + refusals_ == 0) return Verdict::kUnacknowledged;
  if (early_ > 0 || crossed_ || (noise_ && acks_ > 0)) return Verdict::kUncertain;
  if (acks_ == 0) return Verdict::kRefused;
  return acknowledged && acks_ == 1 && refusals_ == 0 ? Verdict::kAcknowledged : Verdict::kUncertain;
}

}  // namespace marlinset

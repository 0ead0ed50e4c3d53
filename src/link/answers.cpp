// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/answers.h"

#include <algorithm>
#include <utility>

#include "link/frame.h"

namespace marlinset {
namespace {

/// Longer than any wait: an answer that did not come by then never does.
constexpr std::int64_t kNeverMs = 20000;

/// A frame that answers a query, and none that the unit sends on its own.
bool IsReply(std::span<const std::uint8_t> frame) {
  constexpr std::uint8_t kAddress = 15;
  constexpr std::uint8_t kFirstQuery = 52;
  constexpr std::uint8_t kLastQuery = 54;
  return frame[2] == kAddress && frame[3] == 0 && frame[4] >= kFirstQuery && frame[4] <= kLastQuery;
}

}  // namespace

const char* NameOf(Verdict verdict) {
  static constexpr const char* kNames[kVerdicts] = {"acknowledged", "refused", "unacknowledged", "uncertain"};
  return kNames[static_cast<std::size_t>(verdict)];
}

void Answers::Expect() {
  if (open_++ > 0) {
    crossed_ = true;
    return;
  }
  crossed_ = noise_ = doubtful_ = false;
  messages_ = taken_ = early_ = acks_ = refusals_ = 0;
}

void Answers::Leaves(bool isQuery, std::int64_t now) {
  for (std::deque<std::int64_t>* pending : {&owed_, &queries_}) {
    std::erase_if(*pending, [now](std::int64_t left) { return now - left >= kNeverMs; });
  }
  left_ = now;
  asked_ = isQuery;
  if (isQuery) {
    queries_.push_back(now);
  } else if (open_ == 0) {
    accountable_ = false;
  } else if (++messages_ > 1) {
    crossed_ = true;
  }
}

/// Answers that came together with frames are found between them; noise ends what can be told apart, and may
/// hide a Nak.
void Answers::Take(std::span<const std::uint8_t> bytes, bool early) {
  while (!bytes.empty()) {
    std::size_t length = 1;
    if (bytes[0] == kStartMark && bytes.size() >= 2 && bytes.size() >= bytes[1] + kFrameOverhead) {
      length = bytes[1] + kFrameOverhead;
      TakeFrame(bytes.first(length));
    } else if (bytes[0] == kAck || bytes[0] == kNak || bytes[0] == kLocalMode) {
      Count(bytes[0], early);
    } else {
      noise_ = true;
      return;
    }
    bytes = bytes.subspan(length);
  }
}

void Answers::TakeFrame(std::span<const std::uint8_t> frame) {
  if (CheckFrame(frame) != FrameCheck::kGood) {
    noise_ = true;
  } else if (IsReply(frame) && !queries_.empty()) {
    queries_.pop_front();
    if (asked_ && queries_.empty()) owed_.clear();
  }
}

void Answers::Count(std::uint8_t answer, bool early) {
  const bool own = open_ > 0 && (!early || crossed_);
  if (own) {
    ++taken_;
  } else {
    CountBehind(answer);
  }
  if (open_ == 0) return;
  doubtful_ = doubtful_ || !owed_.empty();
  ++(early ? early_ : answer == kAck ? acks_ : refusals_);
}

/// What belongs to none of the waits that stand.
void Answers::CountBehind(std::uint8_t answer) {
  if (asked_ && answer == kLocalMode) {
    if (!queries_.empty()) queries_.pop_front();
  } else if (!owed_.empty()) {
    owed_.pop_front();
  } else if (accountable_ && (last_ == Verdict::kAcknowledged || answer == kAck)) {
    Belie();
  }
}

void Answers::Belie() {
  if (last_ != Verdict::kAcknowledged && last_ != Verdict::kRefused) return;
  Belied.Emit(std::exchange(last_, Verdict::kUncertain));
}

void Answers::Judge(bool acknowledged) {
  if (!crossed_ && refusals_ > 0 && taken_ > 1 && last_ == Verdict::kAcknowledged) Belie();
  last_ = Weigh(acknowledged);
  accountable_ = true;
  asked_ = false;
  if (--open_ > 0) return;
  for (int missing = messages_ - taken_; missing > 0; --missing) owed_.push_back(left_);
  for (int paid = taken_ - messages_; paid > 0 && !owed_.empty(); --paid) owed_.pop_front();
}

Verdict Answers::Weigh(bool acknowledged) const {
  if (early_ + acks_ + refusals_ == 0) return Verdict::kUnacknowledged;
  if (early_ > 0 || crossed_ || doubtful_ || (noise_ && acks_ > 0)) return Verdict::kUncertain;
  if (acks_ == 0) return Verdict::kRefused;
  return acknowledged && acks_ == 1 && refusals_ == 0 ? Verdict::kAcknowledged : Verdict::kUncertain;
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/traffic.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "controls/timer.h"
#include "link/command_table.h"
#include "link/communications.h"
#include "link/replies.h"
#include "link/setting_commands.h"
#include "wire/frame.h"

namespace marlinset {
namespace {

/// Messages that can be under way at a time, one sent in the wait of another, and some that nobody reports.
constexpr std::size_t kMostOpen = 8;

TrafficAnswer AnswerFor(Verdict verdict) {
  switch (verdict) {
    case Verdict::kAcknowledged:
      return TrafficAnswer::kAnswered;
    case Verdict::kRefused:
      return TrafficAnswer::kRefused;
    case Verdict::kUnacknowledged:
      return TrafficAnswer::kMissing;
    case Verdict::kUncertain:
      break;
  }
  return TrafficAnswer::kUncertain;
}

std::vector<PacketField> FieldsIn(std::span<const std::uint8_t> frame) {
  const auto fields = frame.subspan(2, frame.size() - kFrameOverhead);
  return {fields.begin(), fields.end()};
}

const char* AnswerWords(std::uint8_t answer) {
  return answer == kAck ? "Acknowledged" : answer == kNak ? "Refused" : "Local mode";
}

}  // namespace

Traffic::Traffic(const TimerQueue& clock, Communications& communications, SettingCommands& commands)
    : clock_(clock),
      frames_(communications.FrameSent, [this](std::span<const std::uint8_t> frame) { NoteSent(frame); }),
      bytes_(communications.BytesRead, [this](std::span<const std::uint8_t> bytes) { NoteRead(bytes); }),
      waits_(communications.WaitOver, [this] { EndWait(); }),
      messages_(commands.MessageSent, [this](const SentMessage& message) { NoteMessage(message); }),
      verdicts_(commands.VerdictChanged,
                [this](const SentMessage& message, Verdict) { NoteVerdict(message); }) {}

void Traffic::Clear() {
  rows_.clear();
}

Traffic::OwnRow Traffic::Add(bool sent, std::span<const std::uint8_t> bytes) {
  auto row = std::make_shared<TrafficRow>();
  row->number = ++count_;
  row->milliseconds = clock_.Now();
  row->sent = sent;
  row->bytes.assign(bytes.begin(), bytes.end());
  rows_.push_back(row);
  if (rows_.size() > kMostRows) rows_.pop_front();
  return row;
}

void Traffic::NoteSent(std::span<const std::uint8_t> frame) {
  const TrafficRow* const query = AwaitingQuery();
  repeated_ = query && !repeated_ && std::ranges::equal(query->bytes, frame);
  EndQuery();
  const OwnRow row = Add(true, frame);
  const std::vector<PacketField> fields = FieldsIn(frame);
  const SettingCommand* command = CommandOfMessage(fields);
  row->poll = IsQuery(fields);
  row->meaning = command ? command->meaning : "Message";
  const bool awaits = row->poll || (command && command->wholeSend.ack != Ack::kNone);
  if (awaits) row->answer = TrafficAnswer::kAwaited;
  latest_ = row;
  open_.push_back(row);
  if (open_.size() > kMostOpen) open_.pop_front();
  Amend(*row);
}

void Traffic::NoteRead(std::span<const std::uint8_t> bytes) {
  bool first = true;
  while (!bytes.empty()) {
    const Piece piece = FirstPiece(bytes);
    bytes = bytes.subspan(piece.bytes.size());
    const OwnRow row = Add(false, piece.bytes);
    switch (piece.kind) {
      case PieceKind::kAnswer:
        NoteAnswer(*row);
        break;
      case PieceKind::kFrame:
        NoteReply(*row);
        break;
      case PieceKind::kDamaged:
        row->meaning = "Frame with a wrong checksum";
        break;
      case PieceKind::kNoise:
        row->meaning = piece.bytes[0] == kStartMark ? "Incomplete frame" : "Not understood";
        break;
    }
    // The tool takes what comes together for one answer.
    if (!std::exchange(first, false)) row->meaning += ", together with the row before";
    Amend(*row);
  }
}

/// The query sent last, while nothing has answered it.
TrafficRow* Traffic::AwaitingQuery() {
  return latest_ && latest_->poll && latest_->answer == TrafficAnswer::kAwaited ? latest_.get() : nullptr;
}

/// A lone byte says nothing about which message it answers; the verdict decides that later.
void Traffic::NoteAnswer(TrafficRow& row) {
  const std::uint8_t answer = row.bytes.front();
  row.meaning = AnswerWords(answer);
  if (!latest_ || latest_->answeredAfterMs != TrafficRow::kUnknownMs) return;
  TrafficRow* const query = AwaitingQuery();
  row.poll = query && answer == kLocalMode;
  if (!row.poll && latest_->poll) return;
  const bool late = latest_->answer == TrafficAnswer::kMissing;
  if (late && answer != kAck) return;
  latest_->answeredAfterMs = static_cast<int>(row.milliseconds - latest_->milliseconds);
  if (row.poll) latest_->answer = TrafficAnswer::kRefused;
  if (row.poll || late) Amend(*latest_);
}

void Traffic::NoteReply(TrafficRow& row) {
  row.meaning = MeaningOfReply(row.bytes);
  TrafficRow* const query = AwaitingQuery();
  const int answered = QueryAnsweredBy(row.bytes);
  row.poll = query && answered != 0 && query->bytes[4] == answered;
  if (!row.poll) {
    row.meaning += ", unasked";
    return;
  }
  query->answer = TrafficAnswer::kAnswered;
  query->answeredAfterMs = static_cast<int>(row.milliseconds - query->milliseconds);
  Amend(*query);
}

/// The tool repeats a query at the end of its wait, so the answer to the repeat comes after the wait.
void Traffic::EndWait() {
  if (!repeated_) EndQuery();
}

/// What has not been answered by now no longer is. For queries only: settings have a verdict.
void Traffic::EndQuery() {
  TrafficRow* const query = AwaitingQuery();
  if (!query) return;
  query->answer = TrafficAnswer::kMissing;
  Amend(*query);
}

void Traffic::NoteMessage(const SentMessage& message) {
  const std::vector<std::uint8_t> frame = message.Frame();
  const auto found =
      std::find_if(open_.rbegin(), open_.rend(), [&frame](const OwnRow& row) { return row->bytes == frame; });
  if (found == open_.rend()) return;  // nothing went over the line
  const OwnRow sent = *found;
  open_.erase(std::next(found).base());
  TrafficRow& row = *sent;
  // A surplus answer still counts for the setting before, whatever has been asked since.
  if (!row.poll && message.verdict) judged_ = sent;
  row.message = message.number;
  if (*message.command) {
    row.meaning = message.meaning;
  } else {
    row.meaning += ", sent again";
  }
  if (!message.wentOut) {
    row.answer = TrafficAnswer::kNotSent;
  } else if (!message.verdict) {
    row.answer = TrafficAnswer::kNone;
  } else if (!row.poll || (row.answer == TrafficAnswer::kAwaited && !repeated_)) {
    row.answer = AnswerFor(*message.verdict);
  }
  Amend(row);
}

void Traffic::NoteVerdict(const SentMessage& message) {
  if (!judged_ || judged_->message != message.number) return;
  judged_->answer = AnswerFor(*message.verdict);
  Amend(*judged_);
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "controls/signal.h"

namespace marlinset {

class Communications;
class SettingCommands;
class TimerQueue;
enum class Verdict : std::uint8_t;
struct SentMessage;

/// What became of a message that was sent.
enum class TrafficAnswer : std::uint8_t {
  kNone,      ///< no answer is awaited
  kAwaited,   ///< it may still come
  kAnswered,  ///< acknowledged; a query: by its reply
  kRefused,
  kMissing,  ///< none came within its wait; `answeredAfterMs` if it was acknowledged later
  kUncertain,
  kNotSent,  ///< the bytes did not leave
};

/// One message, or one piece of what came from the unit.
struct TrafficRow {
  static constexpr int kUnknownMs = -1;

  std::int64_t number = 0;        ///< counts the rows of a record from 1
  std::int64_t milliseconds = 0;  ///< of the tool's clock
  bool sent = false;              ///< by the tool; otherwise by the unit
  bool poll = false;              ///< a query, or the answer to one
  std::string meaning;            ///< in an operator's words
  std::vector<std::uint8_t> bytes;
  TrafficAnswer answer = TrafficAnswer::kNone;
  int answeredAfterMs = kUnknownMs;
  int message = 0;  ///< its number among the sent messages; 0 while it has none
};

/// The columns of a row as text: time, direction, meaning, fields, bytes, acknowledged.
constexpr std::size_t kTrafficColumns = 6;
std::array<std::string, kTrafficColumns> TrafficHeads();
/// One cell. Fields are decimal; an answer is "12 ms", or a word for what there is instead.
std::string TrafficText(const TrafficRow& row, std::size_t column);

/// Records what goes over the line from its construction to its end: each message that leaves, each piece of
/// what comes. A row for a message is completed when its answer has come or its wait is over, that of a
/// repeated query when the next message leaves. Keeps the latest kMostRows rows; who holds a row longer keeps
/// it unchanged.
class Traffic {
 public:
  static constexpr std::size_t kMostRows = 10000;
  using Row = std::shared_ptr<const TrafficRow>;

  Traffic(const TimerQueue& clock, Communications& communications, SettingCommands& commands);

  std::size_t Count() const { return rows_.size(); }
  /// From the oldest, 0, on.
  Row At(std::size_t index) const { return rows_[index]; }
  /// Forgets the rows; the numbers go on.
  void Clear();

  /// A row came, or one has changed: its number.
  Signal<std::int64_t> Changed;

 private:
  using OwnRow = std::shared_ptr<TrafficRow>;

  OwnRow Add(bool sent, std::span<const std::uint8_t> bytes);
  void NoteSent(std::span<const std::uint8_t> frame);
  void NoteRead(std::span<const std::uint8_t> bytes);
  void NoteAnswer(TrafficRow& row);
  void NoteReply(TrafficRow& row);
  void NoteMessage(const SentMessage& message);
  void NoteVerdict(const SentMessage& message);
  void EndWait();
  void EndQuery();
  TrafficRow* AwaitingQuery();
  void Amend(const TrafficRow& row) { Changed.Emit(row.number); }

  const TimerQueue& clock_;
  std::deque<OwnRow> rows_;
  std::int64_t count_ = 0;
  std::deque<OwnRow> open_;  ///< sent rows without a message yet, the latest last
  OwnRow latest_;            ///< the latest one that was sent
  bool repeated_ = false;    ///< it repeats the query before, which nobody had answered
  OwnRow judged_;            ///< the latest setting with a message
  Listening<std::span<const std::uint8_t>> frames_;
  Listening<std::span<const std::uint8_t>> bytes_;
  Listening<> waits_;
  Listening<const SentMessage&> messages_;
  Listening<const SentMessage&, Verdict> verdicts_;
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/recording_line.h"

#include <algorithm>
#include <utility>

namespace marlinset {

RecordingLine::RecordingLine(MSComm& line, const TimerQueue& clock) : line_(line), clock_(clock) {
  line_.OnComm([this] { RaiseOnComm(); });
}

std::vector<RecordingLine::Entry> RecordingLine::TakeEntries() {
  goesOn_ = false;
  return std::exchange(entries_, {});
}

void RecordingLine::Note(bool sent, std::span<const std::uint8_t> bytes) {
  if (recording_) entries_.push_back({clock_.Now(), sent, {bytes.begin(), bytes.end()}});
}

void RecordingLine::NoteVerdict(int number, std::span<const std::uint8_t> frame, const std::string& verdict) {
  const auto isIt = [&](const Entry& entry) {
    if (entry.number != 0) return entry.number == number;
    return recording_ && entry.sent && std::ranges::equal(frame, entry.bytes);
  };
  const auto found = std::find_if(entries_.rbegin(), entries_.rend(), isIt);
  if (found == entries_.rend()) return;
  found->number = number;
  found->verdict = verdict;
}

void RecordingLine::Output(std::span<const std::uint8_t> bytes) {
  goesOn_ = false;
  Note(true, bytes);
  line_.Output(bytes);
}

std::uint8_t RecordingLine::Input() {
  const std::uint8_t byte = line_.Input();
  if (goesOn_ && recording_ && !entries_.empty()) {
    entries_.back().bytes.push_back(byte);
  } else {
    Note(false, std::span(&byte, 1));
  }
  goesOn_ = line_.InBufferCount() > 0;
  return byte;
}

}  // namespace marlinset

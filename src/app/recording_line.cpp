// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/recording_line.h"

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

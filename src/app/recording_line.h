// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "controls/timer.h"
#include "platform/ms_comm.h"

namespace marlinset {

/// The line, with a record of what passes: every frame sent, and every byte as the tool takes it, those taken
/// at one moment together.
class RecordingLine : public MSComm {
 public:
  struct Entry {
    std::int64_t milliseconds;  ///< of the tool's clock
    bool sent;
    std::vector<std::uint8_t> bytes;
    int number = 0;            ///< of the message, once it is judged
    std::string verdict = {};  ///< what the answers to it were worth; empty: none awaited, or not known yet
  };

  RecordingLine(MSComm& line, const TimerQueue& clock);

  /// Begins or ends recording; what was recorded stays until it is taken.
  void Record(bool on) { recording_ = on; }
  std::vector<Entry> TakeEntries();
  /// Notes with the frame what the answers to its message were worth; once more when that has changed.
  void NoteVerdict(int number, std::span<const std::uint8_t> frame, const std::string& verdict);

  int CommPort() const override { return line_.CommPort(); }
  void SetCommPort(int port) override { line_.SetCommPort(port); }
  bool PortOpen() const override { return line_.PortOpen(); }
  void SetPortOpen(bool open) override { line_.SetPortOpen(open); }
  void Output(std::span<const std::uint8_t> bytes) override;
  std::size_t OutBufferCount() const override { return line_.OutBufferCount(); }
  std::size_t InBufferCount() const override { return line_.InBufferCount(); }
  void DiscardInput() override { line_.DiscardInput(); }
  std::uint8_t Input() override;
  void LookForInput() override { line_.LookForInput(); }
  bool DeviceGone() const override { return line_.DeviceGone(); }
  int CommEvent() const override { return line_.CommEvent(); }
  void LookForDevices() override { line_.LookForDevices(); }
  std::string DeviceName(int port) const override { return line_.DeviceName(port); }
  bool DeviceIsThere(int port) const override { return line_.DeviceIsThere(port); }

 private:
  void Note(bool sent, std::span<const std::uint8_t> bytes);

  MSComm& line_;
  const TimerQueue& clock_;
  bool recording_ = false;
  bool goesOn_ = false;  ///< the next byte taken belongs to the entry last noted
  std::vector<Entry> entries_;
};

}  // namespace marlinset

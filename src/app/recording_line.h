// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "controls/timer.h"
#include "platform/ms_comm.h"

namespace marlinset {

/// Records the traffic of a line: every frame sent and every byte that the tool takes; bytes taken at one
/// moment form one entry.
class RecordingLine : public MSComm {
 public:
  struct Entry {
    std::int64_t milliseconds;  ///< of the tool's clock
    bool sent;
    std::vector<std::uint8_t> bytes;
    int number = 0;            ///< of the message, once it has a verdict
    std::string verdict = {};  ///< on the message; empty: none expected, or not known yet
  };

  RecordingLine(MSComm& line, const TimerQueue& clock);

  /// Begins or ends recording; recorded entries stay until they are taken.
  void Record(bool on) { recording_ = on; }
  std::vector<Entry> TakeEntries();
  /// Adds the verdict on a message to its frame's entry, and adds it again when it changes.
  void NoteVerdict(int number, std::span<const std::uint8_t> frame, const std::string& verdict);

  int CommPort() const override { return line_.CommPort(); }
  void SetCommPort(int port) override { line_.SetCommPort(port); }
  bool PortOpen() const override { return line_.PortOpen(); }
  void SetPortOpen(bool open) override { line_.SetPortOpen(open); }
  bool Opening() const override { return line_.Opening(); }
  void Output(std::span<const std::uint8_t> bytes) override;
  std::size_t OutBufferCount() const override { return line_.OutBufferCount(); }
  int OutputDiscards() const override { return line_.OutputDiscards(); }
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
  bool goesOn_ = false;  ///< the next byte taken belongs to the latest entry
  std::vector<Entry> entries_;
};

}  // namespace marlinset

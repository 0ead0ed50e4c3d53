// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <deque>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "platform/ms_comm.h"
#include "platform/virtual_pump.h"
#include "unit/unit_model.h"
#include "wire/reply_gate.h"

namespace marlinset {

/// A serial line on the virtual clock with a virtual unit at its far end. Bytes take no time unless the line
/// is paced; a reply arrives whole, in a later pump. The pump must not run any more once the line is gone.
class UnitLine : public MSComm {
 public:
  explicit UnitLine(VirtualPump& pump, UnitSettings settings = {});

  UnitModel& Unit() { return unit_; }
  const UnitModel& Unit() const { return unit_; }
  /// Call after anything that makes the unit speak on its own: StartBroadcast, Flood, Say, remote mode again.
  void Settle() { Schedule(); }

  /// Bits a second in both directions; 0: bytes take no time.
  void SetPace(int bitsPerSecond);
  /// Off: bytes become readable in pieces, as they arrive. On at first, as on a real port.
  void SetGate(bool on) { gated_ = on; }
  /// The ports with a device; 1 at first.
  void SetPorts(std::set<int> ports) { ports_ = std::move(ports); }
  /// The name of a port's device; "unit1" and so on at first.
  void NameDevice(int port, std::string name) { names_[port] = std::move(name); }
  /// Makes every opening fail with this text; an empty one ends that.
  void RefuseOpen(std::string text) { refusal_ = std::move(text); }

  /// Bytes that arrive at `atMs` of the pump's clock, whoever sends them.
  void Inject(Bytes bytes, std::int64_t atMs);
  /// Takes the device away: closes the port and tells the tool. Openings fail until Return.
  void Vanish();
  void Return() { gone_ = false; }
  /// The line takes no more bytes; the port discards each message after a second.
  void Jam() { jammed_ = true; }
  void RaiseEvent(int code);

  /// What the tool has written since the last ClearSent, one element for each Output.
  const std::vector<Bytes>& Sent() const { return sent_; }
  void ClearSent() { sent_.clear(); }
  /// The same as texts: "15 0 52" for the fields of a message.
  std::vector<std::string> SentFields() const;
  /// How often the tool has looked for devices.
  int Looks() const { return looks_; }

  int CommPort() const override { return port_; }
  void SetCommPort(int port) override { port_ = port; }
  bool PortOpen() const override { return open_; }
  void SetPortOpen(bool open) override;
  void Output(std::span<const std::uint8_t> bytes) override;
  std::size_t OutBufferCount() const override { return outgoing_; }
  int OutputDiscards() const override { return discards_; }
  std::size_t InBufferCount() const override { return input_.size(); }
  void DiscardInput() override { input_.clear(); }
  std::uint8_t Input() override;
  bool DeviceGone() const override { return lost_; }
  int CommEvent() const override { return event_; }
  void LookForDevices() override { ++looks_; }
  std::string DeviceName(int port) const override;
  bool DeviceIsThere(int port) const override { return ports_.contains(port); }

 private:
  LineTime Now() const { return std::chrono::milliseconds{pump_.Now()}; }
  /// The clock's first moment that is not before `time`.
  static std::int64_t Clock(LineTime time);
  void Open();
  void Close();
  void Keep(std::size_t bytes);
  void Schedule();
  void TakeReplies();
  void Arrive(std::span<const std::uint8_t> bytes);
  void WaitForQuiet();
  void Store(std::span<const std::uint8_t> bytes);

  VirtualPump& pump_;
  UnitModel unit_;
  LinePace toUnit_;
  LinePace fromUnit_;
  ReplyGate gate_;
  bool gated_ = true;
  std::uint64_t arrivals_ = 0;
  std::uint64_t session_ = 0;  ///< counts openings and closings: what was on its way at one of them is lost
  std::set<int> ports_{1};
  std::map<int, std::string> names_;
  std::string refusal_;
  bool gone_ = false;
  bool lost_ = false;
  bool open_ = false;
  bool jammed_ = false;
  int discards_ = 0;
  int port_ = 1;
  int event_ = 0;
  int looks_ = 0;
  std::size_t outgoing_ = 0;
  std::deque<std::uint8_t> input_;
  std::vector<Bytes> sent_;
};

}  // namespace marlinset

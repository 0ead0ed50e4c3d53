// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/unit_line.h"

#include <algorithm>

#include "base/runtime_error.h"

namespace marlinset {

UnitLine::UnitLine(VirtualPump& pump, UnitSettings settings) : pump_(pump), unit_(std::move(settings)) {}

std::int64_t UnitLine::Clock(LineTime time) {
  return std::chrono::ceil<std::chrono::milliseconds>(time).count();
}

void UnitLine::SetPace(int bitsPerSecond) {
  toUnit_ = LinePace(bitsPerSecond);
  fromUnit_ = LinePace(bitsPerSecond);
}

std::string UnitLine::DeviceName(int port) const {
  if (const auto named = names_.find(port); named != names_.end()) return named->second;
  return ports_.contains(port) ? "unit" + std::to_string(port) : "";
}

void UnitLine::SetPortOpen(bool open) {
  if (open != open_) open ? Open() : Close();
}

void UnitLine::Open() {
  lost_ = false;
  if (!refusal_.empty()) throw RuntimeError(kErrPort, refusal_);
  if (gone_ || !ports_.contains(port_)) throw RuntimeError(kErrPort, "There is no such device.");
  open_ = true;
  ++session_;
}

void UnitLine::Close() {
  open_ = false;
  ++session_;
  outgoing_ = 0;
  input_.clear();
  gate_.Clear();
}

void UnitLine::Vanish() {
  gone_ = true;
  lost_ = open_;
  Close();
  if (lost_) RaiseEvent(kCommDeviceGone);
}

void UnitLine::RaiseEvent(int code) {
  event_ = code;
  RaiseOnComm();
}

void UnitLine::Output(std::span<const std::uint8_t> bytes) {
  if (!open_) return;
  Bytes frame(bytes.begin(), bytes.end());
  if (jammed_) return Keep(frame.size());
  sent_.push_back(frame);
  if (!toUnit_.Paced()) {
    unit_.Receive(frame, Now());
    return Schedule();
  }
  outgoing_ += frame.size();
  const std::int64_t arrival = Clock(toUnit_.Send(Now(), frame.size()));
  pump_.At(arrival, [this, frame = std::move(frame), session = session_] {
    if (session != session_) return;
    outgoing_ -= frame.size();
    unit_.Receive(frame, Now());
    Schedule();
  });
}

void UnitLine::Keep(std::size_t bytes) {
  outgoing_ += bytes;
  pump_.At(pump_.Now() + 1000, [this, bytes, session = session_] {
    if (session != session_) return;
    outgoing_ -= bytes;
    ++discards_;
  });
}

std::vector<std::string> UnitLine::SentFields() const {
  std::vector<std::string> texts;
  for (const Bytes& frame : sent_) {
    std::string& text = texts.emplace_back();
    for (std::size_t i = 2; i + 1 < frame.size(); ++i) text += (i == 2 ? "" : " ") + std::to_string(frame[i]);
  }
  return texts;
}

std::uint8_t UnitLine::Input() {
  if (input_.empty()) throw SubscriptOutOfRange();
  const std::uint8_t byte = input_.front();
  input_.pop_front();
  return byte;
}

void UnitLine::Schedule() {
  if (const auto next = unit_.NextReplyAt()) pump_.At(Clock(*next), [this] { TakeReplies(); });
}

void UnitLine::TakeReplies() {
  const auto replies = unit_.TakeReplies(Now());
  if (replies.empty()) return;  // taken by an earlier visit, which has scheduled the next one
  for (const Bytes& reply : replies) Inject(reply, Clock(fromUnit_.Send(Now(), reply.size())));
  Schedule();
}

void UnitLine::Inject(Bytes bytes, std::int64_t atMs) {
  pump_.At(atMs, [this, bytes = std::move(bytes)] { Arrive(bytes); });
}

void UnitLine::Arrive(std::span<const std::uint8_t> bytes) {
  if (!open_) return;
  ++arrivals_;
  if (!gated_) return Store(bytes);
  if (gate_.Feed(bytes)) Store(gate_.Take());
  if (gate_.Holding()) WaitForQuiet();
}

void UnitLine::WaitForQuiet() {
  pump_.At(pump_.Now() + ReplyGate::kQuietGapMs, [this, arrivals = arrivals_, session = session_] {
    if (arrivals != arrivals_ || session != session_) return;
    gate_.Quiet();
    Store(gate_.Take());
  });
}

void UnitLine::Store(std::span<const std::uint8_t> bytes) {
  const std::size_t room = kInBufferSize - std::min(kInBufferSize, input_.size());
  const auto kept = bytes.first(std::min(room, bytes.size()));
  input_.insert(input_.end(), kept.begin(), kept.end());
  const bool overflow = kept.size() < bytes.size();
  if (!kept.empty()) RaiseEvent(kCommReceive);
  if (overflow) RaiseEvent(kCommOverflow);
}

}  // namespace marlinset

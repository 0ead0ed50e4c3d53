// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/unit/unit_server.h"

#include <algorithm>
#include <utility>

namespace marlinset {
namespace {

LineTime SteadyNow() {
  return std::chrono::steady_clock::now().time_since_epoch();
}

}  // namespace

UnitServer::UnitServer(UnitModel& unit, Pty& line, int bitsPerSecond)
    : unit_(unit), line_(line), toUnit_(bitsPerSecond), fromUnit_(bitsPerSecond), start_(SteadyNow()) {}

LineTime UnitServer::Now() const {
  return SteadyNow() - start_;
}

void UnitServer::ReadLine() {
  const LineTime now = Now();
  for (const std::uint8_t byte : line_.Read()) incoming_.push_back({toUnit_.Send(now, 1), byte});
}

void UnitServer::LoseLine() {
  incoming_.clear();
  outgoing_.clear();
  unit_.LoseLine();
}

// Bytes that cannot complete a frame need no wake-up.
std::optional<LineTime> UnitServer::NextArrival() const {
  if (incoming_.empty()) return std::nullopt;
  return incoming_[std::min(unit_.BytesToGo(), incoming_.size()) - 1].at;
}

std::optional<LineTime> UnitServer::NextDeparture() const {
  return outgoing_.empty() ? std::nullopt : std::optional(outgoing_.front().at);
}

void UnitServer::LearnLateness() {
  constexpr LineTime kMost = std::chrono::microseconds{100};  // more is a stall, which proves nothing
  constexpr int kMemory = 16;
  if (!wakeUp_) return;
  const LineTime late = Now() - *wakeUp_;
  if (late >= LineTime{}) lateness_ += (std::min(late, kMost) - lateness_) / kMemory;
  wakeUp_.reset();
}

std::optional<LineTime> UnitServer::RunDue() {
  LearnLateness();
  for (;;) {
    const auto arrival = NextArrival();
    const auto departure = NextDeparture();
    const auto reply = unit_.NextReplyAt();
    constexpr LineTime kNever = LineTime::max();
    const LineTime next =
        std::min({arrival.value_or(kNever), departure.value_or(kNever), reply.value_or(kNever)});
    if (next == kNever) return std::nullopt;
    const LineTime now = Now();
    if (next > now + lateness_) {
      wakeUp_ = next - lateness_;
      return *wakeUp_ - now;
    }
    if (arrival == next) {
      Deliver(next);
    } else if (departure == next) {
      line_.Write(outgoing_.front().bytes);
      outgoing_.pop_front();
    } else {
      TakeReplies(next);
    }
  }
}

void UnitServer::Deliver(LineTime at) {
  Bytes bytes;
  for (; !incoming_.empty() && incoming_.front().at <= at; incoming_.pop_front())
    bytes.push_back(incoming_.front().byte);
  unit_.Receive(bytes, at);
  for (const auto& [time, frame] : unit_.TakeFrames())
    if (listener_) listener_(time, Direction::kReceived, frame);
}

void UnitServer::TakeReplies(LineTime at) {
  for (Bytes& reply : unit_.TakeReplies(at)) {
    if (listener_) listener_(at, Direction::kSent, reply);
    if (!fromUnit_.Paced()) {
      outgoing_.push_back({at, std::move(reply)});
      continue;
    }
    for (const std::uint8_t byte : reply) outgoing_.push_back({fromUnit_.Send(at, 1), {byte}});
  }
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/virtual_pump.h"

#include <algorithm>
#include <stdexcept>

namespace marlinset {
namespace {
constexpr int kMostIdlePumps = 100000;
}

void VirtualPump::HandleDue() {
  while (!actions_.empty() && actions_.begin()->first <= now_) {
    const auto action = std::move(actions_.begin()->second);
    actions_.erase(actions_.begin());
    action();
  }
  RunDueTimers();
}

std::optional<std::int64_t> VirtualPump::NextEvent() const {
  std::optional<std::int64_t> next = NextDue();
  if (!actions_.empty() && (!next || actions_.begin()->first < *next)) next = actions_.begin()->first;
  return next;
}

void VirtualPump::Pump() {
  const auto next = NextEvent();
  if (!next) {
    if (++idlePumps_ > kMostIdlePumps)
      throw std::logic_error("nothing is scheduled that could end this wait");
    return;
  }
  idlePumps_ = 0;
  now_ = std::max(now_, *next);
  HandleDue();
}

void VirtualPump::At(std::int64_t when, std::function<void()> action) {
  actions_.emplace(when, std::move(action));
}

void VirtualPump::Pass(std::int64_t milliseconds) {
  const std::int64_t end = now_ + milliseconds;
  for (auto next = NextEvent(); next && *next <= end && !Ending(); next = NextEvent()) {
    now_ = std::max(now_, *next);
    HandleDue();
  }
  now_ = std::max(now_, end);
}

}  // namespace marlinset

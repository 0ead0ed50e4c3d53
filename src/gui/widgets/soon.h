// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>
#include <functional>
#include <utility>

namespace marlinset {

/// Work that is done at most once in a turn of the event loop, however often it is asked for.
class Soon {
 public:
  explicit Soon(std::function<void()> work) : work_(std::move(work)) {
    timer_.setSingleShot(true);
    timer_.callOnTimeout([this] { work_(); });
  }
  /// The work is due, in this turn or after some milliseconds; no later than it is due already.
  void Ask(int milliseconds = 0) {
    if (!timer_.isActive() || timer_.remainingTime() > milliseconds) timer_.start(milliseconds);
  }
  /// Does the work at once if it is due.
  void Hurry() {
    if (!timer_.isActive()) return;
    timer_.stop();
    work_();
  }

 private:
  std::function<void()> work_;
  QTimer timer_;
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>
#include <functional>
#include <utility>

namespace marlinset {

/// Work that is done at most once in a turn of the event loop, however often it is asked for.
class Soon {
 public:
  explicit Soon(std::function<void()> work) {
    timer_.setSingleShot(true);
    timer_.callOnTimeout(std::move(work));
  }
  /// The work is due, in this turn or after some milliseconds; no later than it is due already.
  void Ask(int milliseconds = 0) {
    if (!timer_.isActive() || timer_.remainingTime() > milliseconds) timer_.start(milliseconds);
  }

 private:
  QTimer timer_;
};

}  // namespace marlinset

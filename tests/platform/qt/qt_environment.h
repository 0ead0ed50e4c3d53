// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "platform/guard.h"
#include "platform/qt/qt_pump.h"
#include "tests/support/fake_dialogs.h"

namespace marlinset {

/// A pump on Qt's loop with boxes and a guard. Its waits have a generous limit, so that a fault fails a test
/// instead of hanging it.
struct QtBench {
  FakeDialogs dialogs;
  Guard guard{dialogs};
  QtPump pump;

  /// Pumps until `holds`; false when it never did.
  bool Wait(const std::function<bool()>& holds) {
    Timer limit(pump, guard, "limit", 20000);
    bool over = false;
    limit.OnTick([&over] { over = true; });
    limit.SetEnabled(true);
    while (!holds() && !over) pump.Pump();
    return holds();
  }
};

}  // namespace marlinset

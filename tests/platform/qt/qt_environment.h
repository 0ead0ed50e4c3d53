// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <functional>
#include <optional>

#include "controls/guard.h"
#include "platform/qt/qt_pump.h"
#include "tests/support/fake_dialogs.h"

namespace marlinset {

/// Qt's loop and timers work only while a QCoreApplication lives.
class QtEnvironment : public testing::Environment {
 public:
  void SetUp() override { application_.emplace(argc_, argv_); }
  void TearDown() override { application_.reset(); }

 private:
  int argc_ = 1;
  char name_[5] = "test";
  char* argv_[2] = {name_, nullptr};
  std::optional<QCoreApplication> application_;
};

[[maybe_unused]] inline const auto* const kQt = testing::AddGlobalTestEnvironment(new QtEnvironment);

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

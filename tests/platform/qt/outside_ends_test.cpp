// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/outside_ends.h"

#include <gtest/gtest.h>

#include <QEvent>
#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "tests/platform/qt/qt_environment.h"

namespace marlinset {
namespace {

/// Runs a program whose end comes from outside while a handler of it waits.
void RunUntil(const std::function<void()>& end) {
  QtBench bench;
  const OutsideEnds ends({.leave = [] { std::fputs("left once\n", stderr); }});
  Timer later(bench.pump, bench.guard, "later", 1);
  later.OnTick([&] {
    end();
    bench.Wait([] { return false; });
  });
  later.SetEnabled(true);
  bench.Wait([] { return false; });
}

TEST(OutsideEnds, LeaveInOrderAndTellTheReasonByTheStatus) {
  testing::GTEST_FLAG(death_test_style) = "threadsafe";
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
    EXPECT_EXIT(RunUntil([&] { std::raise(number); }), testing::KilledBySignal(number), "^left once\n$");
  }
  EXPECT_EXIT(RunUntil([] { std::exit(1); }), testing::ExitedWithCode(1), "^left once\n$")
      << "what Qt does when the display is lost";
  EXPECT_EXIT(RunUntil([] {
                QEvent quit(QEvent::Quit);
                QCoreApplication::sendEvent(QCoreApplication::instance(), &quit);
              }),
              testing::ExitedWithCode(0), "^left once\n$")
      << "the session manager's last word";
  EXPECT_EXIT(
      {
        std::signal(SIGHUP, SIG_IGN);
        RunUntil([] {
          std::raise(SIGHUP);
          std::raise(SIGTERM);
        });
      },
      testing::KilledBySignal(SIGTERM), "^left once\n$")
      << "started by nohup";
}

}  // namespace
}  // namespace marlinset

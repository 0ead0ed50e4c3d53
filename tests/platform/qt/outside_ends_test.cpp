// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/outside_ends.h"

#include <QEvent>
#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "tests/platform/qt/qt_environment.h"

namespace marlinset {
namespace {

/// Runs a program that `end` ends while a handler waits.
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
  constexpr auto kLeft = "^left once\n$";
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
    EXPECT_EXIT(RunUntil([&] { std::raise(number); }), testing::KilledBySignal(number), kLeft);
  }
  const auto displayLost = [] { std::exit(1); };  // as Qt does
  EXPECT_EXIT(RunUntil(displayLost), testing::ExitedWithCode(1), kLeft);
  const auto sessionEnds = [] {
    QEvent quit(QEvent::Quit);
    QCoreApplication::sendEvent(QCoreApplication::instance(), &quit);
  };
  EXPECT_EXIT(RunUntil(sessionEnds), testing::ExitedWithCode(0), kLeft);
  const auto hangUpUnderNohup = [] {
    std::signal(SIGHUP, SIG_IGN);
    RunUntil([] { std::raise(SIGHUP), std::raise(SIGTERM); });
  };
  EXPECT_EXIT(hangUpUnderNohup(), testing::KilledBySignal(SIGTERM), kLeft);
}

}  // namespace
}  // namespace marlinset

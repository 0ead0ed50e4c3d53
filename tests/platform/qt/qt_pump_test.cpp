// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/qt_pump.h"

#include <QEvent>
#include <QMetaObject>
#include <QObject>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "platform/qt/outside_ends.h"
#include "tests/platform/qt/qt_environment.h"

namespace marlinset {
namespace {

TEST(QtPump, TicksOtherTimersWhileAHandlerPumps) {
  QtBench bench;
  int ticks = 0;
  bool done = false;
  Timer inner(bench.pump, bench.guard, "inner", 7);
  Timer outer(bench.pump, bench.guard, "outer", 10);
  inner.OnTick([&] { ++ticks; });
  outer.OnTick([&] {
    ticks = 0;
    EXPECT_TRUE(bench.Wait([&] { return ticks == 2; }));
    done = true;
  });
  const std::int64_t start = bench.pump.Now();
  inner.SetEnabled(true);
  outer.SetEnabled(true);
  EXPECT_TRUE(bench.Wait([&] { return done; }));
  EXPECT_GE(bench.pump.Now() - start, 10);
}

TEST(QtPump, SleepsNeitherOverWhatIsDueNorOnceTheProgramEnds) {
  QtBench bench;
  QObject receiver;
  std::vector<int> order;
  const auto post = [&](auto&& action) {
    QMetaObject::invokeMethod(&receiver, action, Qt::QueuedConnection);
  };
  post([&] {
    order.push_back(1);
    post([&] { order.push_back(2); });
  });
  bench.pump.Pump();  // nothing else would ever wake it
  EXPECT_EQ(order, (std::vector<int>{1, 2}));
  post([&] { bench.pump.End(); });
  while (!bench.pump.Ending()) bench.pump.Pump();
  for (int twice = 0; twice < 2; ++twice) bench.pump.Pump();
  bench.pump.HandleDue();
  EXPECT_TRUE(bench.pump.Ending());
}

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

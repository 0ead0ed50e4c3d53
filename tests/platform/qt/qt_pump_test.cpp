// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/qt_pump.h"

#include <gtest/gtest.h>

#include <QMetaObject>
#include <QObject>
#include <QTimer>
#include <vector>

#include "platform/runtime_error.h"
#include "tests/platform/qt/qt_environment.h"

namespace marlinset {
namespace {

TEST(QtPump, TicksTimersInTheOrderInWhichTheyFallDue) {
  QtBench bench;
  std::vector<int> ticks;
  Timer slow(bench.pump, bench.guard, "slow", 60);
  Timer fast(bench.pump, bench.guard, "fast", 20);
  slow.OnTick([&] { ticks.push_back(60); });
  fast.OnTick([&] {
    ticks.push_back(20);
    fast.SetEnabled(false);
  });
  slow.SetEnabled(true);
  fast.SetEnabled(true);
  const std::int64_t start = bench.pump.Now();
  EXPECT_TRUE(bench.Wait([&] { return ticks.size() == 2; }));
  EXPECT_EQ(ticks, (std::vector<int>{20, 60}));
  EXPECT_GE(bench.pump.Now() - start, 60);
}

TEST(QtPump, TicksOtherTimersWhileAHandlerPumps) {
  QtBench bench;
  int innerTicks = 0;
  bool outerDone = false;
  Timer inner(bench.pump, bench.guard, "inner", 7);
  Timer outer(bench.pump, bench.guard, "outer", 10);
  inner.OnTick([&] { ++innerTicks; });
  outer.OnTick([&] {
    const int before = innerTicks;
    while (innerTicks < before + 2 && !bench.pump.Ending()) bench.pump.Pump();
    outerDone = true;
    outer.SetEnabled(false);
  });
  inner.SetEnabled(true);
  outer.SetEnabled(true);
  QObject watchdog;
  QTimer::singleShot(20000, &watchdog, [&] { bench.pump.End(); });
  EXPECT_TRUE(bench.Wait([&] { return outerDone; }));
  EXPECT_FALSE(bench.pump.Ending());
}

TEST(QtPump, KeepsTickingAfterAHandlerFailed) {
  QtBench bench;
  int ticks = 0;
  Timer timer(bench.pump, bench.guard, "timer", 5);
  timer.OnTick([&] {
    if (++ticks == 1) throw RuntimeError(kErrOverflow, "Overflow");
  });
  timer.SetEnabled(true);
  EXPECT_TRUE(bench.Wait([&] { return ticks == 3; }));
  EXPECT_EQ(bench.dialogs.Texts(), std::vector<std::string>{"6  Overflow"});
}

TEST(QtPump, DoesNotSleepOverWhatIsDueAlready) {
  QtBench bench;
  QObject receiver;
  std::vector<int> order;
  QMetaObject::invokeMethod(
      &receiver,
      [&] {
        order.push_back(1);
        QMetaObject::invokeMethod(
            &receiver, [&] { order.push_back(2); }, Qt::QueuedConnection);
      },
      Qt::QueuedConnection);
  bench.pump.Pump();  // nothing else would ever wake it
  EXPECT_EQ(order, (std::vector<int>{1, 2}));
  bench.pump.HandleDue();
}

TEST(QtPump, NeverSleepsOnceTheProgramEnds) {
  QtBench bench;
  QObject receiver;
  QMetaObject::invokeMethod(
      &receiver, [&] { bench.pump.End(); }, Qt::QueuedConnection);
  while (!bench.pump.Ending()) bench.pump.Pump();
  bench.pump.Pump();
  bench.pump.Pump();
  EXPECT_TRUE(bench.pump.Ending());
}

}  // namespace
}  // namespace marlinset

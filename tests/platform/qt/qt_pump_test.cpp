// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/qt_pump.h"

#include <QMetaObject>
#include <QObject>
#include <vector>

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

}  // namespace
}  // namespace marlinset

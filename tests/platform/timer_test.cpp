// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/timer.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

#include "platform/guard.h"
#include "platform/runtime_error.h"
#include "platform/virtual_pump.h"
#include "tests/support/fake_dialogs.h"

namespace marlinset {
namespace {

using Moments = std::vector<std::int64_t>;

struct TimerTest : testing::Test {
  /// Notes the moments at which `watched` ticks.
  void Watch(Timer& watched, Moments& moments) {
    watched.OnTick([this, &moments] { moments.push_back(pump.Now()); });
  }
  FakeDialogs dialogs;
  Guard guard{dialogs};
  VirtualPump pump;
  Timer timer{pump, guard, "timer", 100};
  Moments ticks;
};

TEST_F(TimerTest, IsPeriodicOnceEnabled) {
  Watch(timer, ticks);
  pump.Pass(1000);
  EXPECT_TRUE(ticks.empty());
  timer.SetEnabled(true);
  pump.Pass(350);
  EXPECT_EQ(ticks, (Moments{1100, 1200, 1300}));
  timer.SetEnabled(false);
  pump.Pass(1000);
  EXPECT_EQ(ticks.size(), 3U);
}

TEST_F(TimerTest, StartsItsIntervalAnewOnlyWhenSomethingChanges) {
  Watch(timer, ticks);
  timer.SetEnabled(true);
  pump.Pass(60);
  timer.SetEnabled(true);
  timer.SetInterval(100);
  pump.Pass(40);
  EXPECT_EQ(ticks, Moments{100}) << "what was so already changes nothing";
  pump.Pass(60);
  timer.SetInterval(70);
  pump.Pass(60);
  timer.Restart();
  pump.Pass(70);
  EXPECT_EQ(ticks, (Moments{100, 290}));
  timer.SetInterval(0);
  pump.Pass(1000);
  EXPECT_EQ(ticks.size(), 2U) << "an interval of 0 never ticks";
}

TEST_F(TimerTest, IsNotEnteredAgainAndDropsTheTicksThatItMissed) {
  int running = 0;
  Moments otherTicks;
  Timer other(pump, guard, "other", 100);
  Watch(other, otherTicks);
  timer.OnTick([&] {
    ticks.push_back(pump.Now());
    EXPECT_EQ(++running, 1);
    if (ticks.size() == 1) pump.Pass(350);  // a box stands
    --running;
  });
  timer.SetEnabled(true);
  other.SetEnabled(true);
  pump.Pass(100);
  EXPECT_EQ(pump.Now(), 450);
  EXPECT_EQ(ticks, Moments{100});
  EXPECT_EQ(otherTicks, (Moments{100, 200, 300, 400})) << "others tick meanwhile";
  pump.Pass(100);
  EXPECT_EQ(ticks, (Moments{100, 500})) << "in its old rhythm";
}

TEST_F(TimerTest, TicksOnceHoweverLate) {
  struct StallingQueue : TimerQueue {
    std::int64_t now = 0;
    std::int64_t Now() const override { return now; }
  } queue;
  Timer late(queue, guard, "late", 10);
  int lateTicks = 0;
  late.OnTick([&lateTicks] { ++lateTicks; });
  late.SetEnabled(true);
  queue.now = 95;  // the program stood still
  queue.RunDueTimers();
  queue.RunDueTimers();
  EXPECT_EQ(lateTicks, 1);
  EXPECT_EQ(queue.NextDue(), 100);
}

TEST_F(TimerTest, SurvivesAHandlerThatFailsAndOneThatStopsIt) {
  timer.OnTick([this] {
    ticks.push_back(pump.Now());
    if (ticks.size() == 1) throw Overflow();
    timer.SetEnabled(false);
  });
  timer.SetEnabled(true);
  pump.Pass(1000);
  EXPECT_EQ(ticks, (Moments{100, 200}));
  EXPECT_EQ(dialogs.Texts(), std::vector<std::string>{"6  Overflow"});
}

TEST_F(TimerTest, FallsDueInOrder) {
  Timer slow(pump, guard, "slow", 150);
  std::vector<std::string> order;
  for (Timer* each : {&slow, &timer}) {
    each->OnTick([&order, each] { order.push_back(each->Name()); });
    each->SetEnabled(true);
  }
  EXPECT_EQ(pump.NextDue(), 100);
  pump.Pass(290);
  EXPECT_EQ(order, (std::vector<std::string>{"timer", "slow", "timer"}));
  {
    Timer gone(pump, guard, "gone", 1);
    gone.SetEnabled(true);
  }
  EXPECT_EQ(pump.NextDue(), 300);
}

TEST(VirtualPump, JumpsFromEventToEvent) {
  VirtualPump pump;
  std::vector<std::string> order;
  pump.At(20, [&] { order.emplace_back("b"); });
  pump.At(10, [&] {
    order.emplace_back("a");
    pump.At(5, [&] { order.emplace_back("late"); });
  });
  pump.At(20, [&] { order.emplace_back("c"); });
  pump.Pump();
  EXPECT_EQ(pump.Now(), 10);
  pump.Pump();
  EXPECT_EQ(pump.Now(), 20) << "time never goes back";
  EXPECT_EQ(order, (std::vector<std::string>{"a", "late", "b", "c"}));
}

TEST(VirtualPump, ReportsAWaitThatNothingCanEnd) {
  VirtualPump pump;
  EXPECT_THROW(
      {
        for (;;) pump.Pump();
      },
      std::logic_error);
}

TEST(Guard, ShowsAFailureAndGoesOn) {
  FakeDialogs dialogs;
  Guard guard(dialogs);
  EXPECT_TRUE(guard.Run([] {}));
  EXPECT_FALSE(guard.Run([] { throw RuntimeError(kErrNoTable, "No such table"); }));
  EXPECT_FALSE(guard.Run([] { throw std::logic_error("lost"); }));
  EXPECT_EQ(dialogs.Texts(), (std::vector<std::string>{"3078  No such table", "51  Internal error: lost"}));
  EXPECT_EQ(dialogs.shown[0].caption, "7340 Marlinset");
  EXPECT_THROW(guard.Run([] { throw ProgramEnd{1}; }), ProgramEnd) << "only main ends the program";
}

}  // namespace
}  // namespace marlinset

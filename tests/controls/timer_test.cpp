// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/timer.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

#include "base/runtime_error.h"
#include "controls/guard.h"
#include "platform/virtual_pump.h"
#include "tests/support/fake_dialogs.h"

namespace marlinset {
namespace {

using Moments = std::vector<std::int64_t>;

struct TimerTest : testing::Test {
  FakeDialogs dialogs;
  Guard guard{dialogs};
  VirtualPump pump;
  Timer timer{pump, guard, "timer", 100};
  Moments ticks;
};

TEST_F(TimerTest, StartsItsIntervalAnewOnlyWhenSomethingChanges) {
  timer.OnTick([this] { ticks.push_back(pump.Now()); });
  pump.Pass(1000);
  timer.SetEnabled(true);
  pump.Pass(160);
  timer.SetEnabled(true);
  timer.SetInterval(100);
  pump.Pass(40);
  EXPECT_EQ(ticks, (Moments{1100, 1200})) << "what was so already changes nothing";
  pump.Pass(60);
  timer.SetInterval(70);
  pump.Pass(60);
  timer.Restart();
  pump.Pass(70);
  EXPECT_EQ(ticks, (Moments{1100, 1200, 1390}));
  timer.SetInterval(0);
  pump.Pass(1000);
  EXPECT_EQ(ticks.size(), 3U) << "an interval of 0 never ticks";
}

TEST_F(TimerTest, IsNotEnteredAgainAndDropsTheTicksThatItMissed) {
  Moments otherTicks;
  Timer other(pump, guard, "other", 90);
  other.OnTick([&] { otherTicks.push_back(pump.Now()); });
  timer.OnTick([&] {
    ticks.push_back(pump.Now());
    if (ticks.size() == 1) pump.Pass(350);  // a box stands
  });
  timer.SetEnabled(true);
  other.SetEnabled(true);
  pump.Pass(100);
  EXPECT_EQ(pump.Now(), 450);
  EXPECT_EQ(otherTicks, (Moments{90, 180, 270, 360, 450})) << "others tick meanwhile";
  pump.Pass(100);
  EXPECT_EQ(ticks, (Moments{100, 500})) << "in its old rhythm";
}

TEST_F(TimerTest, SurvivesAHandlerThatFailsAndOneThatStopsIt) {
  timer.OnTick([this] {
    ticks.push_back(pump.Now());
    if (ticks.size() == 1) throw Overflow();
    if (ticks.size() == 2) throw std::logic_error("lost");
    timer.SetEnabled(false);
  });
  timer.SetEnabled(true);
  pump.Pass(1000);
  EXPECT_EQ(ticks, (Moments{100, 200, 300}));
  EXPECT_EQ(dialogs.Texts(), (std::vector<std::string>{"6  Overflow", "51  Internal error: lost"}));
}

}  // namespace
}  // namespace marlinset

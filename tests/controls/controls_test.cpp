// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/control_types.h"
#include "controls/form.h"
#include "controls/timer.h"
#include "tests/support/database_tool.h"

namespace marlinset {
namespace {

using Events = std::vector<std::string>;

struct ControlsTest : testing::Test {
  void Watch(EventSource& control) {
    control.OnClick([this] { events.emplace_back("click"); });
    control.OnChange([this] { events.emplace_back("change"); });
    control.OnMoved([this](int) { events.emplace_back("moved"); });
  }
  Events Of(const std::function<void()>& statement) {
    events.clear();
    statement();
    return events;
  }
  FakeDialogs dialogs;
  Guard guard{dialogs};
  Form form{"frmTest", guard};
  Events events;
  const Events none = {};
  const Events click = {"click"};
  const Events change = {"change"};
};

TEST_F(ControlsTest, TellOfARealChange) {
  CheckBox box(form, "box");
  Watch(box);
  EXPECT_EQ(Of([&] { box.SetValue(1); }), click);
  EXPECT_EQ(Of([&] { box.OperatorCheck(true); }), none);
  EXPECT_EQ(Of([&] { box.SetValue(2); }), click);
  EXPECT_FALSE(box.On());
  TextBox text(form, "text");
  Watch(text);
  EXPECT_EQ(Of([&] { text.SetText("a"); }), change);
  EXPECT_EQ(Of([&] { text.OperatorType("a"); }), none);
  SpinControl spin(form, "spin");
  Watch(spin);
  EXPECT_EQ(Of([&] { spin.SetValue(300); }), (Events{"moved", "change"})) << "any value from code";
  EXPECT_EQ(Of([&] { spin.SetValue(300); }), none);
  EXPECT_EQ(Of([&] { spin.SetMax(200); }), Events{"moved"}) << "limits pull it without a change";
  EXPECT_EQ(Of([&] { spin.SetMax(202); }), none);
  EXPECT_EQ(Of([&] { spin.OperatorStep(true, 5); }), (Events{"moved", "change", "moved", "change"}));
  EXPECT_EQ(Of([&] { spin.OperatorSpin(203); }), none);
  SpinControl inverted(form, "inverted");
  inverted.SetMax(-10);
  inverted.OperatorStep(true);
  EXPECT_EQ(inverted.Value(), -1) << "up goes towards Max";
  inverted.OnChange([] { throw Overflow(); });
  inverted.OperatorStep(true, 3);
  EXPECT_EQ(inverted.Value(), -4) << "each click fails by itself";
  EXPECT_EQ(dialogs.shown.size(), 3U);
  spin.SetMax(2147483647);
  spin.SetValue(2147483647);
  EXPECT_EQ(Of([&] { spin.OperatorStep(true); }), none);
}

TEST_F(ControlsTest, ComboBoxClicksForEachSelectionAndTakesTypingBackInSilence) {
  ComboBox combo(form, "combo");
  Watch(combo);
  for (const char* entry : {"one", "two"}) combo.AddItem(entry);
  for (const int index : {1, 1, -1, 0}) {
    EXPECT_EQ(Of([&] { combo.SetListIndex(index); }), click) << "also when it is selected already";
  }
  EXPECT_EQ(Of([&] { combo.OperatorType("onex"); }), change);
  EXPECT_EQ(combo.ListIndex(), 0);
  EXPECT_EQ(Of([&] { combo.PutBack(0); }), none);
  EXPECT_EQ(combo.Text(), "one");
  EXPECT_EQ(Of([&] { combo.PutBack(1); }), click);
  combo.OnKey([](int, KeyPress& key) { key.cancelled = key.code == 'x'; });
  EXPECT_EQ(Of([&] { combo.OperatorKey('x'); }), none);
  EXPECT_EQ(Of([&] { combo.OperatorKey(U'é'); }), change);
  EXPECT_EQ(combo.Text(), "twoé");
}

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

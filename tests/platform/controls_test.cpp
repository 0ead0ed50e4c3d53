// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "platform/control_array.h"
#include "platform/form.h"
#include "platform/guard.h"
#include "tests/support/fake_dialogs.h"

namespace marlinset {
namespace {

using Events = std::vector<std::string>;

int NumberOf(const std::function<void()>& statement) {
  try {
    statement();
  } catch (const RuntimeError& error) {
    return error.Number();
  }
  return 0;
}

struct ControlsTest : testing::Test {
  /// Notes each event of a control as a word.
  void Watch(EventSource& control) {
    control.OnClick([this] { events.emplace_back("click"); });
    control.OnChange([this] { events.emplace_back("change"); });
    control.OnMoved([this](int) { events.emplace_back("moved"); });
  }
  /// The events that a statement brings about.
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

TEST_F(ControlsTest, CheckBoxClicksOnARealChange) {
  CheckBox box(form, "box");
  Watch(box);
  EXPECT_EQ(Of([&] { box.SetValue(1); }), click);
  EXPECT_EQ(Of([&] { box.SetValue(1); }), none);
  EXPECT_EQ(Of([&] { box.OperatorCheck(true); }), none);
  EXPECT_EQ(Of([&] { box.OperatorCheck(false); }), click);
  EXPECT_EQ(Of([&] { box.SetValue(2); }), click);
  EXPECT_FALSE(box.On());
  EXPECT_EQ(NumberOf([&] { box.SetValue(3); }), kErrBadProperty);
  EXPECT_EQ(NumberOf([&] { box.SetValue(-1); }), kErrBadProperty);
  EXPECT_EQ(box.Value(), 2);
}

TEST_F(ControlsTest, OptionButtonClicksWhenItIsSetAndClearsItsGroupInSilence) {
  OptionGroup group;
  ControlArray<OptionButton> options(form, "o", {0, 1, 2});
  for (const int i : options.Indices()) options(i).Join(group);
  std::vector<int> clicked;
  options.OnClick([&](int index) { clicked.push_back(index); });
  EXPECT_EQ(group.Selected(), kNoIndex);
  options(0).SetValue(true);
  options(2).OperatorClick();
  options(2).OperatorClick();
  EXPECT_EQ(group.Selected(), 2);
  EXPECT_FALSE(options(0).Value());
  options(2).SetValue(false);
  EXPECT_EQ(group.Selected(), kNoIndex);
  EXPECT_EQ(clicked, (std::vector<int>{0, 2}));
  options.Unload(1);
  options(0).SetValue(true);
  EXPECT_EQ(group.Selected(), 0);
}

TEST_F(ControlsTest, ComboBoxClicksForEachSelection) {
  ComboBox combo(form, "combo");
  Watch(combo);
  EXPECT_EQ(Of([&] {
              combo.AddItem("one");
              combo.AddItem("two");
            }),
            none);
  EXPECT_EQ(combo.ListIndex(), -1);
  EXPECT_EQ(Of([&] { combo.SetListIndex(1); }), click);
  EXPECT_EQ(Of([&] { combo.SetListIndex(1); }), click);
  EXPECT_EQ(combo.Text(), "two");
  for (const int bad : {2, -2}) {
    EXPECT_EQ(NumberOf([&] { combo.SetListIndex(bad); }), kErrBadProperty);
    EXPECT_FALSE(combo.OperatorSelect(bad));
  }
  EXPECT_EQ(combo.ListIndex(), 1);
  EXPECT_EQ(Of([&] { combo.OperatorSelect(0); }), click);
  EXPECT_EQ(Of([&] { combo.SetListIndex(-1); }), click);
  EXPECT_EQ(combo.Text(), "");
  combo.SetListIndex(0);
  EXPECT_EQ(Of([&] { combo.Clear(); }), none);
  EXPECT_EQ(combo.ListIndex(), -1);
  EXPECT_EQ(combo.ListCount(), 0);
  EXPECT_EQ(combo.Text(), "");
}

TEST_F(ControlsTest, ComboBoxTakesTypingAndPutsItBack) {
  ComboBox combo(form, "combo");
  Watch(combo);
  combo.AddItem("one");
  combo.AddItem("two");
  combo.SetListIndex(0);
  EXPECT_EQ(Of([&] { combo.OperatorType("onex"); }), change);
  EXPECT_EQ(combo.ListIndex(), 0);
  EXPECT_EQ(Of([&] { combo.OperatorType("onex"); }), none);
  EXPECT_EQ(Of([&] { combo.PutBack(0); }), none);
  EXPECT_EQ(combo.Text(), "one");
  EXPECT_EQ(Of([&] { combo.PutBack(1); }), click);
  EXPECT_EQ(combo.Text(), "two");

  combo.OnKey([](int, KeyPress& key) { key.cancelled = key.code == 'x'; });
  EXPECT_EQ(Of([&] { combo.OperatorKey('x'); }), none);
  EXPECT_EQ(Of([&] { combo.OperatorKey(U'é'); }), change);
  EXPECT_EQ(combo.Text(), "twoé");
  EXPECT_EQ(Of([&] { combo.OperatorKey('\b'); }), change);
  EXPECT_EQ(combo.Text(), "two");
}

TEST_F(ControlsTest, SpinTakesAnyValueFromCodeAndLimitsPullItInSilence) {
  SpinControl spin(form, "spin");
  Watch(spin);
  EXPECT_EQ(Of([&] { spin.SetValue(300); }), (Events{"moved", "change"}));
  EXPECT_EQ(Of([&] { spin.SetValue(300); }), none);
  EXPECT_EQ(Of([&] { spin.SetMax(200); }), Events{"moved"});
  EXPECT_EQ(spin.Value(), 200);
  EXPECT_EQ(Of([&] { spin.SetMax(250); }), none);
  EXPECT_EQ(Of([&] { spin.SetMin(220); }), Events{"moved"});
  EXPECT_EQ(spin.Value(), 220);
  EXPECT_EQ(Of([&] { spin.Announce(); }), Events{"moved"});
}

TEST_F(ControlsTest, SpinStepsTowardsItsLimits) {
  const struct {
    int min, max, increment, value;
    bool up;
    int times, result;
  } rows[] = {
      {0, 10, 1, 5, true, 1, 6},
      {0, 10, 1, 5, false, 1, 4},
      {0, 10, 4, 5, true, 2, 10},
      {0, -10, 1, -5, true, 1, -6},
      {0, -10, 1, -5, false, 1, -4},  // inverted: up goes towards Max
      {0, -10, 3, -9, true, 5, -10},
      {10, 10, 1, 10, true, 3, 10},
      {0, 10, 1, 99, true, 1, 10},
      {0, 10, 1, 99, false, 1, 10},
      {0, 2147483647, 1, 2147483647, true, 1, 2147483647},
  };
  for (const auto& row : rows) {
    SpinControl spin(form, "spin");
    spin.SetMin(row.min);
    spin.SetMax(row.max);
    spin.SetIncrement(row.increment);
    spin.SetValue(row.value);
    spin.OperatorStep(row.up, row.times);
    EXPECT_EQ(spin.Value(), row.result) << row.value << (row.up ? " up" : " down");
  }
  SpinControl spin(form, "spin");
  Watch(spin);
  EXPECT_EQ(Of([&] { spin.OperatorStep(true, 2); }), (Events{"moved", "change", "moved", "change"}));
  EXPECT_EQ(Of([&] { spin.OperatorSpin(150); }), (Events{"moved", "change"}));
  EXPECT_EQ(spin.Value(), 100);
}

TEST_F(ControlsTest, TextBoxChangesOnARealChange) {
  TextBox text(form, "text");
  Watch(text);
  EXPECT_EQ(Of([&] { text.SetText("a"); }), change);
  EXPECT_EQ(Of([&] { text.SetText("a"); }), none);
  EXPECT_EQ(Of([&] { text.OperatorKey('b'); }), change);
  EXPECT_EQ(Of([&] { text.OperatorType("ab"); }), none);
  text.SetText("");
  EXPECT_EQ(Of([&] { text.OperatorKey('\b'); }), none);
}

TEST_F(ControlsTest, CodePressesWhatTheOperatorCannot) {
  Button button(form, "button");
  MenuItem item(form, "item");
  for (Control* control : {static_cast<Control*>(&button), static_cast<Control*>(&item)}) Watch(*control);
  const auto press = [&] {
    button.Press();
    item.Press();
  };
  for (const bool hidden : {false, true}) {
    for (Control* control : {static_cast<Control*>(&button), static_cast<Control*>(&item)}) {
      control->SetEnabled(hidden);
      control->SetVisible(!hidden);
    }
    EXPECT_FALSE(button.OperatorClick());
    EXPECT_FALSE(item.OperatorClick());
    EXPECT_EQ(Of(press), (Events{"click", "click"}));
  }
  EXPECT_EQ(Of([&] { item.SetChecked(true); }), none);
  item.SetVisible(true);
  EXPECT_TRUE(item.OperatorClick());
}

TEST_F(ControlsTest, FailuresOfHandlersStopAtTheOperatorsAction) {
  Button button(form, "button");
  button.OnClick([] { throw SubscriptOutOfRange(); });
  EXPECT_EQ(NumberOf([&] { button.Press(); }), kErrSubscript) << "code gets the failure itself";
  EXPECT_TRUE(dialogs.shown.empty());
  button.OperatorClick();
  EXPECT_EQ(dialogs.Texts(), Events{"9  Subscript out of range"});
}

TEST_F(ControlsTest, ScreensHearOfWhatTheyShowOnce) {
  Label label(form, "label");
  int repaints = 0;
  label.Changed.Connect([&] { ++repaints; });
  label.SetBackColor(kRed);
  label.SetBackColor(kRed);
  label.SetCaption("text");
  label.SetCaption("text");
  EXPECT_EQ(repaints, 2);
}

TEST_F(ControlsTest, ArraysLoadAndUnloadElements) {
  ControlArray<SpinControl> spins(form, "ud", {1, 5});
  std::vector<int> moved;
  std::vector<std::string> screen;
  spins.OnMoved([&](int index) { moved.push_back(index); });
  spins.Loaded.Connect([&](int index) { screen.push_back("+" + std::to_string(index)); });
  spins.Unloading.Connect([&](int index) { screen.push_back("-" + std::to_string(index)); });

  EXPECT_EQ(spins.UBound(), 5);
  EXPECT_FALSE(spins.Load(7).Visible());
  EXPECT_EQ(NumberOf([&] { spins.Load(7); }), kErrElementLoaded);
  EXPECT_EQ(NumberOf([&] { spins(2).SetValue(1); }), kErrNoSuchElement);
  EXPECT_EQ(NumberOf([&] { spins.Unload(2); }), kErrNoSuchElement);
  spins(7).SetValue(1);
  spins(1).SetValue(1);
  EXPECT_EQ(moved, (std::vector<int>{7, 1}));
  EXPECT_EQ(form.Find("ud", 7), &spins(7));
  EXPECT_EQ(form.Find("ud"), nullptr);
  EXPECT_EQ(form.Find("ud(7)"), &spins(7));
  spins.Unload(7);
  EXPECT_EQ(form.Find("ud", 7), nullptr);
  EXPECT_EQ(spins.Indices(), (std::vector<int>{1, 5}));
  EXPECT_EQ(screen, (std::vector<std::string>{"+7", "-7"}));
  spins.Load(7).SetValue(3);
  EXPECT_EQ(moved.back(), 7) << "a new element is heard as the old one was";
  for (const int index : spins.Indices()) spins.Unload(index);
  EXPECT_EQ(NumberOf([&] { spins.UBound(); }), kErrNoSuchElement);
}

}  // namespace
}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later

#include "controls/control_types.h"
#include "controls/form.h"
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

}  // namespace
}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
// Send Changes: what the unit does not hold, and no more.
#include "tests/panels/panel_rig.h"

namespace marlinset {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> Texts(const std::vector<UnheldMessage>& changes) {
  std::vector<std::string> texts;
  for (const UnheldMessage& change : changes) {
    std::string& text = texts.emplace_back();
    for (const int byte : BytesOf(change.message.fields))
      text += (text.empty() ? "" : " ") + std::to_string(byte);
  }
  return texts;
}

/// What a screen marks.
std::string Controls(const std::vector<UnheldMessage>& changes) {
  std::string names;
  for (const UnheldMessage& change : changes) {
    for (const ControlName& control : change.controls) {
      names += (names.empty() ? "" : " ") + FullNameOf(control.name, control.index);
    }
  }
  return names;
}

/// Identification and query before the changes, a query behind them.
std::vector<std::string> Framed(std::vector<std::string> changes) {
  changes.insert(changes.begin(), {"15 0 53", "15 0 52"});
  changes.emplace_back("15 0 52");
  return changes;
}

struct SentSetup : PanelRig {
  SentSetup() {
    form.bSConfig.OperatorClick();
    line.ClearSent();
  }
};

TEST(SendChanges, SendsOfEachThingTheLastMessageThatTheUnitDoesNotHold) {
  struct Edit {
    const char* edit;
    std::vector<std::string> changes;
    const char* marked = "";
  };
  const Edit edits[] = {
      {"", {}},
      {"choose ComWin(2) #1", {"2 8 35 1"}, "ComWin(2)"},
      {"choose ComWin(2) #1; choose ComWin(2) #0", {}},
      {"check chVITC 0", {"1 5 47"}, "chVITC"},
      {"check chEnable 1", {"1 5 56", "1 5 169 20 20"}, "chEnable UpDown1"},
      {"type tWinMess Take", {"2 8 40 14 84 65 75 69"}, "tWinMess"},
      {"check chPrev 1", {"2 8 37 1"}, "chPrev"},
      {"choose ComWin(1) #2", {"2 8 37 2"}, "ComWin(1)"},
      {"spin udHor(0) 6", {"2 8 33 1 66 10 6 13"}, "udHor(0)"},
      {"check chField(0) 0; check chOnOff(0) 0", {"2 8 33 1 0 10 5 11"}, "chOnOff(0) chField(0)"},
      {"click oVITC(2)", {"1 5 138 3"}, "oVITC(2)"},
      {"spin udVal(5) 77", {"15 0 192 2 2 77 0 0 0"}, "udVal(5)"},
      {"spin upVitc1(2) 17", {"1 5 163 14 0 17 0 16 0"}, "upVitc1(2)"},
  };
  for (const auto& [edit, changes, marked] : edits) {
    SCOPED_TRACE(edit);
    SentSetup rig;
    rig.Do(edit);
    EXPECT_EQ(Texts(rig.tool.wholeSend.Changes()), changes);
    EXPECT_EQ(Controls(rig.tool.wholeSend.Changes()), marked);
    EXPECT_THAT(rig.Sent(), IsEmpty()) << "the question sends nothing";
    rig.form.bSChanges.OperatorClick();
    EXPECT_EQ(rig.Sent(), Framed(changes));
    EXPECT_EQ(rig.tool.wholeSend.Result().planned, static_cast<int>(changes.size()) + 3);
    EXPECT_THAT(rig.tool.wholeSend.Changes(), IsEmpty());
    EXPECT_THAT(rig.TakeBoxes(), IsEmpty());
  }
}

/// A whole send writes the message back in capitals, and the panel's rule answers that as if it were typed.
TEST(SendChanges, ForeseesWhereTheMessageInCapitalsMovesItsWindow) {
  for (const bool interactive : {false, true}) {
    SentSetup rig;
    rig.Do("spin udHor(13) 31; click bSChanges");
    if (interactive) rig.GoInteractive();
    rig.tool.takeOver.Set("Take Over", {{"text message", std::string("mü")}});
    const std::vector<std::string> changes = Texts(rig.tool.wholeSend.Changes());
    rig.Sent();
    rig.form.bSChanges.OperatorClick();
    EXPECT_EQ(rig.Sent(), Framed(changes));
    EXPECT_EQ(rig.form.udHor(13).Value(), 30);
    EXPECT_EQ(rig.tool.wholeSend.Result().planned, static_cast<int>(changes.size()) + 3);
  }
}

TEST(SendChanges, SwitchTheInserterOffForTheFontSizeOnlyAndEndHighlights) {
  SentSetup rig;
  rig.Do("choose ComWin(3) #1");
  rig.form.bSChanges.OperatorClick();
  const std::vector<std::string> sent = rig.Sent();
  ASSERT_GT(sent.size(), 6U) << "all windows move to the rows of the size";
  EXPECT_EQ(std::vector(sent.begin() + 2, sent.begin() + 5),
            (std::vector<std::string>{"2 8 34 0", "2 8 32 1", "2 8 34 1"}));
  EXPECT_THAT(sent, testing::Contains(testing::StartsWith("2 8 34")).Times(2));

  rig.GoInteractive();
  rig.form.chOnOff(0).OperatorHover();
  EXPECT_THAT(rig.Sent(), ElementsAre("2 8 33 1 194 20 5 13"));
  rig.form.bSChanges.OperatorClick();
  EXPECT_EQ(rig.Sent(), Framed({"2 8 33 1 66 20 5 13"}));
}

/// Off line the status bar drops the model; what only model Q has is no less on the unit.
TEST(SendChanges, KnowsTheModelThoughTheStatusBarShowsItNoLonger) {
  SentSetup rig;
  rig.Do("choose ComWin(4) #1; choose ComDownConv(1) #2");
  const std::vector<std::string> changes = Texts(rig.tool.wholeSend.Changes());
  EXPECT_THAT(changes, testing::SizeIs(2));
  rig.form.StatBar(FrmStart::kModelPanel).SetText("");
  EXPECT_EQ(Texts(rig.tool.wholeSend.Changes()), changes);
}

TEST(SendChanges, ForgetsWhatTheUnitMayHoldNoLonger) {
  const std::pair<const char*, std::function<void(PanelRig&)>> ways[] = {
      {"closed", [](PanelRig& rig) { rig.form.bClose.OperatorClick(); }},
      {"gone", [](PanelRig& rig) { rig.line.Vanish(); }},
      {"silent",
       [](PanelRig& rig) {
         rig.line.Unit().Faults().mute = true;
         rig.form.bGetID.Press();
       }},
      {"another model", [](PanelRig& rig) { rig.form.StatBar(4).SetText("SD7340"); }},
      {"local",
       [](PanelRig& rig) {
         rig.line.Unit().SetLocal(true);
         rig.GoInteractive();
         rig.Do("choose ComWin(2) #1");
       }},
  };
  for (const auto& [name, way] : ways) {
    SCOPED_TRACE(name);
    SentSetup rig;
    EXPECT_TRUE(rig.form.bSChanges.Enabled());
    way(rig);
    EXPECT_FALSE(rig.tool.held.Known());
    EXPECT_FALSE(rig.form.bSChanges.Enabled());
  }
  SentSetup rig;
  rig.GoInteractive();
  rig.line.Unit().Faults().nak = 1;
  rig.Do("choose ComWin(2) #1");
  EXPECT_THAT(Texts(rig.tool.wholeSend.Changes()), ElementsAre("2 8 35 1"))
      << "a refusal is no acknowledgement";
  EXPECT_TRUE(rig.form.bSChanges.Enabled());
}

}  // namespace
}  // namespace marlinset

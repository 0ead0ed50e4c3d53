// SPDX-License-Identifier: GPL-3.0-or-later
#include <optional>

#include "files/panel_document.h"
#include "files/qcf_writer.h"
#include "tests/panels/panel_rig.h"

namespace marlinset {
namespace {

using testing::ElementsAre;

std::string Joined(const std::vector<std::string>& texts) {
  std::string all;
  for (const std::string& text : texts) all += (all.empty() ? "" : ", ") + text;
  return all;
}

TEST(PanelEdits, GoToTheUnitInInteractiveModeAndStandWhateverItSays) {
  enum Way { kOffLine, kInteractive, kLocal, kUnacknowledged };
  for (const TableRow& row : TableOf("edits")) {
    const std::string& messages = row[3];
    std::vector<std::uint8_t> panels;
    for (const Way way : {kOffLine, kInteractive, kLocal, kUnacknowledged}) {
      SCOPED_TRACE(testing::Message() << row[0] << ", way " << way);
      PanelRig rig;
      if (row[1] == "a model without") {
        rig.form.StatBar(4).SetText("HD7340");
      } else {
        rig.Do(row[1]);
      }
      rig.vars.ConfigSaved = true;
      if (way != kOffLine) rig.GoInteractive();
      rig.line.Unit().SetLocal(way == kLocal);
      rig.vars.UnitLocalMode = way == kLocal;
      rig.line.Unit().Faults().mute = way == kUnacknowledged;
      rig.Do(row[2]);
      const std::vector<std::string> sent = rig.Sent();
      if (way == kLocal) {
        EXPECT_EQ(std::to_string(sent.size()), row[4]);
        EXPECT_TRUE(messages.starts_with(Joined(sent)));
      } else {
        EXPECT_EQ(Joined(sent), way == kOffLine ? "" : messages);
      }
      EXPECT_EQ(rig.TakeBoxes().size(), way == kInteractive ? 0 : sent.size()) << "a box for each";
      EXPECT_EQ(rig.vars.ConfigSaved, row[5] == "kept");
      EXPECT_EQ(rig.form.InterTime.Enabled(), way != kOffLine);
      const auto now = WriteDocument(DocumentOfPanels(rig.vars, rig.form));
      if (way == kOffLine) panels = now;
      EXPECT_EQ(now, panels) << "the unit changes no panel";
    }
  }
}

/// The lock of a slow control keeps out all edits but those of the plain boxes in a window's row.
TEST(PanelEdits, FallIntoTheWaitOfAnother) {
  PanelRig rig;
  FrmStart& form = rig.form;
  rig.GoInteractive();
  rig.line.Unit().Faults().drop = 1;
  rig.pump.At(rig.pump.Now() + 5000, [&] {
    EXPECT_THAT(rig.Sent(), ElementsAre("2 8 35 1")) << "a style takes its ten seconds";
    form.chOnOff(0).OperatorCheck(false);
    form.tWinMess.OperatorType("a");
    form.UDDur.OperatorSpin(9);
    form.ComWin(1).OperatorSelect(1);
    form.ComDownConv(1).OperatorSelect(0);
    form.chPrev.OperatorCheck(true);
    form.chEnable.OperatorCheck(true);
    form.chSym(0).OperatorHover();
    EXPECT_TRUE(rig.Sent().empty());
    form.chDblSize(0).OperatorCheck(true);
  });
  form.ComWin(2).OperatorSelect(1);
  // The last edit's acknowledgement lifts the lock and counts for the style, too.
  EXPECT_THAT(rig.Sent(), ElementsAre("2 8 33 1 146 10 5 13", "2 8 37 1"));
  EXPECT_TRUE(rig.TakeBoxes().empty());

  rig.line.Unit().Faults().lateAcks = std::chrono::milliseconds{20};
  rig.pump.At(rig.pump.Now() + 10, [&] { form.tWinMess.OperatorType("ab"); });
  form.tWinMess.OperatorType("b");
  EXPECT_THAT(rig.Sent(), ElementsAre("2 8 40 14 66", "2 8 40 14 65 66")) << "the next keystroke";
  EXPECT_TRUE(rig.TakeBoxes().empty());
}

/// The numbers of the lines and their duplicates; an echo that differs stands in brackets.
std::string Lines(const FrmStart& form) {
  std::string text;
  for (const int line : FrmStart::kVitcLineIndices) {
    const std::string number = std::to_string(form.upVitc1(line).Value());
    const std::string& shown = form.tLineNumber(line).Text();
    text += (text.empty() ? "" : " ") + number + (shown == number ? "" : "(" + shown + ")");
  }
  return text;
}

TEST(LineNumbers, MoveByTheRulesOfTheirMode) {
  std::optional<PanelRig> rig(std::in_place);
  for (const TableRow& row : TableOf("vitc_lines")) {
    SCOPED_TRACE(row[0]);
    const bool fresh = row[1].starts_with("new; ");
    if (fresh) rig.emplace();
    rig->Do(fresh ? row[1].substr(5) : row[1]);
    EXPECT_EQ(Lines(rig->form), row[2]);
  }
}

TEST(LineNumbers, KeepInsideTheirLimits) {
  PanelRig rig;
  FrmStart& f = rig.form;
  rig.Do("click oVITC(2)");
  f.upVitc1(3).SetMin(13);
  f.upVitc1(1).OperatorSpin(19);
  EXPECT_EQ(Lines(f), "11 12 13 14 15 16") << "room is made as far as needed";
  f.upVitc1(1).SetMin(10);
  EXPECT_EQ(Lines(f), "10 12 13 14 15 16") << "limits pull without rules";
}

}  // namespace
}  // namespace marlinset

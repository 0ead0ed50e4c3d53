// SPDX-License-Identifier: GPL-3.0-or-later
#include <tuple>

#include "tests/support/link_rig.h"
#include "tests/support/table.h"

namespace marlinset {
namespace {

using enum CommandId;
using testing::ElementsAre;
using testing::IsEmpty;

CommandId CommandOfMeaning(const std::string& meaning) {
  int id = 0;
  while (CommandOf(static_cast<CommandId>(id)).meaning != meaning) ++id;
  return static_cast<CommandId>(id);
}

TEST(SettingCommands, SayWaitAndFailAsThePanelsDo) {
  for (const TableRow& row : TableOf("panel_commands")) {
    SCOPED_TRACE(row[0]);
    LinkRig rig;
    rig.OpenIdentified();
    rig.line.Unit().Faults().mute = true;
    rig.form.StatBar(1).SetText("Ack In");  // of the exchange before
    bool locked = false;
    rig.pump.At(20, [&] { locked = rig.vars.UnitLocalMode; });
    const bool silent = row[2].empty();
    EXPECT_EQ(rig.commands.Send(CommandOfMeaning(row[0]), Sender::kPanel), silent);
    EXPECT_THAT(rig.Sent(), ElementsAre(row[1]));
    EXPECT_EQ(rig.dialogs.Texts(), std::vector<std::string>(silent ? 0 : 1, row[2]));
    EXPECT_EQ(std::to_string(rig.pump.Now()), row[3]);
    EXPECT_EQ(locked, row[4] == "locks");
    EXPECT_FALSE(rig.vars.UnitLocalMode);
    EXPECT_EQ(rig.form.dPause.Interval(), 100);
  }
}

struct FromPanels : testing::Test, LinkRig {
  FromPanels() { OpenIdentified(); }
  std::string Sends(CommandId command, Sender sender = Sender::kPanel) {
    line.ClearSent();
    commands.Send(command, sender, 0, kHighlightOn);
    return Sent().at(0);
  }
};

TEST_F(FromPanels, ComeNumbersAndTexts) {
  const SettingCommand& vitcSource = CommandOf(CommandId::kVitcSource);
  EXPECT_EQ(MessageOf(vitcSource, {form, vars, Sender::kPanel}).meaning,
            "Number of VITC lines: not given (sent as 0)");
  form.upVitc1(1).SetValue(-14);
  form.upVitc1(7).SetValue(-36);
  EXPECT_EQ(Sends(kVitcLines), "1 5 163 14 34 15 35 16 36");
  form.chDups.SetValue(0);
  EXPECT_EQ(Sends(kVitcLines), "1 5 163 14 0 15 0 16 0");
  form.UpDown1.SetValue(-21);
  EXPECT_EQ(Sends(kWhiteFlagLine), "1 5 169 21 21");
  form.UDDur.SetValue(255);
  EXPECT_EQ(Sends(kSlateDuration), "2 8 36 0 255");
  form.tWinMess.SetText("");
  EXPECT_EQ(Sends(kText), "2 8 40 14");
  form.tWinMess.SetText(std::string(34, 'a'));
  std::string text = "2 8 40 14";
  for (int i = 0; i < 32; ++i) text += " 65";
  EXPECT_EQ(Sends(kText, Sender::kWholeSend), text);
  EXPECT_EQ(Sends(kText), text + " 0 0") << "a panel leaves the rest empty";

  form.UDDur.SetValue(1);
  form.tWinMess.SetText("a → b" + std::string(28, 'c'));
  SelectText(form.ComDownConv(0), "Film");
  SelectText(form.ComDownConv(1), "Soft");
  SelectText(form.ComDownConv(2), "Sharp");
  form.chSym(0).SetValue(1);
  form.chOnOff(0).SetValue(0);
  const std::pair<CommandId, std::string> meanings[] = {
      {kSlateDuration, "Slate duration: 1 frame"},
      {kText, "Text message 'A ? B" + std::string(27, 'C') + "' and 1 zero"},
      {kDownConverterControl, "Processing mode and filters: Film, vertical: Soft, horizontal: Sharp"},
      {kWindow,
       "Window 1 'Video Timecode': off, row 20, column 5, 16 wide, slate, field digit, symbol, "
       "double height, highlighted"}};
  for (const auto& [command, meaning] : meanings) {
    EXPECT_EQ(MessageOf(CommandOf(command), {form, vars, Sender::kPanel, 0, kHighlightOn}).meaning, meaning);
  }
}

// The window begins with field digit (2), double height (16), slate (32), on (64), and 11 + 2 characters.
TEST_F(FromPanels, ComeAWindowsFlagsRowPositionAndLength) {
  EXPECT_EQ(Sends(kWindow), "2 8 33 1 242 20 5 13");
  form.chSlate(0).SetVisible(false);
  EXPECT_EQ(Sends(kWindow), "2 8 33 1 242 20 5 13");
  EXPECT_EQ(Sends(kWindow, Sender::kWholeSend), "2 8 33 1 210 20 5 13") << "hidden, the slate does not count";
  form.chSym(0).SetValue(1);
  EXPECT_EQ(Sends(kWindow), "2 8 33 1 246 20 5 16");
  for (const auto* box : {&form.chField, &form.chSym, &form.chDblSize, &form.chSlate}) (*box)(0).SetValue(0);
  form.chOnOff(0).SetValue(2);
  EXPECT_EQ(Sends(kWindow), "2 8 33 1 128 20 5 11") << "a box in neither state counts as off";

  CharWindowRec& window = vars.CharWindows[0];
  window.Left = -2;
  const std::tuple<const char*, short, int> kRows[] = {
      {"Small (16 lines/field)", 37, 18}, {"Small (16 lines/field)", 39, 19},
      {"Large (32 lines/field)", 35, 8},  {"Large (32 lines/field)", 40, 10},
      {"Tiny (8 lines/field)", 40, 40},   {"Small", 36, 37}};
  for (const auto& [size, top, row] : kRows) {
    SelectText(form.ComWin(3), size);
    window.Top = top;
    EXPECT_EQ(Sends(kWindow), "2 8 33 1 128 " + std::to_string(row) + " 254 11");
  }
}

TEST_F(FromPanels, ParametersLastTheWholeIntervalAndInternalClassesStayAway) {
  vars.SystemParameters[0] = {2, 5, "Of a class that is sent", 77};
  for (const int row : {0, 1, 2, 3, -1, 4}) commands.SendParameter(row);
  EXPECT_THAT(Sent(),
              ElementsAre("15 0 192 5 2 77 0 0 0", "15 0 192 7 2 44 1 0 0", "15 0 192 2 3 255 255 255 255"));
  EXPECT_EQ(pump.Now(), 300);
  EXPECT_THAT(dialogs.Texts(), IsEmpty());
}

TEST_F(FromPanels, ShownWindowsAreHighlightedWhetherOrNotTheUnitAnswers) {
  line.Unit().Faults().drop = 2;
  for (const int light : {128, 0}) {
    commands.SendWindowInteractive(2, light);
    EXPECT_EQ(vars.CharWindows[2].Highlighted, light == 128);
  }
  EXPECT_EQ(Panel(1), "ACK LOST");
  EXPECT_THAT(dialogs.Texts(), IsEmpty());
  vars.CharWindows.push_back({});  // a record without a row of controls
  for (const int window : {1, 3, 4, -1}) commands.SendWindowInteractive(window, 128);
  for (const int window : {3, 4, -1}) commands.SendWindowAll(window);
  EXPECT_THAT(Sent(), ElementsAre("2 8 33 14 196 100 6 17", "2 8 33 14 68 100 6 17"));
}

}  // namespace
}  // namespace marlinset

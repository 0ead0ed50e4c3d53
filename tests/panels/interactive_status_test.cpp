// SPDX-License-Identifier: GPL-3.0-or-later
// The unit's word and the status bar's clock while the tool is busy with the unit.
#include <gmock/gmock.h>

#include "link/frame.h"
#include "tests/support/tool_rig.h"

namespace marlinset {
namespace {

TEST(InteractiveMode, KeepsTheOperatorsModelWhateverTheUnitSays) {
  ToolRig rig;
  ASSERT_TRUE(rig.tool.Start(""));
  FrmStart& form = rig.tool.form;
  form.bOpen.Press();
  for (const bool interactive : {true, false}) {
    form.mnuInter.SetChecked(interactive);
    rig.tool.variables.UnitLocalMode = true;
    rig.line.Inject(EncodeFrame(Bytes{15, 0, 53, kModelHd7340Q}), rig.pump.Now());
    rig.pump.Pass(50);
    EXPECT_EQ(rig.Panel(4), "HD7340Q");
    EXPECT_FALSE(rig.tool.variables.UnitLocalMode);
    EXPECT_EQ(rig.tool.variables.HardwareType, interactive ? "HD7340" : "HD7340Q");
    EXPECT_EQ(form.mnuHD7340.Checked(), interactive);
    EXPECT_EQ(form.mnuHD7340Q.Checked(), !interactive);
    EXPECT_EQ(form.fFilters.Visible(), !interactive);
  }
}

/// The model in panel 4 decides which messages a unit gets, so the status bar is not wiped in a send, however
/// long the unit takes.
TEST(StatusTimeOut, LetsASendEnd) {
  UnitSettings unit{.model = kModelHd7340Q};
  for (const int command : {35, 32}) unit.ackTimes[{2, command}] = std::chrono::milliseconds{9900};
  ToolRig rig(unit);
  ASSERT_TRUE(rig.tool.Start(""));
  std::vector<std::string> sent;
  rig.tool.commands.MessageSent.Connect([&](const SentMessage& message) {
    sent.emplace_back(message.command);
    EXPECT_EQ(rig.Panel(4), "HD7340Q") << message.meaning;
  });
  rig.tool.form.bSConfig.OperatorClick();
  EXPECT_GT(rig.pump.Now(), 19000);
  EXPECT_THAT(sent, testing::Contains("cmdDownConverterControl"));
  EXPECT_EQ(rig.Panel(3), "7340 Configuration Complete. ");
  EXPECT_EQ(rig.tool.wholeSend.Result().unacknowledged, 0);
  EXPECT_EQ(rig.Boxes(), std::vector<std::string>());
  rig.pump.Pass(10000);
  EXPECT_EQ(rig.Panel(3), "") << "but afterwards";
}

}  // namespace
}  // namespace marlinset

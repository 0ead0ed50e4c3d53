// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include "link/frame.h"
#include "tests/support/hex.h"
#include "tests/support/tool_rig.h"

namespace marlinset {
namespace {

using testing::ElementsAre;

struct Case {
  const char* name;
  const char* model = "HD7340Q";
  bool interactive = true;
  bool local = false;
  int lost = 0;
  bool sends = true;
};

constexpr Case kCases[] = {
    {.name = "interactive"},
    {.name = "any text that ends so", .model = "Stage 4 HD7340Q"},
    {.name = "off line", .interactive = false, .sends = false},
    {.name = "local mode", .local = true, .sends = false},
    {.name = "other model", .model = "HD7340", .sends = false},
    {.name = "not the end of the text", .model = "HD7340Q ", .sends = false},
    {.name = "no acknowledgement", .lost = 1},
};

TEST(DownConverter, SendsAllThreeChoicesToALiveUnitOfTheQModel) {
  for (const Case& item : kCases) {
    SCOPED_TRACE(item.name);
    ToolRig rig({.model = kModelHd7340Q});
    ASSERT_TRUE(rig.tool.Start(""));
    FrmStart& form = rig.tool.form;
    form.bOpen.Press();
    const auto& standards = form.comVS.List();
    form.comVS.OperatorSelect(
        static_cast<int>(std::find(standards.begin(), standards.end(), "1080i/60") - standards.begin()));
    form.mnuInter.SetChecked(item.interactive);
    form.StatBar(FrmStart::kModelPanel).SetText(item.model);
    rig.tool.variables.UnitLocalMode = item.local;
    rig.line.Unit().Faults().drop = item.lost;
    rig.line.ClearSent();
    const auto before = rig.pump.Now();
    if (item.lost) rig.pump.At(before + 5000, [&] { form.ComDownConv(1).OperatorSelect(0); });
    form.ComDownConv(0).OperatorSelect(1);
    if (item.sends) {
      EXPECT_THAT(rig.line.Sent(), ElementsAre(FromHex("02 06 02 08 2d 01 09 09 b0")));
      EXPECT_FALSE(rig.tool.variables.UnitLocalMode);
    } else {
      EXPECT_TRUE(rig.line.Sent().empty());
    }
    EXPECT_EQ(rig.Boxes(), item.lost ? std::vector<std::string>{"HD Down Converter Control Assignment error"}
                                     : std::vector<std::string>());
    EXPECT_EQ(rig.pump.Now() - before >= 10000, item.lost > 0) << "the unit gets its ten seconds";
    EXPECT_EQ(form.ComDownConv(0).Text(), "Motion Adaptive");
    EXPECT_EQ(form.ComDownConv(1).ListIndex(), item.lost ? 0 : 9) << "a choice during the wait stands unsent";
    EXPECT_TRUE(rig.tool.variables.ConfigSaved);
  }
}

TEST(DownConverter, AStandardSendsNothingAndATextOfNoTableLeavesItsFieldEmpty) {
  ToolRig rig({.model = kModelHd7340Q});
  ASSERT_TRUE(rig.tool.Start(""));
  FrmStart& form = rig.tool.form;
  form.bOpen.Press();
  form.mnuInter.SetChecked(true);
  form.StatBar(FrmStart::kModelPanel).SetText("HD7340Q");
  rig.line.ClearSent();
  for (int i = 0; i < form.comVS.ListCount(); ++i) form.comVS.OperatorSelect(i);
  EXPECT_TRUE(rig.line.Sent().empty());
  form.ComDownConv(1).OperatorType("Velvet");
  form.ComDownConv(0).Clear();
  form.ComDownConv(2).OperatorSelect(0);
  EXPECT_THAT(rig.line.Sent(), ElementsAre(FromHex("02 06 02 08 2d 00 00 00 c3")));
}

}  // namespace
}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include "tests/support/link_rig.h"
#include "tests/support/table.h"

namespace marlinset {
namespace {

using testing::ElementsAre;

TEST(SendPacket, PutsTheFramesOnTheLineThatUnitsKnow) {
  const std::pair<std::vector<PacketField>, const char*> kVectors[] = {
      {{15, 0, 33}, "02 03 0F 00 21 CD"},
      {{15, 0, 54, 1}, "02 04 0F 00 36 01 B6"},
      // 9 + 15 + 192 + 7 + 2 + 44 + 1 = 270, low byte 14, complement 242
      {{15, 0, 192, 7, 2, 44, 1, 0, 0}, "02 09 0F 00 C0 07 02 2C 01 00 00 F2"},
      // A negative field goes out as its low byte: 4 + 2 + 8 + 32 + 255 = 301, 45, 211; an empty one as 0.
      {{2, 8, 32, -1}, "02 04 02 08 20 FF D3"},
      {{2, 8, 32, -128}, "02 04 02 08 20 80 52"},
      {{2, 8, 32, std::nullopt}, "02 04 02 08 20 00 D2"},
      // A sum of exactly 256: 3 + 15 + 238
      {{15, 0, 238}, "02 03 0F 00 EE 00"},
  };
  LinkRig rig;
  rig.Open();
  for (const auto& [fields, frame] : kVectors) {
    rig.line.ClearSent();
    rig.comms.SendPacket(fields);
    EXPECT_EQ(ToHex(rig.line.Sent().at(0)), frame);
  }
  EXPECT_THROW(rig.comms.SendPacket({2, 8, 33, 256}), RuntimeError) << "it does not fit a byte";
  EXPECT_EQ(rig.line.Sent().size(), 1U);
  EXPECT_EQ(EncodeFrame(Bytes(255)).size(), 258U);
  EXPECT_THROW(EncodeFrame(Bytes(256)), RuntimeError);
}

TEST(SendPacket, ShowsTrafficUntilTheLastByteHasGone) {
  LinkRig rig;
  rig.Open();
  rig.line.SetPace(57600);
  rig.form.Image1(2).SetVisible(true);
  std::vector<Color> colors;
  rig.form.pComBut.Changed.Connect([&] { colors.push_back(rig.form.pComBut.BackColor()); });
  rig.form.bBroad.Press();
  EXPECT_THAT(rig.Sent(), ElementsAre("15 0 34"));
  EXPECT_THAT(colors, ElementsAre(kGreen, kYellow));
  EXPECT_GT(rig.pump.Now(), 0);
  EXPECT_EQ(rig.Panel(3), "Packet Out");
  EXPECT_FALSE(rig.form.Image1(2).Visible());
}

TEST(SendPacket, TellsOnceOnAClosedPortAndCountsAsAcknowledged) {
  LinkRig rig;
  EnableLinkButtons(rig.form, false);
  rig.form.pComBut.SetBackColor(kGreen);
  rig.dialogs.onShow = [&](const MessageBox&) {
    EXPECT_EQ(rig.EnabledButtons(), 0) << "before the box was read";
    return BoxAnswer::kOk;
  };
  EXPECT_TRUE(rig.comms.AckWait());
  EXPECT_THAT(rig.dialogs.Texts(), ElementsAre("Open Com Port before sending cmmands."));
  EXPECT_EQ(rig.Panel(1), "Ack In");
  EXPECT_EQ(rig.Panel(2), "Port Closed");
  EXPECT_EQ(rig.form.StatBar(3).Picture(), "Image2(2)");
  EXPECT_EQ(rig.form.pComBut.BackColor(), kRed);
  EXPECT_EQ(rig.EnabledButtons(), 6);
  EXPECT_EQ(rig.pump.Now(), 0);
}

}  // namespace
}  // namespace marlinset

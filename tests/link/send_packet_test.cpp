// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include "tests/support/link_rig.h"

namespace marlinset {
namespace {

using testing::ElementsAre;

struct Vector {
  std::vector<PacketField> fields;
  Bytes frame;
};

TEST(SendPacket, PutsTheFramesOnTheLineThatUnitsKnow) {
  const Vector kVectors[] = {
      {{15, 0, 33}, {0x02, 0x03, 0x0F, 0x00, 0x21, 0xCD}},
      {{15, 0, 34}, {0x02, 0x03, 0x0F, 0x00, 0x22, 0xCC}},
      {{15, 0, 52}, {0x02, 0x03, 0x0F, 0x00, 0x34, 0xBA}},
      {{15, 0, 53}, {0x02, 0x03, 0x0F, 0x00, 0x35, 0xB9}},
      {{15, 0, 54, 1}, {0x02, 0x04, 0x0F, 0x00, 0x36, 0x01, 0xB6}},
      // 9 + 15 + 192 + 7 + 2 + 44 + 1 = 270, low byte 14, complement 242
      {{15, 0, 192, 7, 2, 44, 1, 0, 0},
       {0x02, 0x09, 0x0F, 0x00, 0xC0, 0x07, 0x02, 0x2C, 0x01, 0x00, 0x00, 0xF2}},
      // A negative field goes out as its low byte: 4 + 2 + 8 + 32 + 255 = 301, 45, 211. So does an empty one,
      // as 0.
      {{2, 8, 32, -1}, {0x02, 0x04, 0x02, 0x08, 0x20, 0xFF, 0xD3}},
      {{2, 8, 32, -128}, {0x02, 0x04, 0x02, 0x08, 0x20, 0x80, 0x52}},
      {{2, 8, 32, std::nullopt}, {0x02, 0x04, 0x02, 0x08, 0x20, 0x00, 0xD2}},
      // A sum of exactly 256: 3 + 15 + 238
      {{15, 0, 238}, {0x02, 0x03, 0x0F, 0x00, 0xEE, 0x00}},
  };
  LinkRig rig;
  rig.Open();
  for (const Vector& vector : kVectors) {
    rig.line.ClearSent();
    rig.comms.SendPacket(vector.fields);
    EXPECT_THAT(rig.line.Sent(), ElementsAre(vector.frame));
    EXPECT_EQ(rig.vars.TxBytes, vector.frame);
  }
}

TEST(SendPacket, RefusesAFieldThatDoesNotFitAByte) {
  LinkRig rig;
  rig.Open();
  try {
    rig.comms.SendPacket({2, 8, 33, 256});
    FAIL() << "256 went out";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), kErrOverflow);
  }
  EXPECT_TRUE(rig.line.Sent().empty());
}

TEST(SendPacket, ShowsTrafficUntilTheLastByteHasGone) {
  LinkRig rig;
  rig.Open();
  rig.line.SetPace(57600);
  rig.form.Image1(2).SetVisible(true);
  std::vector<Color> colors;
  rig.form.pComBut.Changed.Connect([&] { colors.push_back(rig.form.pComBut.BackColor()); });
  rig.comms.SendPacket({15, 0, 33});
  EXPECT_THAT(colors, ElementsAre(kGreen, kYellow));
  EXPECT_EQ(rig.line.OutBufferCount(), 0U);
  EXPECT_GT(rig.pump.Now(), 0);
  EXPECT_EQ(rig.Panel(3), "Packet Out");
  EXPECT_FALSE(rig.form.Image1(2).Visible());
}

TEST(SendPacket, TellsOnceOnAClosedPortAndCountsAsAcknowledged) {
  LinkRig rig;
  EnableLinkButtons(rig.form, false);
  rig.form.pComBut.SetBackColor(kGreen);
  EXPECT_TRUE(rig.comms.AckWait());
  EXPECT_THAT(rig.dialogs.Texts(), ElementsAre("Open Com Port before sending cmmands."));
  EXPECT_EQ(rig.Panel(1), "Ack In");
  EXPECT_EQ(rig.Panel(2), "Port Closed");
  EXPECT_EQ(rig.form.StatBar(3).Picture(), "Image2(2)");
  EXPECT_EQ(rig.form.pComBut.BackColor(), kRed);
  for (const Button* button : {&rig.form.bOpen, &rig.form.bSend, &rig.form.bClose, &rig.form.bGetID,
                               &rig.form.bBroad, &rig.form.bSConfig}) {
    EXPECT_TRUE(button->Enabled()) << button->Name();
  }
  EXPECT_EQ(rig.pump.Now(), 0);
}

}  // namespace
}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/link_rig.h"
#include "tests/support/table.h"

namespace marlinset {
namespace {

using testing::ElementsAre;

const Bytes kStatus = FromHex("02 04 0F 00 34 04 B5");  // 1080i/60, automatic, video

TEST(ReceivePacket, TakesEachArrivalForOneMessage) {
  for (const TableRow& row : TableOf("arrivals")) {
    SCOPED_TRACE(row[0]);
    LinkRig rig;
    rig.Open();
    rig.line.OnComm({});
    const Bytes bytes = FromHex(row[1]);
    rig.vars.UnitLocalMode = bytes[0] != kLocalMode;
    rig.form.timeRes.SetEnabled(true);
    rig.dialogs.onShow = [&](const MessageBox&) {
      EXPECT_FALSE(rig.form.timeRes.Enabled()) << "the query would go out again behind the box";
      return BoxAnswer::kOk;
    };
    for (const int panel : {1, 3}) rig.form.StatBar(panel).SetText("-");
    rig.Receive(bytes);
    rig.comms.ReceivePacket();
    EXPECT_EQ(rig.Panel(1), row[2]);
    EXPECT_EQ(Trim(rig.Panel(3)), row[3]);
    EXPECT_EQ(rig.form.pComBut.BackColor(), row[4] == "green" ? kGreen : kYellow);
    EXPECT_EQ(rig.dialogs.Texts(), std::vector<std::string>(row[5].empty() ? 0 : 1, row[5]));
    EXPECT_EQ(rig.vars.UnitLocalMode, bytes[0] != kAck && bytes[0] != kNak);
  }
}

struct OpenLine : testing::Test, LinkRig {
  OpenLine() { Open(); }
};

TEST_F(OpenLine, LogsBytesInHexadecimalWhileTheLogIsShown) {
  Receive({kAck});
  EXPECT_EQ(form.tInput.Text(), "");
  form.tInput.SetVisible(true);
  Receive(kStatus);
  EXPECT_EQ(form.tInput.Text(), "2,4,F,0,34,4,B5,");
  EXPECT_EQ(vars.UnitStandardText, "1080i/60");
  form.tInput.SetText(std::string(195, '-'));
  vars.UnitStandardText.clear();
  Receive(kStatus);  // "2,4,F," passes 200 characters; 0F 00 34 04 B5 become the head
  EXPECT_EQ(form.tInput.Text(), "0,34,4,B5,");
  EXPECT_EQ(vars.UnitStandardText, "");
}

/// The log is full at 200 characters. The next byte empties it and becomes the head of the message.
TEST_F(OpenLine, TakesAUnitThatFloodsTheFullLogOutOfBroadcastMode) {
  form.tInput.SetVisible(true);
  for (const std::size_t behind : {50U, 51U, 51U}) {
    line.ClearSent();
    form.tInput.SetText("");
    Bytes bytes(66, 0x55);
    bytes.resize(66 + 2 + behind, 0x04);
    Receive(bytes);
    EXPECT_EQ(Sent(), std::vector<std::string>(behind - 50, "15 0 33"));
    EXPECT_EQ(form.tInput.Text().size(), 2 * behind);
    EXPECT_EQ(Panel(1), "Ack In");
  }
  line.ClearSent();
  line.SetPace(1200);  // the message that ends the flood takes 50 ms
  for (int ms = 0; ms < 40; ++ms) line.Inject(Bytes(200, 0x55), pump.Now() + ms);
  pump.Pass(1000);
  EXPECT_THAT(Sent(), ElementsAre("15 0 33")) << "told once";
}

TEST_F(OpenLine, ShowsTheVideoStatus) {
  for (const TableRow& row : TableOf("video_status")) {
    SCOPED_TRACE(row[0]);
    const bool manual = row[2] == "manual";
    vars.UnitStandardText = row[0] == "03" ? "" : "1080p/24";
    ReceiveFields({15, 0, 52, FromHex(row[0])[0]});
    EXPECT_EQ(Panel(2), row[1]);
    EXPECT_EQ(Panel(3), row[3] + " ");
    EXPECT_EQ(form.StatBar(3).Picture(), row[3] == "Video Present" ? "Image2(0)" : "Image2(1)");
    EXPECT_EQ(form.mnuAuto.Checked(), !manual);
    EXPECT_EQ(form.mnuMan.Checked(), manual);
  }
}

TEST_F(OpenLine, ShowsTheModelAndChoosesItsMenu) {
  std::string menu;
  form.mnuHD7340.OnClick([&] { menu += "HD7340"; });
  form.mnuHD7340Q.OnClick([&] { menu += "HD7340Q"; });
  const std::pair<std::uint8_t, const char*> kModels[] = {
      {2, "HD7340 HD7340"}, {10, "HDSD7340 HD7340"}, {8, "HD7340 HD7340"}, {32, "HD7340Q HD7340Q"}};
  for (const auto& [code, shown] : kModels) {
    menu = " ";
    vars.UnitLocalMode = true;
    ReceiveFields({15, 0, 53, code, 200});
    EXPECT_EQ(Panel(4) + menu, shown);
    EXPECT_FALSE(vars.UnitLocalMode);
  }
  ReceiveFields({15, 0, 53, 99, 200});
  EXPECT_EQ(Panel(4), "HD7340Q");
  EXPECT_THAT(dialogs.Texts(),
              ElementsAre("Invalid Identification Recieved, verify com port and retry.  99 200"));
}

TEST_F(OpenLine, SpellsTheFirmwareText) {
  Bytes text{15, 0, 54, 'M', 'A', 'R', '-', '4', '0', ' ', 0xE9, 0x0A, 0x00, 0xFF, 'R'};
  form.AboutTimer1.SetEnabled(true);
  ReceiveFields(text);  // 18 bytes: what a release needs
  EXPECT_EQ(vars.UnitIdText, "MAR-40 é 0A00FF");
  EXPECT_FALSE(form.AboutTimer1.Enabled());
  text.back() = 'B';
  text.insert(text.end(), {0x00, 0x01, 0xC0});
  ReceiveFields(text);
  EXPECT_EQ(vars.UnitIdText, "MAR-40 é 0A00FF B 0001C0");
}

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

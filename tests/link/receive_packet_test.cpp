// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <set>
#include <tuple>

#include "tests/support/hex.h"
#include "tests/support/link_rig.h"

namespace marlinset {
namespace {

using testing::ElementsAre;

const Bytes kStatus = FromHex("02 04 0F 00 34 04 B5");  // 1080i/60, automatic, video

/// What one arrival of bytes does to panels, indicator and boxes.
struct Arrival {
  const char* what;
  const char* bytes;
  const char* panel1;
  const char* panel3;
  Color indicator = kGreen;
  const char* box = "";
};

const Arrival kArrivals[] = {
    {"frame", "02 04 0F 00 34 04 B5", "-", "Video Present "},
    {"wrong checksum", "02 04 0F 00 34 04 B4", "-", "Checksum Error"},
    {"one byte short", "02 04 0F 00 34 04", "-", "Mode Switched to Select"},
    {"two frames together", "02 03 0F 00 02 EC 02 03 0F 00 02 EC", "-", "Mode Switched to Select"},
    {"lone start mark", "02", "-", "Buff Over", kYellow},
    {"too short for its decoder", "02 03 0F 00 35 B9", "-", "Buff Over", kYellow},
    {"acknowledged, and a byte that is lost", "04 06", "Ack In", "-"},
    {"not acknowledged", "05", "Nack In", "-"},
    {"local mode", "06", "Local Mode", "-"},
    {"noise in front of an answer", "FF 04", "-", "-"},
    {"unknown address", "02 03 07 00 21 D5", "-", "-", kGreen, "Address Incorrect  7"},
    {"packet id of another address", "02 03 0F 05 34 B5", "-", "-", kGreen, "Packet ID Error 5"},
};

TEST(ReceivePacket, TakesEachArrivalForOneMessage) {
  for (const Arrival& arrival : kArrivals) {
    SCOPED_TRACE(arrival.what);
    LinkRig rig;
    rig.Open();
    rig.line.OnComm({});
    const Bytes bytes = FromHex(arrival.bytes);
    rig.vars.UnitLocalMode = bytes[0] != kLocalMode;
    rig.form.timeRes.SetEnabled(true);
    rig.dialogs.onShow = [&](const MessageBox& box) {
      EXPECT_EQ(box.text, arrival.box);
      EXPECT_FALSE(rig.form.timeRes.Enabled()) << "the query would go out again behind the box";
      return BoxAnswer::kOk;
    };
    for (const int panel : {1, 3}) rig.form.StatBar(panel).SetText("-");
    rig.Receive(bytes);
    rig.comms.ReceivePacket();
    EXPECT_EQ(rig.Panel(1), arrival.panel1);
    EXPECT_EQ(rig.Panel(3), arrival.panel3);
    EXPECT_EQ(rig.form.pComBut.BackColor(), arrival.indicator);
    EXPECT_EQ(rig.dialogs.shown.size(), *arrival.box == 0 ? 0U : 1U);
    EXPECT_EQ(rig.vars.UnitLocalMode, bytes[0] != kAck && bytes[0] != kNak);
  }
}

struct OpenLine : testing::Test {
  OpenLine() { rig.Open(); }
  LinkRig rig;
};

TEST_F(OpenLine, LogsBytesInHexadecimalWhileTheLogIsShown) {
  rig.Receive({kAck});
  EXPECT_EQ(rig.form.tInput.Text(), "");
  rig.form.tInput.SetVisible(true);
  rig.Receive(kStatus);
  EXPECT_EQ(rig.form.tInput.Text(), "2,4,F,0,34,4,B5,");
  EXPECT_EQ(rig.vars.UnitStandardText, "1080i/60");
  rig.form.tInput.SetText(std::string(195, '-'));
  rig.vars.UnitStandardText.clear();
  rig.Receive(kStatus);  // "2,4,F," passes 200 characters; 0F 00 34 04 B5 become the head
  EXPECT_EQ(rig.form.tInput.Text(), "0,34,4,B5,");
  EXPECT_EQ(rig.vars.UnitStandardText, "");
}

/// 66 bytes of two digits and one of one digit make 200 characters. The next byte empties the log and becomes
/// the head of the message.
TEST_F(OpenLine, TakesAUnitThatFloodsTheFullLogOutOfBroadcastMode) {
  rig.form.tInput.SetVisible(true);
  for (const std::size_t behind : {50U, 51U, 51U}) {
    rig.line.ClearSent();
    rig.form.tInput.SetText("");
    Bytes bytes(66, 0x55);
    bytes.resize(66 + 2 + behind, 0x04);
    rig.Receive(bytes);
    EXPECT_EQ(rig.Sent(), std::vector<std::string>(behind - 50, "15 0 33"));
    EXPECT_EQ(rig.form.tInput.Text().size(), 2 * behind);
    EXPECT_EQ(rig.Panel(1), "Ack In");
  }
  rig.line.ClearSent();
  rig.line.SetPace(1200);  // the message that ends the flood takes 50 ms
  for (int ms = 0; ms < 40; ++ms) rig.line.Inject(Bytes(200, 0x55), rig.pump.Now() + ms);
  rig.pump.Pass(1000);
  EXPECT_THAT(rig.Sent(), ElementsAre("15 0 33")) << "told once";
}

struct StatusCase {
  std::uint8_t status;
  bool manual;
  bool video;
  const char* standard;  ///< "1080p/24" stood before
};

TEST_F(OpenLine, ShowsTheVideoStatus) {
  const StatusCase kCases[] = {
      {0x00, false, true, "1080p/24"}, {0xC1, true, false, "NTSC"},      {0x82, true, true, "PAL"},
      {0x03, false, true, "1080p/24"}, {0x44, false, false, "1080i/60"}, {0x05, false, true, "1080i/50"},
      {0x06, false, true, "525i/60"},  {0x07, false, true, "625i/50"},   {0x88, true, true, "720p/60"},
      {0x09, false, true, "1080p/24"}, {0x3F, false, true, "1080p/24"}};
  for (const StatusCase& c : kCases) {
    SCOPED_TRACE(int{c.status});
    rig.vars.UnitStandardText = c.status == 3 ? "" : "1080p/24";
    rig.ReceiveFields({15, 0, 52, c.status});
    EXPECT_EQ(rig.Panel(2), c.standard);
    EXPECT_EQ(rig.Panel(3), c.video ? "Video Present " : "No Video Present ");
    EXPECT_EQ(rig.form.StatBar(3).Picture(), c.video ? "Image2(0)" : "Image2(1)");
    EXPECT_EQ(rig.form.mnuAuto.Checked(), !c.manual);
    EXPECT_EQ(rig.form.mnuMan.Checked(), c.manual);
  }
}

TEST_F(OpenLine, ShowsTheModelAndChoosesItsMenu) {
  std::string menu;
  rig.form.mnuHD7340.OnClick([&] { menu += "HD7340"; });
  rig.form.mnuHD7340Q.OnClick([&] { menu += "HD7340Q"; });
  const std::pair<std::uint8_t, const char*> kModels[] = {
      {2, "HD7340 HD7340"}, {10, "HDSD7340 HD7340"}, {8, "HD7340 HD7340"}, {32, "HD7340Q HD7340Q"}};
  for (const auto& [code, shown] : kModels) {
    menu = " ";
    rig.vars.UnitLocalMode = true;
    rig.ReceiveFields({15, 0, 53, code, 200});
    EXPECT_EQ(rig.Panel(4) + menu, shown);
    EXPECT_FALSE(rig.vars.UnitLocalMode);
  }
  rig.ReceiveFields({15, 0, 53, 99, 200});
  EXPECT_EQ(rig.Panel(4), "HD7340Q");
  EXPECT_THAT(rig.dialogs.Texts(),
              ElementsAre("Invalid Identification Recieved, verify com port and retry.  99 200"));
}

TEST_F(OpenLine, SpellsTheFirmwareText) {
  Bytes text{15, 0, 54, 'M', 'A', 'R', '-', '4', '0', ' ', 0xE9, 0x0A, 0x00, 0xFF, 'R'};
  rig.form.AboutTimer1.SetEnabled(true);
  rig.ReceiveFields(text);  // 18 bytes: what a release needs
  EXPECT_EQ(rig.vars.UnitIdText, "MAR-40 é 0A00FF");
  EXPECT_FALSE(rig.form.AboutTimer1.Enabled());
  text.back() = 'B';
  text.insert(text.end(), {0x00, 0x01, 0xC0});
  rig.ReceiveFields(text);
  EXPECT_EQ(rig.vars.UnitIdText, "MAR-40 é 0A00FF B 0001C0");
}

TEST_F(OpenLine, PassesWhatUnitsAreKnownToSendAndShowsTheRest) {
  const std::tuple<std::uint8_t, std::uint8_t, std::set<int>> kKnown[] = {
      {15, 0, {2, 4, 8, 9, 10, 11, 12, 13, 16, 17, 49, 52, 53, 54, 56, 57, 58, 187, 208}},
      {0, 1, {44}},
      {1, 5, {22,  24,  25,  26,  27,  28,  29,  30,  31,  67,  69,  70,  72,  74,  76,  77,  79,  81,  83,
              85,  87,  88,  89,  90,  91,  92,  93,  94,  95,  102, 104, 105, 106, 107, 120, 121, 122, 123,
              124, 125, 126, 142, 143, 144, 145, 146, 147, 148, 149, 150, 151, 152, 153, 154, 155, 156, 157,
              158, 159, 176, 177, 178, 179, 180, 181, 182, 183, 184, 185, 186, 187, 188, 189, 208}},
      {2, 8, {48, 49, 50, 51, 52, 53, 54, 55, 56, 57, 58, 59}},
  };
  for (const auto& [address, packetId, known] : kKnown) {
    std::set<int> silent;
    for (int command = 0; command < 256; ++command) {
      rig.dialogs.shown.clear();
      rig.ReceiveFields({address, packetId, static_cast<std::uint8_t>(command)});
      const std::string unknown = "Unknown Command  " + std::to_string(address) + " " +
                                  std::to_string(packetId) + " " + std::to_string(command);
      if (rig.dialogs.Texts() != std::vector{unknown}) silent.insert(command);
    }
    EXPECT_EQ(silent, known) << "address " << int{address};
  }
}

}  // namespace
}  // namespace marlinset

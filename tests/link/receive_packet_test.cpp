// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include "tests/support/link_rig.h"

namespace marlinset {
namespace {

using testing::IsEmpty;

/// What one arrival of bytes does to panels, indicator and boxes.
struct Arrival {
  const char* what;
  Bytes bytes;
  const char* panel1;
  const char* panel3;
  Color indicator;
  std::vector<std::string> boxes;
};

const Bytes kStatus = {0x02, 0x04, 0x0F, 0x00, 0x34, 0x04, 0xB5};  // 1080i/60, automatic, video

const Arrival kArrivals[] = {
    {"frame", kStatus, "-", "Video Present ", kGreen, {}},
    {"wrong checksum", {0x02, 0x04, 0x0F, 0x00, 0x34, 0x04, 0xB4}, "-", "Checksum Error", kGreen, {}},
    {"one byte short", {0x02, 0x04, 0x0F, 0x00, 0x34, 0x04}, "-", "Mode Switched to Select", kGreen, {}},
    {"one byte long",
     {0x02, 0x04, 0x0F, 0x00, 0x34, 0x04, 0xB5, 0x00},
     "-",
     "Mode Switched to Select",
     kGreen,
     {}},
    {"two frames together",
     {0x02, 0x03, 0x0F, 0x00, 0x02, 0xEC, 0x02, 0x03, 0x0F, 0x00, 0x02, 0xEC},
     "-",
     "Mode Switched to Select",
     kGreen,
     {}},
    {"lone start mark", {0x02}, "-", "Buff Over", kYellow, {}},
    {"frame of nothing", {0x02, 0x00, 0x00}, "-", "Buff Over", kYellow, {}},
    {"too short for its decoder", {0x02, 0x03, 0x0F, 0x00, 0x35, 0xB9}, "-", "Buff Over", kYellow, {}},
    {"acknowledged", {0x04}, "Ack In", "-", kGreen, {}},
    {"acknowledged, and a byte that is lost", {0x04, 0x06}, "Ack In", "-", kGreen, {}},
    {"not acknowledged", {0x05}, "Nack In", "-", kGreen, {}},
    {"local mode", {0x06}, "Local Mode", "-", kGreen, {}},
    {"noise", {0x00}, "-", "-", kGreen, {}},
    {"noise in front of an answer", {0xFF, 0x04}, "-", "-", kGreen, {}},
    {"unknown address", {0x02, 0x03, 0x07, 0x00, 0x21, 0xD5}, "-", "-", kGreen, {"Address Incorrect  7"}},
    {"address with the packet id of another",
     {0x02, 0x03, 0x0F, 0x05, 0x34, 0xB5},
     "-",
     "-",
     kGreen,
     {"Packet ID Error 5"}},
};

TEST(ReceivePacket, TakesEachArrivalForOneMessage) {
  for (const Arrival& arrival : kArrivals) {
    SCOPED_TRACE(arrival.what);
    LinkRig rig;
    rig.Open();
    rig.line.OnComm({});
    for (const int panel : {1, 3}) rig.form.StatBar(panel).SetText("-");
    rig.Receive(arrival.bytes);
    rig.comms.ReceivePacket();
    EXPECT_EQ(rig.Panel(1), arrival.panel1);
    EXPECT_EQ(rig.Panel(3), arrival.panel3);
    EXPECT_EQ(rig.form.pComBut.BackColor(), arrival.indicator);
    EXPECT_EQ(rig.dialogs.Texts(), arrival.boxes);
    EXPECT_EQ(rig.line.InBufferCount(), 0U);
  }
}

TEST(ReceivePacket, ChangesNothingWhenNothingCame) {
  LinkRig rig;
  rig.Open();
  rig.form.pComBut.SetBackColor(kYellow);
  rig.comms.ReceivePacket();
  EXPECT_EQ(rig.form.pComBut.BackColor(), kYellow);
}

TEST(ReceivePacket, KnowsTheUnitsLocalModeByItsLastLoneByte) {
  LinkRig rig;
  rig.Open();
  for (const std::uint8_t leaves : {kAck, kNak}) {
    rig.Receive({kLocalMode});
    EXPECT_TRUE(rig.vars.UnitLocalMode);
    rig.Receive(kStatus);
    EXPECT_TRUE(rig.vars.UnitLocalMode);
    rig.Receive({leaves});
    EXPECT_FALSE(rig.vars.UnitLocalMode);
  }
}

TEST(ReceivePacket, LeavesAFirmwareReplyAloneUntilItIsWhole) {
  LinkRig rig;
  rig.Open();
  rig.line.OnComm({});
  rig.vars.WaitFullReply = true;
  rig.Receive(Bytes(19, 0x04));
  rig.comms.ReceivePacket();
  EXPECT_EQ(rig.line.InBufferCount(), 19U);
  EXPECT_TRUE(rig.vars.WaitFullReply);
  rig.Receive({0x04});
  rig.comms.ReceivePacket();
  EXPECT_EQ(rig.line.InBufferCount(), 0U);
  EXPECT_FALSE(rig.vars.WaitFullReply);
  EXPECT_EQ(rig.Panel(1), "Ack In");
}

TEST(ReceivePacket, LogsBytesInHexadecimalWhileTheLogIsShown) {
  LinkRig rig;
  rig.Open();
  rig.Receive(kStatus);
  EXPECT_EQ(rig.form.tInput.Text(), "");
  rig.form.tInput.SetVisible(true);
  rig.Receive({0x02, 0x03, 0x0F, 0x00, 0x35, 0xB9});
  EXPECT_EQ(rig.form.tInput.Text(), "2,3,F,0,35,B9,");
}

/// 66 bytes of two digits and one of one digit make 200 characters. The next byte empties the log and becomes
/// the head of the message.
struct Flood {
  std::size_t behind;  ///< bytes behind that one
  bool selects;
};

TEST(ReceivePacket, TakesAUnitThatFloodsTheFullLogOutOfBroadcastMode) {
  for (const Flood& flood : {Flood{50, false}, Flood{51, true}}) {
    LinkRig rig;
    rig.Open();
    rig.form.tInput.SetVisible(true);
    Bytes bytes(66, 0x55);
    bytes.resize(66 + 2 + flood.behind, 0x04);
    rig.Receive(bytes);
    EXPECT_EQ(rig.Sent(), flood.selects ? std::vector<std::string>{"15 0 33"} : std::vector<std::string>{});
    EXPECT_EQ(rig.form.tInput.Text().size(), 2 * flood.behind);
    EXPECT_EQ(rig.Panel(1), "Ack In");
  }
}

TEST(ReceivePacket, TellsAUnitThatFloodsASlowLineOnce) {
  LinkRig rig;
  rig.Open();
  rig.line.SetPace(1200);  // the message that ends the flood takes 50 ms
  rig.form.tInput.SetVisible(true);
  for (int ms = 0; ms < 40; ++ms) rig.line.Inject(Bytes(200, 0x55), ms);
  rig.pump.Pass(1000);
  EXPECT_EQ(rig.Sent(), std::vector<std::string>{"15 0 33"});
}

TEST(ReceivePacket, RejectsAFrameThatTheEmptiedLogCutInTwo) {
  LinkRig rig;
  rig.Open();
  rig.form.tInput.SetVisible(true);
  rig.form.tInput.SetText(std::string(195, '-'));
  rig.Receive(kStatus);  // "2,4,F," passes 200 characters; 0F 00 34 04 B5 become the head
  EXPECT_EQ(rig.form.tInput.Text(), "0,34,4,B5,");
  EXPECT_EQ(rig.vars.UnitStandardText, "");
}

/// Reports one byte less than there is while the receiver sizes its array.
struct GrowingLine : UnitLine {
  using UnitLine::UnitLine;
  std::size_t InBufferCount() const override {
    const std::size_t count = UnitLine::InBufferCount();
    return ++asked_ <= 2 && count > 0 ? count - 1 : count;
  }
  mutable int asked_ = 0;
};

TEST(ReceivePacket, LosesWhatItReadWhenMoreComesThanItHasRoomFor) {
  LinkRigOn<GrowingLine> rig;
  rig.Open();
  rig.line.OnComm({});
  rig.Receive({0x02, 0x04, 0x0F, 0x00, 0x34, 0x04, 0xB5, 0x04});
  rig.line.asked_ = 0;
  rig.form.pComBut.SetBackColor(kYellow);
  rig.comms.ReceivePacket();
  EXPECT_EQ(rig.Panel(3), "");
  EXPECT_EQ(rig.form.pComBut.BackColor(), kYellow);
}

/// Fails at the third byte of an arrival.
struct FailingLine : UnitLine {
  using UnitLine::UnitLine;
  std::uint8_t Input() override {
    if (++read_ == 3) throw RuntimeError(kErrPort, "The line failed.");
    return UnitLine::Input();
  }
  int read_ = 0;
};

TEST(ReceivePacket, ThrowsTheRestOfAFaultyArrivalAway) {
  LinkRigOn<FailingLine> rig;
  rig.Open();
  rig.Receive(kStatus);
  EXPECT_EQ(rig.Panel(3), "Buff Over");
  EXPECT_EQ(rig.line.InBufferCount(), 0U);
  EXPECT_EQ(rig.form.pComBut.BackColor(), kYellow);
  rig.Receive({0x04});
  EXPECT_EQ(rig.Panel(1), "Ack In");
  EXPECT_THAT(rig.dialogs.Texts(), IsEmpty());
}

TEST(ReceivePacket, TakesAFrameForTheAnswerBeforeItsBoxIsRead) {
  LinkRig rig;
  rig.Open();
  rig.form.timeRes.SetEnabled(true);
  bool running = true;
  rig.dialogs.onShow = [&](const MessageBox&) {
    running = rig.form.timeRes.Enabled();
    return BoxAnswer::kOk;
  };
  rig.ReceiveFields({15, 0, 99});
  EXPECT_EQ(rig.dialogs.shown.size(), 1U);
  EXPECT_FALSE(running) << "the query would go out again behind the box";
}

}  // namespace
}  // namespace marlinset

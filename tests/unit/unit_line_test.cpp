// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/unit_line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/runtime_error.h"
#include "tests/support/hex.h"

namespace marlinset {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class UnitLineTest : public testing::Test {
 protected:
  UnitLineTest() {
    line_.OnComm([this] { events_.emplace_back(pump_.Now(), line_.CommEvent()); });
    line_.SetPortOpen(true);
  }
  std::string ReadAll() {
    Bytes bytes;
    while (line_.InBufferCount() > 0) bytes.push_back(line_.Input());
    return ToHex(bytes);
  }

  VirtualPump pump_;
  UnitLine line_{pump_};
  std::vector<std::pair<std::int64_t, int>> events_;
};

const Bytes kGetId = FromHex("02 03 0F 00 35 B9");

TEST_F(UnitLineTest, TakesTheTimeOfAPacedLine) {
  line_.SetPace(57600);
  line_.Output(kGetId);  // 1.04 ms there, 1.39 ms back, on a clock of milliseconds
  EXPECT_EQ(line_.OutBufferCount(), kGetId.size());
  pump_.Pass(1);
  EXPECT_EQ(line_.OutBufferCount(), kGetId.size());
  pump_.Pass(1);
  EXPECT_EQ(line_.OutBufferCount(), 0U);
  EXPECT_EQ(line_.InBufferCount(), 0U);
  pump_.Pass(2);
  EXPECT_EQ(line_.InBufferCount(), 8U);
}

TEST_F(UnitLineTest, JoinsPiecesUnlessTheGateIsOff) {
  line_.Unit().Faults().pieceBytes = 5;
  line_.Output(kGetId);
  pump_.Pass(10);
  EXPECT_EQ(events_.size(), 1U);
  EXPECT_EQ(line_.InBufferCount(), 8U);
  line_.SetGate(false);
  line_.Output(kGetId);
  pump_.Pass(10);
  EXPECT_EQ(events_.size(), 3U);
}

TEST_F(UnitLineTest, HoldsNoiseUntilTheLineIsQuiet) {
  line_.Inject(FromHex("99"), 5);
  line_.Inject(FromHex("98 97"), 20);
  pump_.Pass(100);
  EXPECT_THAT(events_, ElementsAre(std::pair(45, kCommReceive)));
  EXPECT_EQ(ReadAll(), "99 98 97");
}

TEST_F(UnitLineTest, LosesWhatTheBufferCannotHold) {
  line_.Unit().Flood(1500, {});
  line_.Settle();
  pump_.Pass(1);
  EXPECT_EQ(line_.InBufferCount(), kInBufferSize);
  EXPECT_THAT(events_, ElementsAre(std::pair(0, kCommReceive), std::pair(0, kCommOverflow)));
}

TEST_F(UnitLineTest, VanishesWithWhatIsOnItsWay) {
  line_.SetPace(57600);
  line_.Output(kGetId);
  line_.Vanish();
  EXPECT_THAT(events_, ElementsAre(std::pair(0, kCommDeviceGone)));
  EXPECT_FALSE(line_.PortOpen());
  EXPECT_THROW(line_.SetPortOpen(true), RuntimeError);
  pump_.Pass(1000);
  EXPECT_THAT(line_.Unit().TakeFrames(), IsEmpty());
}

}  // namespace
}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "unit/unit_model.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/table.h"

namespace marlinset {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto kGetId = "02 03 0F 00 35 B9";
constexpr auto kVideoSense = "02 03 0F 00 34 BA";
constexpr auto kSelect = "02 03 0F 00 21 CD";
constexpr auto kBroadcast = "02 03 0F 00 22 CC";
constexpr auto kParameter = "02 09 0F 00 C0 07 02 2C 01 00 00 F2";  // class 2, parameter 7: 300
constexpr auto kManual = "02 09 0F 00 C0 00 00 01 00 00 00 27";
constexpr auto kAutomatic = "02 09 0F 00 C0 00 00 00 00 00 00 28";
constexpr auto kStandard5 = "02 04 0F 00 24 05 C4";
constexpr auto kVitcOn = "02 03 01 05 2E C9";
constexpr auto kNoticeFrame = "02 03 0F 00 BB 33";

// Everything that goes out until then, in order.
std::vector<std::string> Out(UnitModel& unit, LineTime until) {
  std::vector<std::string> all;
  for (auto next = unit.NextReplyAt(); next && *next <= until; next = unit.NextReplyAt())
    for (const Bytes& bytes : unit.TakeReplies(*next)) all.push_back(ToHex(bytes));
  return all;
}

std::vector<std::string> Ask(UnitModel& unit, std::string_view frame, LineTime now = 0s) {
  unit.Receive(FromHex(frame), now);
  return Out(unit, now);
}

TEST(UnitModel, FindsFramesInNoiseAndRefusesWhatItDoesNotKnow) {
  for (const TableRow& row : TableOf("frames_in_noise")) {
    UnitModel unit;
    for (const std::string& portion : Split(row[1], ',')) {
      const std::size_t colon = portion.find(':');
      unit.Receive(FromHex(portion.substr(colon + 1)), std::chrono::milliseconds(std::stoi(portion)));
    }
    EXPECT_EQ(Out(unit, 1s), Split(row[2], ',')) << row[0];
    EXPECT_EQ(unit.Memory().All().empty(), row[2] == "05") << row[0];
  }
}

TEST(UnitModel, SetsTheStandardByCommandOnlyInManualSelectionAndNothingInLocalMode) {
  UnitModel unit({.standard = 4});
  EXPECT_THAT(Ask(unit, kStandard5), IsEmpty());
  unit.SetLocal(true);
  for (const auto frame : {kGetId, kSelect, kManual, "02 03 01 05 2E C8"})
    EXPECT_THAT(Ask(unit, frame), ElementsAre("06")) << frame;
  EXPECT_THAT(unit.Memory().All(), IsEmpty());
  unit.SetLocal(false);
  EXPECT_THAT(Ask(unit, kVideoSense), ElementsAre("02 04 0F 00 34 04 B5"));
  EXPECT_THAT(Ask(unit, kManual), ElementsAre("04"));
  EXPECT_THAT(Ask(unit, kStandard5), IsEmpty());
  EXPECT_THAT(Ask(unit, kVideoSense), ElementsAre("02 04 0F 00 34 85 34"));
  EXPECT_THAT(Ask(unit, kAutomatic), ElementsAre("04"));
  EXPECT_THAT(Ask(unit, kVideoSense), ElementsAre("02 04 0F 00 34 04 B5")) << "its input's again";
}

TEST(UnitModel, SpeaksOnItsOwnInBroadcastModeUntilSelectedAndAcknowledgesInItsTime) {
  UnitModel unit({.ackTime = 30ms, .ackTimes = {{{2, 35}, 4s}}});
  EXPECT_THAT(Ask(unit, kBroadcast, 0s), ElementsAre(kNoticeFrame));
  EXPECT_THAT(Out(unit, 2500ms), ElementsAre(kNoticeFrame, kNoticeFrame));
  unit.SetLocal(true);
  EXPECT_EQ(unit.NextReplyAt(), std::nullopt);
  unit.SetLocal(false);
  EXPECT_THAT(Ask(unit, kSelect, 2600ms), IsEmpty());
  EXPECT_EQ(unit.NextReplyAt(), std::nullopt);
  EXPECT_THAT(Ask(unit, kGetId, 3s), testing::SizeIs(1)) << "a query does not wait";
  unit.Receive(FromHex(kVitcOn), 3s);
  unit.Faults().lateAcks = 200ms;
  unit.Receive(FromHex("02 04 02 08 23 03 CC"), 3s);
  EXPECT_EQ(unit.NextReplyAt(), 3030ms);
  EXPECT_THAT(Out(unit, 3030ms), ElementsAre("04"));
  EXPECT_EQ(unit.NextReplyAt(), 7200ms);
}

}  // namespace
}  // namespace marlinset

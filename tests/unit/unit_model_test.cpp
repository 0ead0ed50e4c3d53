// SPDX-License-Identifier: GPL-3.0-or-later
#include "unit/unit_model.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/hex.h"

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

// Everything that goes out between `now` and a later moment, in order.
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

TEST(UnitModel, RefusesWhatItDoesNotKnow) {
  constexpr std::string_view kRefused[] = {
      "02 03 0F 00 63 8B",                 // no such command
      "02 03 01 08 2E C6",                 // the packet id of another address
      "02 08 0F 00 C0 07 02 2C 01 00 F3",  // a parameter with three bytes of its value
      "02 04 0F 00 24 09 C0",              // no such standard
      "02 03 01 05 2E C8",                 // wrong checksum
      "02 04 02 08 2E 02 C2",              // SDI program output on a unit without one
      "02 06 02 08 2D 01 02 03 BD",        // down converter control on such a unit
  };
  UnitModel unit;
  for (const auto frame : kRefused) EXPECT_THAT(Ask(unit, frame), ElementsAre("05")) << frame;
  EXPECT_THAT(unit.Memory().All(), IsEmpty());
}

TEST(UnitModel, FindsFramesInNoise) {
  struct Case {
    const char* what;
    std::vector<std::pair<LineTime, std::string_view>> portions;
    std::vector<std::string> replies;
  };
  const Case cases[] = {
      {"noise in front", {{0ms, "00 FF 04 31 02 03 01 05 2E C9"}}, {"04"}},
      {"a start mark in front", {{0ms, "02 02 03 01 05 2E C9"}}, {"04"}},
      {"two at once", {{0ms, "02 03 01 05 2E C9 02 03 01 05 2F C8"}}, {"04", "04"}},
      {"cut anywhere", {{0ms, "02"}, {20ms, "03 01"}, {60ms, "05 2E C9"}}, {"04"}},
      {"a start that never goes on", {{0ms, "02 40 11 22"}, {51ms, "02 03 01 05 2E C9"}}, {"04"}},
      {"damaged, then good", {{0ms, "02 03 01 05 2E 02 02 03 01 05 2E C9"}}, {"05", "04"}},
      {"a length that is none", {{0ms, "02 00 02 01 02 03 01 05 2E C9"}}, {"04"}},
  };
  for (const Case& c : cases) {
    UnitModel unit;
    for (const auto& [at, bytes] : c.portions) unit.Receive(FromHex(bytes), at);
    EXPECT_EQ(Out(unit, 1s), c.replies) << c.what;
  }
}

TEST(UnitModel, SetsTheStandardByCommandOnlyInManualSelection) {
  UnitModel unit({.standard = 4});
  EXPECT_THAT(Ask(unit, kStandard5), IsEmpty());
  EXPECT_EQ(unit.Standard(), 4);
  EXPECT_THAT(Ask(unit, kManual), ElementsAre("04"));
  EXPECT_THAT(Ask(unit, kStandard5), IsEmpty());
  EXPECT_THAT(Ask(unit, kVideoSense), ElementsAre("02 04 0F 00 34 85 34"));
  EXPECT_THAT(Ask(unit, kAutomatic), ElementsAre("04"));
  EXPECT_THAT(Ask(unit, kVideoSense), ElementsAre("02 04 0F 00 34 04 B5"));  // its input's again
}

TEST(UnitModel, TakesNothingInLocalMode) {
  UnitModel unit;
  unit.SetLocal(true);
  for (const auto frame : {kGetId, kSelect, kManual, "02 03 01 05 2E C8"})
    EXPECT_THAT(Ask(unit, frame), ElementsAre("06")) << frame;
  EXPECT_THAT(unit.Memory().All(), IsEmpty());
  EXPECT_FALSE(unit.Manual());
  unit.SetLocal(false);
  EXPECT_THAT(Ask(unit, kVitcOn), ElementsAre("04"));
}

TEST(UnitModel, SpeaksOnItsOwnInBroadcastModeUntilSelected) {
  UnitModel unit;
  EXPECT_THAT(Ask(unit, kBroadcast, 0s), ElementsAre(kNoticeFrame));
  EXPECT_EQ(unit.NextReplyAt(), 1s);
  EXPECT_THAT(Out(unit, 2500ms), ElementsAre(kNoticeFrame, kNoticeFrame));
  unit.SetLocal(true);
  EXPECT_EQ(unit.NextReplyAt(), std::nullopt);
  unit.SetLocal(false);
  EXPECT_THAT(Ask(unit, kSelect, 2600ms), IsEmpty());
  EXPECT_EQ(unit.NextReplyAt(), std::nullopt);
}

TEST(UnitModel, AcknowledgesInItsTime) {
  UnitModel unit({.ackTime = 30ms, .ackTimes = {{{2, 35}, 4s}}});
  EXPECT_THAT(Ask(unit, kGetId, 10ms), testing::SizeIs(1));  // a query does not wait
  unit.Receive(FromHex(kVitcOn), 10ms);
  EXPECT_EQ(unit.NextReplyAt(), 40ms);
  unit.Faults().lateAcks = 200ms;
  unit.Receive(FromHex("02 04 02 08 23 03 CC"), 10ms);
  EXPECT_THAT(Out(unit, 40ms), ElementsAre("04"));
  EXPECT_EQ(unit.NextReplyAt(), 4210ms);
}

}  // namespace
}  // namespace marlinset

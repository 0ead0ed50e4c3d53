// SPDX-License-Identifier: GPL-3.0-or-later
#include "unit/unit_model.h"

#include <gmock/gmock.h>

#include "app/unit/unit_json.h"
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

TEST(UnitState, IsOneLineThatSaysWhatTheUnitWasToldLast) {
  UnitModel unit({.model = kModelHd7340Q});
  for (const char* frame : {
           "02 09 0F 00 C0 07 02 2C 01 00 00 F2",           // class 2, parameter 7: 300
           "02 09 0F 00 C0 09 03 FF FF FF FF 20",           // class 3, parameter 9: -1
           "02 09 0F 00 C0 00 00 01 00 00 00 27",           // manual selection, no parameter
           "02 08 02 08 21 03 F6 08 14 0D AB",              // window 3 with every flag
           "02 08 02 08 21 03 64 09 15 0B 3D",              // and with some
           "02 08 02 08 21 04 D2 08 14 0D CE",              // window 4 with the others
           "02 05 01 05 A0 20 05 30",                       // routing
           "02 03 01 05 2E C9",                             // VITC on
           "02 03 01 05 2F C8",                             // and off
           "02 09 01 05 A3 0E 10 12 14 16 18 DC",           // VITC lines
           "02 03 01 05 38 BF",                             // white flag on
           "02 05 01 05 A9 0F 0F 2E",                       // its line
           "02 04 02 08 20 02 D0",                          // character size
           "02 05 02 08 24 01 2C A0",                       // slate duration
           "02 0C 02 08 28 0E 54 41 22 5C 0A C9 00 00 CE",  // text message, empty bytes behind it
           "02 06 02 08 2D 01 02 03 BD",                    // down converter control
       })
    unit.Receive(FromHex(frame), {});
  EXPECT_EQ(
      StateJson(unit),
      R"({"model":32,"standard":4,"manual":true,"video":true,"local":false,"broadcast":false,)"
      R"("held":{"cmdSetParameter":{"0/0":[15,0,192,0,0,1,0,0,0],"2/7":[15,0,192,7,2,44,1,0,0],)"
      R"("3/9":[15,0,192,9,3,255,255,255,255]},"cmdVitcOff":[1,5,47],"cmdWhiteFlagOn":[1,5,56],)"
      R"("cmdInputAssign":{"32":[1,5,160,32,5]},"cmdVitcLines":[1,5,163,14,16,18,20,22,24],)"
      R"("cmdWhiteFlagLine":[1,5,169,15,15],"cmdCharSize":[2,8,32,2],)"
      R"("cmdWindow":{"3":[2,8,33,3,100,9,21,11],"4":[2,8,33,4,210,8,20,13]},)"
      R"("cmdSlateDuration":[2,8,36,1,44],"cmdText":[2,8,40,14,84,65,34,92,10,201,0,0],)"
      R"("cmdDownConverterControl":[2,8,45,1,2,3]},"parameters":{"2/7":300,"3/9":-1},"routing":{"32":5},)"
      R"("windows":{"3":{"on":true,"slate":true,"doubleHeight":false,"symbol":true,"field":false,)"
      R"("highlighted":false,"row":9,"position":21,"length":11},"4":{"on":true,"slate":false,)"
      R"("doubleHeight":true,"symbol":false,"field":true,"highlighted":true,"row":8,"position":20,)"
      R"("length":13}},"vitc":{"on":false,"source":null,"lines":[14,18,22],"duplicates":[16,20,24]},)"
      R"("whiteFlag":{"on":true,"line":15},"inserter":{"on":null,"size":2,"style":null},)"
      R"("slate":{"duration":300,"mode":null},"message":"TA\"\\\nÉ",)"
      R"("converter":{"aspect":null,"control":[1,2,3]},"sdiProgramOut":null})");
}

}  // namespace
}  // namespace marlinset

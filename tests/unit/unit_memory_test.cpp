// SPDX-License-Identifier: GPL-3.0-or-later
#include "unit/unit_memory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/hex.h"
#include "unit/unit_state.h"

namespace marlinset {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Pair;

UnitModel Told(std::initializer_list<std::string_view> frames) {
  UnitModel unit({.model = kModelHd7340Q});
  for (const auto frame : frames) unit.Receive(FromHex(frame), {});
  return unit;
}

TEST(UnitMemory, KeepsTheLastOfEachSetting) {
  const UnitModel unit = Told({"02 09 0F 00 C0 07 02 2C 01 00 00 F2", "02 09 0F 00 C0 09 03 FF FF FF FF 20",
                               "02 08 02 08 21 03 F6 08 14 0D AB", "02 08 02 08 21 03 40 09 15 0B 61",
                               "02 05 01 05 A0 20 05 30", "02 09 0F 00 C0 00 00 01 00 00 00 27"});
  const UnitMemory& memory = unit.Memory();
  EXPECT_THAT(memory.Parameters(),
              ElementsAre(Pair(UnitMemory::Key(2, 7), 300), Pair(UnitMemory::Key(3, 9), -1)));
  EXPECT_EQ(ToHex(*memory.Held("cmdWindow", {3, 0})), "02 08 21 03 40 09 15 0B");
  EXPECT_EQ(memory.Held("cmdWindow", {4, 0}), nullptr);
  EXPECT_EQ(ToHex(*memory.Held("cmdSetParameter", {2, 7})), "0F 00 C0 07 02 2C 01 00 00");
  EXPECT_THAT(memory.Routing(), ElementsAre(Pair(32, 5)));
}

TEST(UnitMemory, KnowsWhatAWindowsFlagsMean) {
  const auto window = [](std::string_view frame) { return Told({frame}).Memory().Windows().at(3); };
  EXPECT_EQ(window("02 08 02 08 21 03 F6 08 14 0D AB"), (UnitWindow{.on = true,
                                                                    .slate = true,
                                                                    .doubleHeight = true,
                                                                    .symbol = true,
                                                                    .fieldDigit = true,
                                                                    .highlighted = true,
                                                                    .row = 8,
                                                                    .position = 20,
                                                                    .length = 13}));
  EXPECT_EQ(window("02 08 02 08 21 03 40 09 15 0B 61"),
            (UnitWindow{.on = true, .row = 9, .position = 21, .length = 11}));
}

TEST(UnitMemory, OnAndOffTakeEachOthersPlace) {
  EXPECT_EQ(Told({}).Memory().VitcOn(), std::nullopt);
  EXPECT_EQ(Told({"02 03 01 05 2E C9", "02 03 01 05 2F C8"}).Memory().VitcOn(), false);
  EXPECT_EQ(Told({"02 03 01 05 2F C8", "02 03 01 05 2E C9"}).Memory().VitcOn(), true);
}

TEST(UnitMemory, ReadsLinesDurationAndMessage) {
  const UnitModel unit = Told({"02 09 01 05 A3 0E 10 12 14 16 18 DC", "02 05 02 08 24 01 2C A0",
                               "02 0C 02 08 28 0E 54 41 4B 45 20 C9 00 00 A6", "02 06 02 08 2D 01 02 03 BD"});
  const UnitMemory& memory = unit.Memory();
  EXPECT_THAT(memory.VitcLines()->line, ElementsAre(14, 18, 22));
  EXPECT_THAT(memory.VitcLines()->duplicate, ElementsAre(16, 20, 24));
  EXPECT_EQ(memory.SlateDuration(), 300);
  EXPECT_EQ(memory.Message(), "TAKE É");
  EXPECT_THAT(*memory.DownConverterControl(), ElementsAre(1, 2, 3));
}

TEST(UnitState, IsOneLineOfJson) {
  const std::string state = StateJson(
      Told({"02 09 0F 00 C0 07 02 2C 01 00 00 F2", "02 08 02 08 21 03 40 09 15 0B 61", "02 03 01 05 39 BE",
            "02 05 01 05 A9 0F 0F 2E", "02 04 02 08 20 02 D0", "02 08 02 08 28 0E 22 5C 0A 09 27"}));
  EXPECT_EQ(state.find('\n'), std::string::npos);
  for (const char* part : {
           R"({"model":32,"standard":4,"manual":false,"video":true,"local":false,"broadcast":false,)",
           R"("held":{"cmdSetParameter":{"2/7":[15,0,192,7,2,44,1,0,0]},"cmdWhiteFlagOff":[1,5,57],)",
           R"("parameters":{"2/7":300})",
           R"("windows":{"3":{"on":true,"slate":false,"doubleHeight":false,)",
           R"("symbol":false,"field":false,"highlighted":false,"row":9,"position":21,"length":11}})",
           R"("whiteFlag":{"on":false,"line":15},"inserter":{"on":null,"size":2,"style":null})",
           R"("message":"\"\\\u000a\u0009")",
       })
    EXPECT_THAT(state, HasSubstr(part));
}

}  // namespace
}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "app/unit/unit_json.h"
#include "tests/support/table.h"

namespace marlinset {
namespace {

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

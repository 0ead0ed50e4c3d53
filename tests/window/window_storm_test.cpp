// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/window/window_storm.h"

#include <gmock/gmock.h>

namespace marlinset {
namespace {

TEST(WindowStorm, LeavesWidgetsControlsAndUnitInAgreement) {
  for (unsigned seed = 1; seed <= 20; ++seed) {
    EXPECT_THAT(RunWindowStorm(seed).faults, testing::IsEmpty()) << "marlinset-window-storm 1 " << seed;
  }
}

}  // namespace
}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/storm/storm.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace marlinset {
namespace {

TEST(Storm, LeavesToolAndUnitInAgreement) {
  for (unsigned seed = 1; seed <= 60; ++seed) {
    EXPECT_THAT(RunStorm(seed).faults, testing::IsEmpty()) << "marlinset-storm 1 " << seed;
  }
}

}  // namespace
}  // namespace marlinset

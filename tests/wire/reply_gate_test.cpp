// SPDX-License-Identifier: GPL-3.0-or-later
#include "wire/reply_gate.h"

#include <gtest/gtest.h>

#include <numeric>

#include "tests/support/table.h"
#include "wire/frame.h"

namespace marlinset {
namespace {

using Bytes = std::vector<std::uint8_t>;

static_assert(ReplyGate::kLongestReply == kLongestFrame);

TEST(ReplyGate, ReleasesWhatIsWholeAndHoldsTheRestUntilTheLineIsQuiet) {
  for (const TableRow& row : TableOf("reply_gate")) {
    SCOPED_TRACE(row[0]);
    const bool whole = row[2] == "at once";
    ReplyGate gate;
    Bytes all;
    const auto arrivals = Split(row[1], ',');
    for (const std::string& arrival : arrivals) {
      EXPECT_TRUE(gate.Take().empty());
      const Bytes bytes = FromHex(arrival);
      all.insert(all.end(), bytes.begin(), bytes.end());
      EXPECT_EQ(gate.Feed(bytes), whole && &arrival == &arrivals.back());
    }
    EXPECT_EQ(gate.Holding(), !whole);
    gate.Quiet();
    EXPECT_EQ(gate.Take(), all);
    EXPECT_TRUE(gate.Feed(FromHex("04"))) << "starts afresh";
    gate.Feed(FromHex("02 11"));
    gate.Clear();
    EXPECT_TRUE(gate.Take().empty() && !gate.Holding()) << "a closed port forgets everything";
  }
}

TEST(ReplyGate, WaitsForTheLongestFrameButNotForTheEndOfAFlood) {
  Bytes frame(kLongestFrame, 0xAA);
  frame[0] = kStartMark;
  frame[1] = 255;
  Bytes flood(kLongestFrame + 1);
  std::iota(flood.begin(), flood.end(), std::uint8_t{7});
  for (const Bytes& bytes : {frame, flood}) {
    ReplyGate gate;
    const std::span all(bytes);
    for (const std::uint8_t& byte : all.first(all.size() - 1)) EXPECT_FALSE(gate.Feed({&byte, 1}));
    EXPECT_TRUE(gate.Feed(all.last(1)));
    EXPECT_EQ(gate.Take(), bytes);
  }
}

}  // namespace
}  // namespace marlinset

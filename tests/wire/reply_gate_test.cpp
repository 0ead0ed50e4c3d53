// SPDX-License-Identifier: GPL-3.0-or-later
#include "wire/reply_gate.h"

#include <gtest/gtest.h>

#include <numeric>

#include "tests/support/hex.h"
#include "wire/frame.h"

namespace marlinset {
namespace {

using Bytes = std::vector<std::uint8_t>;

static_assert(ReplyGate::kLongestReply == kLongestFrame);

TEST(ReplyGate, ReleasesWhatIsWholeAndHoldsTheRestUntilTheLineIsQuiet) {
  const struct {
    const char* what;
    std::vector<std::string_view> arrivals;
    bool whole;  ///< the last arrival releases everything
  } rows[] = {
      {"lone answers", {"04"}, true},
      {"lone answers", {"05"}, true},
      {"lone answers", {"06"}, true},
      {"the receiver ignores what stands behind one", {"04 02 11"}, true},
      {"a frame at once", {"02 03 0F 00 35 B9"}, true},
      {"a frame cut anywhere", {"02", "03 0F 00", "35", "B9"}, true},
      {"length 0: nothing but start mark, length and checksum", {"02 00", "99"}, true},
      {"never split, the receiver rejects it as one message", {"02 03 0F 00 35", "B9 02 11"}, true},
      {"neither of them", {"00"}, false},
      {"neither of them", {"07"}, false},
      {"a frame without its end", {"02 03 0F", "00 35"}, false},
      {"a lone answer behind noise is noise", {"03", "04"}, false},
      {"and so is a frame", {"FF 02", "03 0F 00 35 B9"}, false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    ReplyGate gate;
    Bytes all;
    for (const auto arrival : row.arrivals) {
      EXPECT_TRUE(gate.Take().empty());
      const Bytes bytes = FromHex(arrival);
      all.insert(all.end(), bytes.begin(), bytes.end());
      EXPECT_EQ(gate.Feed(bytes), row.whole && arrival == row.arrivals.back());
    }
    EXPECT_EQ(gate.Holding(), !row.whole);
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

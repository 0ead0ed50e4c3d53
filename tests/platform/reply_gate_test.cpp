// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/reply_gate.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <string>

#include "link/frame.h"

namespace marlinset {
namespace {

using Bytes = std::vector<std::uint8_t>;

static_assert(ReplyGate::kLongestReply == kLongestFrame);

/// A reply of 20 bytes: firmware text "HD7340 V1.2 07".
const Bytes kReply = {0x02, 0x11, 0x0F, 0x00, 0x36, 'H', 'D', '7', '3', '4',
                      '0',  ' ',  'V',  '1',  '.',  '2', ' ', '0', '7', 0x7F};

/// What a gate let through for arrivals in the given pieces: one entry a release, numbered by the arrival
/// that brought it about.
struct Release {
  std::size_t arrival;
  Bytes bytes;
  bool operator==(const Release&) const = default;
};

std::vector<Release> Through(ReplyGate& gate, const std::vector<Bytes>& arrivals) {
  std::vector<Release> releases;
  for (std::size_t i = 0; i < arrivals.size(); ++i) {
    if (gate.Feed(arrivals[i])) releases.push_back({i, gate.Take()});
  }
  return releases;
}

std::vector<Bytes> InPieces(const Bytes& bytes, std::size_t size) {
  std::vector<Bytes> pieces;
  for (std::size_t at = 0; at < bytes.size(); at += size) {
    const auto begin = bytes.begin() + static_cast<std::ptrdiff_t>(at);
    pieces.emplace_back(begin, begin + static_cast<std::ptrdiff_t>(std::min(size, bytes.size() - at)));
  }
  return pieces;
}

TEST(ReplyGate, LetsAFrameThroughWholeHoweverItIsCut) {
  for (std::size_t size = 1; size <= kReply.size(); ++size) {
    SCOPED_TRACE("pieces of " + std::to_string(size));
    ReplyGate gate;
    const auto pieces = InPieces(kReply, size);
    EXPECT_EQ(Through(gate, pieces), (std::vector<Release>{{pieces.size() - 1, kReply}}));
    EXPECT_FALSE(gate.Holding());
  }
}

TEST(ReplyGate, ReleasesAtOnceWhatNeedsNoRest) {
  Bytes frameAndMore = kReply;
  frameAndMore.insert(frameAndMore.end(), {0x02, 0x11});
  const std::vector<Bytes> whole = {
      {0x04},
      {0x05},
      {0x06},
      {0x04, 0x02, 0x11},  // the receiver ignores what stands behind a lone answer
      {0x02, 0x00, 0x99},  // length 0: nothing but start mark, length and checksum
      {0x02, 0x03, 0x0F, 0x00, 0x35, 0xB9},
      frameAndMore,  // never split, the receiver rejects it as one message
  };
  for (const Bytes& bytes : whole) {
    ReplyGate gate;
    EXPECT_EQ(Through(gate, {bytes}), (std::vector<Release>{{0, bytes}}));
  }
}

TEST(ReplyGate, HoldsAnythingElseUntilTheLineIsQuiet) {
  const std::vector<std::vector<Bytes>> cases = {
      {{0x00}},
      {{0x02}},
      {{0x02, 0x00}},
      {{0x02, 0x11, 0x0F}, {0x00, 0x36}},
      {{0x03}, {0x04}},              // a lone answer behind noise is noise
      {{0x07}, kReply},              // and so is a frame
      {{0xFF, 0x02}, {0x00, 0x99}},  // whose mark is not the first byte held
  };
  for (const auto& arrivals : cases) {
    ReplyGate gate;
    Bytes all;
    for (const Bytes& arrival : arrivals) {
      EXPECT_FALSE(gate.Feed(arrival));
      EXPECT_TRUE(gate.Take().empty());
      EXPECT_TRUE(gate.Holding());
      all.insert(all.end(), arrival.begin(), arrival.end());
    }
    gate.Quiet();
    EXPECT_FALSE(gate.Holding());
    EXPECT_EQ(gate.Take(), all);
    EXPECT_EQ(Through(gate, {kReply}), (std::vector<Release>{{0, kReply}})) << "starts afresh after the gap";
  }
}

TEST(ReplyGate, KeepsRepliesThatFollowEachOtherApart) {
  ReplyGate gate;
  const Bytes head(kReply.begin(), kReply.begin() + 7);
  const Bytes tail(kReply.begin() + 7, kReply.end());
  EXPECT_EQ(Through(gate, {{0x04}, head, tail, {0x05}, kReply}),
            (std::vector<Release>{{0, {0x04}}, {2, kReply}, {3, {0x05}}, {4, kReply}}));
}

TEST(ReplyGate, LetsAFloodThroughWithoutAGap) {
  Bytes flood(3000);
  std::iota(flood.begin(), flood.end(), std::uint8_t{7});
  for (const std::size_t size : {1U, 13U, 258U, 259U, 3000U}) {
    SCOPED_TRACE("pieces of " + std::to_string(size));
    ReplyGate gate;
    const auto releases = Through(gate, InPieces(flood, size));
    ASSERT_FALSE(releases.empty());
    EXPECT_GT(releases.front().bytes.size(), kLongestFrame);
    EXPECT_LE(releases.front().bytes.size(), kLongestFrame + size);
    Bytes all;
    for (const Release& release : releases) all.insert(all.end(), release.bytes.begin(), release.bytes.end());
    gate.Quiet();
    const Bytes rest = gate.Take();
    all.insert(all.end(), rest.begin(), rest.end());
    EXPECT_EQ(all, flood);
  }
}

TEST(ReplyGate, WaitsForTheLongestFrame) {
  Bytes longest(kLongestFrame, 0xAA);
  longest[0] = kStartMark;
  longest[1] = 255;
  ReplyGate gate;
  const auto pieces = InPieces(longest, 1);
  EXPECT_EQ(Through(gate, pieces), (std::vector<Release>{{longest.size() - 1, longest}}));
}

TEST(ReplyGate, ForgetsEverythingWhenThePortCloses) {
  ReplyGate gate;
  gate.Feed(Bytes{0x04});
  gate.Feed(Bytes{0x02, 0x11});
  gate.Clear();
  EXPECT_FALSE(gate.Holding());
  EXPECT_TRUE(gate.Take().empty());
  EXPECT_EQ(Through(gate, {kReply}), (std::vector<Release>{{0, kReply}}));
}

}  // namespace
}  // namespace marlinset

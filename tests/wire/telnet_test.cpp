// SPDX-License-Identifier: GPL-3.0-or-later
// Bytes of Telnet and of its COM port option, written out by hand.
#include "wire/telnet.h"

#include <gmock/gmock.h>

#include "wire/com_port_control.h"

namespace marlinset {
namespace {

using Bytes = std::vector<std::uint8_t>;
using testing::HasSubstr;
using State = ComPortControl::State;

Bytes operator+(Bytes left, const Bytes& right) {
  left.insert(left.end(), right.begin(), right.end());
  return left;
}

TEST(Telnet, AnswersEachRequestOnceAndRefusesWhatItDoesNotKnow) {
  const struct {
    const char* what;
    Bytes in, data, out;
  } kCases[] = {
      {"an answer to what was asked", {255, 253, 0, 255, 251, 0}, {}, {}},
      {"asked again", {255, 253, 0, 255, 253, 0, 255, 251, 0}, {}, {}},
      {"of its own accord", {255, 253, 3, 255, 251, 3, 255, 253, 3}, {}, {255, 251, 3, 255, 253, 3}},
      {"refused, then allowed", {255, 254, 0, 255, 253, 0}, {}, {255, 251, 0}},
      {"taken back", {255, 253, 0, 255, 254, 0, 255, 254, 0}, {}, {255, 252, 0}},
      {"unknown: echo, terminal type, 255",
       {255, 251, 1, 255, 253, 24, 255, 251, 255},
       {},
       {255, 254, 1, 255, 252, 24, 255, 254, 255}},
      {"refusals of what is off", {255, 252, 1, 255, 254, 24}, {}, {}},
      {"data around commands", {1, 255, 255, 2, 255, 241, 3, 255, 240, 255, 0, 4}, {1, 255, 2, 3, 4}, {}},
      {"an end that got lost",
       {255, 250, 44, 1, 255, 241, 5, 255, 250, 44, 255, 253, 24, 6},
       {5, 6},
       {255, 252, 24}},
  };
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.what);
    Telnet telnet({0, 3});
    telnet.Ask(Telnet::Side::kOurs, 0);
    telnet.Ask(Telnet::Side::kTheirs, 0);
    EXPECT_EQ(telnet.TakeOutput(), (Bytes{255, 251, 0, 255, 253, 0}));
    Bytes data;
    for (const std::uint8_t byte : c.in) {
      if (const auto taken = telnet.Take(byte)) data.push_back(*taken);
    }
    EXPECT_EQ(data, c.data);
    EXPECT_EQ(telnet.TakeOutput(), c.out);
  }
}

TEST(Telnet, PassesOnSubnegotiationsOfBoundedLength) {
  Telnet telnet({});
  std::vector<Bytes> seen;
  telnet.onSubnegotiation = [&seen](std::uint8_t option, std::span<const std::uint8_t> content) {
    seen.push_back(Bytes{option} + Bytes(content.begin(), content.end()));
  };
  telnet.Subnegotiate(255, Bytes{1, 255, 240});
  const Bytes doubled = telnet.TakeOutput();
  EXPECT_EQ(doubled, (Bytes{255, 250, 255, 1, 255, 255, 240, 255, 240}));
  const Bytes content(Telnet::kLongestSubnegotiation - 1, 7);
  for (const Bytes& in : {Bytes{255, 250, 255, 255, 1, 255, 255, 240, 255, 240}, Bytes{255, 250, 255, 240},
                          Bytes{255, 250, 44} + content + Bytes{255, 240},
                          Bytes{255, 250, 44} + content + Bytes{7, 255, 240}}) {
    for (const std::uint8_t byte : in) EXPECT_FALSE(telnet.Take(byte));
  }
  EXPECT_EQ(seen, (std::vector<Bytes>{{255, 1, 255, 240}, Bytes{44} + content}));
}

const Bytes kGreeting = {255, 251, 0, 255, 253, 0, 255, 251, 3, 255, 253, 3, 255, 251, 44};
const Bytes kSettings = {255, 250, 44,  12,  3,  255, 240, 255, 250, 44,  1,   0,  0,   225, 0,
                         255, 240, 255, 250, 44, 2,   8,   255, 240, 255, 250, 44, 3,   1,   255,
                         240, 255, 250, 44,  4,  1,   255, 240, 255, 250, 44,  5,  1,   255, 240,
                         255, 250, 44,  5,   8,  255, 240, 255, 250, 44,  5,   11, 255, 240};
const Bytes kDo = {255, 253, 44};
const Bytes kDont = {255, 254, 44};

Bytes Answer(const Bytes& content) {
  return Bytes{255, 250, 44} + content + Bytes{255, 240};
}
const Bytes kSpeed = Answer({101, 0, 0, 225, 0});
const Bytes kFormat = Answer({102, 8}) + Answer({103, 1}) + Answer({104, 1});
const Bytes kNoFlow = Answer({105, 1});

TEST(ComPortControl, IsReadyWhenTheServerHasConfirmedEachSetting) {
  const struct {
    const char* what;
    Bytes in;
    State state;
    const char* trouble;
  } kCases[] = {
      {"all confirmed", kDo + kSpeed + kFormat + kNoFlow, State::kReady, ""},
      {"binary refused", Bytes{255, 254, 0, 255, 252, 0, 255, 254, 3} + kDo + kSpeed + kFormat + kNoFlow,
       State::kReady, ""},
      {"refused first", kDont + kDo + kNoFlow + kFormat + kSpeed, State::kReady, ""},
      {"taken back", kDo + kDont + kSpeed + kFormat + kNoFlow, State::kReady, ""},
      {"another speed first, signals, states of lines",
       kDo + Answer({101, 0, 0, 37, 128}) + Answer({107, 255, 255}) + Answer({105, 8}) + Answer({106, 0}) +
           kSpeed + kFormat + Answer({105, 0}) + kNoFlow,
       State::kReady, ""},
      {"nothing", {}, State::kPending, "it says nothing"},
      {"text", {'h', 'i', '\n'}, State::kPending, "no Telnet"},
      {"a web server", {'H', 'T', 'T', 'P', '/', '1'}, State::kHopeless, "a web server answers"},
      {"a login", {255, 251, 1, 'l', 'o', 'g', 'i', 'n'}, State::kPending, "does not offer"},
      {"refused", kDont, State::kDoubtful, "refuses"},
      {"another speed", kDo + Answer({101, 0, 0, 37, 128}) + kFormat + kNoFlow, State::kDoubtful,
       "does not take \"57600 bits per second\" (its answer: 9600)"},
      {"handshake", kDo + kSpeed + kFormat + Answer({105, 3}), State::kDoubtful,
       "\"no flow control\" (its answer: 3)"},
      {"no word on the speed", kDo + kFormat + kNoFlow, State::kPending, "does not confirm \"57600"},
      {"answers that are cut", kDo + Answer({101, 0, 0, 225}) + Answer({101}) + kFormat + kNoFlow,
       State::kPending, "does not confirm \"57600"},
      {"a flood", Bytes(70000, 'x'), State::kHopeless, "floods"},
  };
  for (const auto& c : kCases) {
    for (const bool bytewise : {false, true}) {
      SCOPED_TRACE(c.what);
      ComPortControl control;
      EXPECT_EQ(control.TakeOutput(), kGreeting);
      if (bytewise) {
        for (const std::uint8_t byte : c.in) EXPECT_EQ(control.Receive(std::span(&byte, 1)), Bytes{});
      } else {
        EXPECT_EQ(control.Receive(c.in), Bytes{});
      }
      EXPECT_EQ(control.Progress(), c.state);
      if (*c.trouble) {
        EXPECT_THAT(control.Trouble(), HasSubstr(c.trouble));
      }
    }
  }
}

TEST(ComPortControl, SetsThePortOnlyAfterItsOwnWill) {
  ComPortControl control;
  control.TakeOutput();
  control.Receive(kDont + kDo);
  EXPECT_EQ(control.TakeOutput(), (Bytes{255, 251, 44} + kSettings)) << "the first WILL is void";
  control.Receive(kDont + kDo);
  EXPECT_EQ(control.TakeOutput(), (Bytes{255, 252, 44, 255, 251, 44})) << "the settings go once";
}

TEST(ComPortControl, DropsWhatIsOlderThanTheSettingsAndCarriesTheRest) {
  ComPortControl control;
  control.TakeOutput();
  EXPECT_EQ(control.Receive(Bytes{2, 255, 255} + kDo), Bytes{});
  EXPECT_EQ(control.TakeOutput(), kSettings);
  EXPECT_EQ(control.Receive(Bytes{6} + kSpeed + kFormat + Bytes{6} + kNoFlow +
                            Bytes{2, 255, 255, 255, 250, 44, 107, 255, 255, 255, 240, 13, 0}),
            (Bytes{2, 255, 13, 0}));
  EXPECT_EQ(control.TakeOutput(), Bytes{}) << "the settings go once";
}

}  // namespace
}  // namespace marlinset

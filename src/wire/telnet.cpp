// SPDX-License-Identifier: GPL-3.0-or-later
#include "wire/telnet.h"

#include <utility>

namespace marlinset {
namespace {

constexpr std::uint8_t kEnd = 240;    // SE
constexpr std::uint8_t kBegin = 250;  // SB
constexpr std::uint8_t kWill = 251;
constexpr std::uint8_t kWont = 252;
constexpr std::uint8_t kDo = 253;
constexpr std::uint8_t kDont = 254;

}  // namespace

Telnet::Telnet(std::initializer_list<std::uint8_t> options) {
  for (const std::uint8_t option : options) wanted_[option] = true;
}

void Telnet::Ask(Side side, std::uint8_t option) {
  UseOf(side, option) = Use::kAsked;
  Put({kIac, side == Side::kOurs ? kWill : kDo, option});
}

void Telnet::Subnegotiate(std::uint8_t option, std::span<const std::uint8_t> content) {
  Put({kIac, kBegin, option});
  const std::vector<std::uint8_t> escaped = Escaped(content);
  output_.insert(output_.end(), escaped.begin(), escaped.end());
  Put({kIac, kEnd});
}

std::optional<std::uint8_t> Telnet::Take(std::uint8_t byte) {
  switch (expects_) {
    case Expects::kData:
      if (byte != kIac) return byte;
      expects_ = Expects::kCommand;
      break;
    case Expects::kCommand:
      if (TakeCommand(byte)) return byte;
      break;
    case Expects::kOption:
      expects_ = Expects::kData;
      TakeRequest(byte);
      break;
    case Expects::kSubnegotiation:
      if (byte == kIac) {
        expects_ = Expects::kCommandInside;
      } else {
        TakeContent(byte);
      }
      break;
    case Expects::kCommandInside:
      expects_ = Expects::kSubnegotiation;
      if (byte == kIac) {
        TakeContent(byte);
      } else if (byte == kEnd) {
        EndSubnegotiation();
      } else {  // its end got lost
        TakeCommand(byte);
      }
      break;
  }
  return std::nullopt;
}

/// Takes the byte behind the command mark; returns whether the two are one byte of data.
bool Telnet::TakeCommand(std::uint8_t command) {
  expects_ = Expects::kData;
  if (command == kIac) return true;
  spoken_ = true;
  if (command == kBegin) {
    content_.clear();
    expects_ = Expects::kSubnegotiation;
  } else if (command >= kWill) {
    request_ = command;
    expects_ = Expects::kOption;
  }
  return false;
}

void Telnet::TakeRequest(std::uint8_t option) {
  const bool ours = request_ == kDo || request_ == kDont;
  const bool on = request_ == kDo || request_ == kWill;
  Use& use = UseOf(ours ? Side::kOurs : Side::kTheirs, option);
  const Use before = std::exchange(use, on && wanted_[option] ? Use::kYes : Use::kNo);
  // An answer to what we asked needs none itself, nor does a request for what is so already.
  const bool answered = on ? before != Use::kNo : before != Use::kYes;
  const bool agreed = use == Use::kYes;
  if (!answered) Put({kIac, ours ? (agreed ? kWill : kWont) : (agreed ? kDo : kDont), option});
  if (ours) onAllowed(option, on);
}

void Telnet::TakeContent(std::uint8_t byte) {
  if (content_.size() <= kLongestSubnegotiation) content_.push_back(byte);
}

void Telnet::EndSubnegotiation() {
  expects_ = Expects::kData;
  if (content_.empty() || content_.size() > kLongestSubnegotiation) return;
  const std::vector<std::uint8_t> content = std::exchange(content_, {});
  onSubnegotiation(content[0], std::span(content).subspan(1));
}

void Telnet::Put(std::initializer_list<std::uint8_t> bytes) {
  output_.insert(output_.end(), bytes.begin(), bytes.end());
}

std::vector<std::uint8_t> Telnet::TakeOutput() {
  return std::exchange(output_, {});
}

std::vector<std::uint8_t> Telnet::Escaped(std::span<const std::uint8_t> data) {
  std::vector<std::uint8_t> escaped;
  for (const std::uint8_t byte : data) {
    escaped.push_back(byte);
    if (byte == kIac) escaped.push_back(kIac);
  }
  return escaped;
}

}  // namespace marlinset

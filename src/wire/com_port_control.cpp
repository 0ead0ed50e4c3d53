// SPDX-License-Identifier: GPL-3.0-or-later
#include "wire/com_port_control.h"

#include <algorithm>
#include <iterator>

#include "base/text.h"

namespace marlinset {
namespace {

// Options of Telnet.
constexpr std::uint8_t kBinary = 0;
constexpr std::uint8_t kSuppressGoAhead = 3;
constexpr std::uint8_t kComPortOption = 44;

// Commands of the COM port option. The server's answer has the command's number plus 100.
constexpr std::uint8_t kBaudRate = 1;
constexpr std::uint8_t kDataSize = 2;
constexpr std::uint8_t kParity = 3;
constexpr std::uint8_t kStopSize = 4;
constexpr std::uint8_t kControl = 5;
constexpr std::uint8_t kPurge = 12;
constexpr std::uint8_t kAnswer = 100;
// Values of kControl and kPurge.
constexpr std::uint8_t kDtrOn = 8;
constexpr std::uint8_t kRtsOn = 11;
constexpr std::uint8_t kBothBuffers = 3;

struct Setting {
  std::uint8_t command;
  std::uint32_t value;
  std::size_t bytes;
  const char* name;
};
constexpr Setting kPortSettings[] = {{kBaudRate, 57600, 4, "57600 bits per second"},
                                     {kDataSize, 8, 1, "8 data bits"},
                                     {kParity, 1, 1, "no parity"},
                                     {kStopSize, 1, 1, "1 stop bit"},
                                     {kControl, 1, 1, "no flow control"}};

/// XON/XOFF, hardware, DCD and DSR. The other values of the same command switch signals, or flow control of
/// the other direction.
constexpr std::uint8_t kFlowControls[] = {2, 3, 17, 19};

/// No server has to say that much before the port is set.
constexpr std::size_t kFlood = 65536;
constexpr std::size_t kEarlyKept = 80;

std::vector<std::uint8_t> BytesOf(const Setting& setting) {
  std::vector<std::uint8_t> content = {setting.command};
  for (std::size_t i = setting.bytes; i-- > 0;)
    content.push_back(static_cast<std::uint8_t>(setting.value >> (8 * i) & 0xFF));
  return content;
}

}  // namespace

ComPortControl::ComPortControl() : telnet_({kBinary, kSuppressGoAhead, kComPortOption}) {
  static_assert(std::size(kPortSettings) == kSettings);
  telnet_.onAllowed = [this](std::uint8_t option, bool may) { Allow(option, may); };
  telnet_.onSubnegotiation = [this](std::uint8_t option, std::span<const std::uint8_t> content) {
    TakeAnswer(option, content);
  };
  for (const std::uint8_t option : {kBinary, kSuppressGoAhead}) {
    telnet_.Ask(Telnet::Side::kOurs, option);
    telnet_.Ask(Telnet::Side::kTheirs, option);
  }
  telnet_.Ask(Telnet::Side::kOurs, kComPortOption);
}

std::vector<std::uint8_t> ComPortControl::Receive(std::span<const std::uint8_t> bytes) {
  std::vector<std::uint8_t> data;
  for (const std::uint8_t byte : bytes) {
    const bool ready = Ready();
    if (!ready) ++received_;
    const auto taken = telnet_.Take(byte);
    if (!taken) continue;
    if (ready) {
      data.push_back(*taken);
    } else {
      NoteEarly(*taken);
    }
  }
  return data;
}

void ComPortControl::Allow(std::uint8_t option, bool may) {
  if (option != kComPortOption) return;
  if (!may) {
    declined_ = true;
  } else if (!agreed_) {
    agreed_ = true;
    SetPort();
  }
}

/// The purge goes first: the server carries all this out in order, so what it sends behind the last
/// confirmation is no older than that.
void ComPortControl::SetPort() {
  telnet_.Subnegotiate(kComPortOption, std::array{kPurge, kBothBuffers});
  for (const Setting& setting : kPortSettings) telnet_.Subnegotiate(kComPortOption, BytesOf(setting));
  // As a computer's own port does when it is opened. Not all servers can, and units do not need it.
  for (const std::uint8_t signal : {kDtrOn, kRtsOn})
    telnet_.Subnegotiate(kComPortOption, std::array{kControl, signal});
}

void ComPortControl::TakeAnswer(std::uint8_t option, std::span<const std::uint8_t> content) {
  if (option != kComPortOption || content.empty()) return;
  for (std::size_t i = 0; i < kSettings; ++i) {
    const Setting& setting = kPortSettings[i];
    if (content[0] != setting.command + kAnswer || content.size() != setting.bytes + 1) continue;
    std::uint32_t value = 0;
    for (const std::uint8_t byte : content.subspan(1)) value = value << 8 | byte;
    const bool other =
        setting.command == kControl &&
        std::find(std::begin(kFlowControls), std::end(kFlowControls), value) == std::end(kFlowControls);
    if (value == setting.value) {
      confirmed_[i] = true;
    } else if (!other) {
      instead_[i] = value;
    }
  }
}

void ComPortControl::NoteEarly(std::uint8_t byte) {
  if (early_.size() < kEarlyKept) early_ += static_cast<char>(byte);
}

bool ComPortControl::Ready() const {
  return agreed_ &&
         std::all_of(confirmed_.begin(), confirmed_.end(), [](bool confirmed) { return confirmed; });
}

bool ComPortControl::IsWebServer() const {
  return early_.starts_with("HTTP/");
}

ComPortControl::State ComPortControl::Progress() const {
  if (Ready()) return State::kReady;
  if (received_ > kFlood || IsWebServer()) return State::kHopeless;
  for (std::size_t i = 0; i < kSettings; ++i) {
    if (instead_[i] && !confirmed_[i]) return State::kDoubtful;
  }
  return declined_ && !agreed_ ? State::kDoubtful : State::kPending;
}

std::string ComPortControl::Trouble() const {
  if (received_ > kFlood) return "it floods the connection";
  if (IsWebServer()) return "a web server answers";
  for (std::size_t i = 0; agreed_ && i < kSettings; ++i) {
    if (confirmed_[i]) continue;
    const std::string name = Quoted(kPortSettings[i].name);
    if (!instead_[i]) return "it does not confirm " + name;
    return "it does not take " + name + " (its answer: " + std::to_string(*instead_[i]) + ")";
  }
  if (declined_) return "it refuses to have its port controlled";
  if (telnet_.Spoken()) return "it does not offer control of its port";
  return Silent() ? "it says nothing" : "what it sends is no Telnet";
}

}  // namespace marlinset

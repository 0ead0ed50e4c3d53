// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <optional>
#include <span>
#include <vector>

namespace marlinset {

/// One end of a Telnet connection (RFC 854, 855): takes the commands out of what arrives and agrees with the
/// far end on options as RFC 1143 has it, so that no two ends answer each other for ever. It agrees to the
/// options that its owner names, at both ends, and refuses all others. It has no clock and no connection: its
/// owner feeds it and sends what TakeOutput returns.
class Telnet {
 public:
  /// Data bytes and commands inside a subnegotiation double this byte.
  static constexpr std::uint8_t kIac = 255;
  /// A longer subnegotiation is passed over.
  static constexpr std::size_t kLongestSubnegotiation = 64;

  enum class Side { kOurs, kTheirs };

  explicit Telnet(std::initializer_list<std::uint8_t> options);

  /// Asks for an option: that we use it, or that the far end does.
  void Ask(Side side, std::uint8_t option);
  void Subnegotiate(std::uint8_t option, std::span<const std::uint8_t> content);

  /// Takes in one byte. Returns it if it is data.
  std::optional<std::uint8_t> Take(std::uint8_t byte);
  /// What has to be sent, from asking and answering.
  std::vector<std::uint8_t> TakeOutput();
  /// Data as it goes over the connection.
  static std::vector<std::uint8_t> Escaped(std::span<const std::uint8_t> data);

  /// Whether the far end has sent a command.
  bool Spoken() const { return spoken_; }

  /// The far end says whether we may use an option (DO, DONT). Called when the answer to it is in the output,
  /// since a subnegotiation may only follow our WILL.
  std::function<void(std::uint8_t option, bool may)> onAllowed = [](std::uint8_t, bool) {};
  /// A subnegotiation is complete.
  std::function<void(std::uint8_t option, std::span<const std::uint8_t> content)> onSubnegotiation =
      [](std::uint8_t, std::span<const std::uint8_t>) {};

 private:
  enum class Expects { kData, kCommand, kOption, kSubnegotiation, kCommandInside };
  enum class Use : std::uint8_t { kNo, kAsked, kYes };

  bool TakeCommand(std::uint8_t command);
  void TakeRequest(std::uint8_t option);
  void TakeContent(std::uint8_t byte);
  void EndSubnegotiation();
  void Put(std::initializer_list<std::uint8_t> bytes);
  Use& UseOf(Side side, std::uint8_t option) { return uses_[static_cast<std::size_t>(side)][option]; }

  std::array<bool, 256> wanted_{};
  std::array<std::array<Use, 256>, 2> uses_{};
  Expects expects_ = Expects::kData;
  std::uint8_t request_ = 0;           ///< WILL, WONT, DO or DONT, whose option is to come
  std::vector<std::uint8_t> content_;  ///< of a subnegotiation, its option first
  std::vector<std::uint8_t> output_;
  bool spoken_ = false;
};

}  // namespace marlinset

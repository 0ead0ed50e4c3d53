// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "wire/telnet.h"

namespace marlinset {

/// The tool's end of a serial line behind a device server that speaks RFC 2217: sets the server's port to
/// 57600 bit/s, 8 data bits, no parity, 1 stop bit and no flow control, and empties its buffers; after that
/// it carries bytes both ways. Its owner sends what TakeOutput returns, and decides how long to wait.
class ComPortControl {
 public:
  enum class State {
    kPending,   ///< answers of the server are missing
    kDoubtful,  ///< it has refused something; it may still change its mind
    kHopeless,  ///< it speaks something else
    kReady,     ///< the port is set, and bytes pass
  };

  /// Its output greets the server.
  ComPortControl();
  // The hooks of telnet_ lead here.
  ComPortControl(const ComPortControl&) = delete;
  ComPortControl& operator=(const ComPortControl&) = delete;

  /// Takes in what the server sent. Returns the data in it; what came before the port was set is dropped,
  /// since it is nobody's reply.
  std::vector<std::uint8_t> Receive(std::span<const std::uint8_t> bytes);
  std::vector<std::uint8_t> TakeOutput() { return telnet_.TakeOutput(); }

  State Progress() const;
  /// Whether the server lets its port be controlled. Then only settings are missing.
  bool Agreed() const { return agreed_; }
  /// Whether nothing has come from it.
  bool Silent() const { return early_.empty() && !telnet_.Spoken(); }
  /// What is missing, as the end of a sentence about the server: "it says nothing".
  std::string Trouble() const;
  /// The beginning of the data that it has sent before it was ready: some say so why they close.
  const std::string& Early() const { return early_; }

 private:
  static constexpr std::size_t kSettings = 5;

  void Allow(std::uint8_t option, bool may);
  void SetPort();
  void TakeAnswer(std::uint8_t option, std::span<const std::uint8_t> content);
  void NoteEarly(std::uint8_t byte);
  bool IsWebServer() const;
  bool Ready() const;

  Telnet telnet_;
  bool agreed_ = false;    ///< the server has said DO
  bool declined_ = false;  ///< it has said DONT
  std::array<bool, kSettings> confirmed_{};
  std::array<std::optional<std::uint32_t>, kSettings> instead_;  ///< what the server set in their place
  std::size_t received_ = 0;                                     ///< bytes before the port was set
  std::string early_;                                            ///< the first data among them
};

}  // namespace marlinset

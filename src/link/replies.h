// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace marlinset {

class FrmStart;
struct Platform;
struct Variables;

/// Bit of a unit's video status byte: automatic selection of the standard is off, the unit takes it by
/// command.
inline constexpr int kManualBit = 0x80;

/// The text of a video standard code as units report and take it: 1 "NTSC" to 8 "720p/60"; empty for any
/// other code.
std::string_view VideoStandardText(int code);
/// The code of a video standard's text, 0 when it has none.
int VideoStandardCode(std::string_view text);

/// Acts on checked frames. Only four tell the tool something: video status, identification, firmware text and
/// the broadcast notice; others that units are known to send pass, the rest is shown as unknown. A frame too
/// short for what is read of it is failure 9.
class Replies {
 public:
  Replies(Platform& platform, Variables& variables, FrmStart& form);

  void DecodeQueryReply(std::span<const std::uint8_t> frame);
  void DecodeAddr0Reply(std::span<const std::uint8_t> frame);
  void DecodeAddr1Reply(std::span<const std::uint8_t> frame);
  void DecodeAddr2Reply(std::span<const std::uint8_t> frame);

 private:
  void ShowVideoStatus(std::span<const std::uint8_t> frame);
  void ShowIdentification(std::span<const std::uint8_t> frame);
  void TakeFirmwareText(std::span<const std::uint8_t> frame);
  void LeaveBroadcast();
  void ShowUnknown(std::span<const std::uint8_t> frame);

  Platform& platform_;
  Variables& vars_;
  FrmStart& form_;
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace marlinset {

class FrmStart;
struct Platform;
struct Variables;

/// Bit of a unit's video status byte: automatic selection of the standard is off, and the unit takes its
/// standard by command.
inline constexpr int kManualBit = 0x80;

/// The text of a video standard code as units report and take it: 1 is "NTSC", 8 is "720p/60"; empty for any
/// other code.
std::string_view VideoStandardText(int code);
/// The code of a video standard's text, 0 if it has none.
int VideoStandardCode(std::string_view text);

/// The commands of the replies that say who the unit is.
inline constexpr std::uint8_t kIdentificationReply = 53;
inline constexpr std::uint8_t kFirmwareReply = 54;
/// The model of an identification's code, as panel 4 shows it; empty for an unknown code.
std::string_view ModelText(int code);
/// Reads the text of a firmware reply: eight characters, a blank and six digits; then, unless the marker is
/// "R", a blank, the marker, a blank and six more digits. Throws SubscriptOutOfRange if the frame is too
/// short; `text` holds then what it has.
void ReadFirmwareText(std::span<const std::uint8_t> frame, std::string& text);

/// What a checked frame from the unit is.
enum class ReplyKind {
  kVideoStatus,
  kIdentification,
  kFirmware,
  kBroadcastNotice,
  kIgnored,  ///< one that units are known to send and that means nothing to the tool
  kUnknown,
  kWrongPacketId,
  kWrongAddress,
};

/// Throws SubscriptOutOfRange for a frame that is too short to say.
ReplyKind KindOf(std::span<const std::uint8_t> frame);
/// The command of the query that a checked frame answers; 0 if it answers none.
int QueryAnsweredBy(std::span<const std::uint8_t> frame);
/// A checked frame in an operator's words: "Video status: 1080i/60, automatic, video present".
std::string MeaningOfReply(std::span<const std::uint8_t> frame);

/// Acts on checked frames. Only four matter to the tool: video status, identification, firmware text and the
/// broadcast notice. Ignores others that units are known to send, and shows the rest as unknown. Throws
/// SubscriptOutOfRange for a frame that is too short for what is read from it.
class Replies {
 public:
  Replies(Platform& platform, Variables& variables, FrmStart& form);

  void Decode(std::span<const std::uint8_t> frame);

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

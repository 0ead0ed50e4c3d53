// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <utility>

#include "unit/frame_reader.h"
#include "unit/line_time.h"
#include "unit/unit_commands.h"
#include "unit/unit_memory.h"

namespace marlinset {

/// What the unit tells about its firmware.
struct UnitFirmware {
  std::string text = "MARLIN40";  ///< eight characters; shorter texts are filled with blanks
  std::array<std::uint8_t, 3> version{2, 14, 0};
  char marker = 'R';  ///< R for a release; any other letter makes `build` count
  std::array<std::uint8_t, 3> build{};
};

/// Reads what the tool's About box shows of a firmware: "MARLIN40", "MARLIN40 020E00" or
/// "MARLIN40 020E00 B 000017". Nothing when the text has none of these forms.
std::optional<UnitFirmware> ParseFirmware(std::string_view text);

constexpr int kModelHd7340 = 2;
constexpr int kModelHd7340Old = 8;
constexpr int kModelHdSd7340 = 10;
constexpr int kModelHd7340Q = 32;

/// What a unit is when it is switched on.
struct UnitSettings {
  int model = kModelHdSd7340;
  int standard = 4;     ///< code of its video standard: 1 to 8, 0 for none; six bits
  bool manual = false;  ///< the standard is set by command, not taken from the input
  bool video = true;    ///< there is video at the input
  UnitFirmware firmware{};
  LineTime ackTime{};  ///< from the last byte of a setting to its acknowledgement
  /// Settings that take another time, by address and command.
  std::map<std::pair<int, int>, LineTime> ackTimes{};
};

/// What goes wrong on demand. The counts go down as they are used.
struct UnitFaults {
  int drop = 0;     ///< acknowledgements to lose; the setting is taken
  int nak = 0;      ///< settings to refuse with a Nak
  int corrupt = 0;  ///< frames to send with a wrong checksum
  int twice = 0;    ///< answers to send two times in a row
  /// So long after the next setting an Ack goes out that answers nothing, whatever its own answer is.
  std::optional<LineTime> stray = {};
  LineTime lateAcks{};    ///< added to every acknowledgement
  LineTime lateFrames{};  ///< added to every answer that is a frame
  bool mute = false;      ///< takes everything and answers nothing
  /// Answers leave in pieces of so many bytes, 0: whole.
  std::size_t pieceBytes = 0;
  LineTime pieceGap = std::chrono::milliseconds{2};
};

/// A frame that the unit received, with its start mark and checksum.
struct ReceivedFrame {
  LineTime at;
  Bytes bytes;
};

/// The unit at the far end of the line: takes the tool's bytes, keeps what it was told, and says which bytes
/// go out when. It does no input or output and has no clock.
///
/// A setting is acknowledged with a lone 4, a frame that is unknown, ill-formed or damaged is refused with a
/// lone 5, and in local mode everything is answered with a lone 6 and nothing is taken. Selecting the
/// reporting mode and setting the video standard have no answer; queries are answered by frames.
class UnitModel {
 public:
  explicit UnitModel(UnitSettings settings = {});

  /// Takes bytes that arrived at `now`; portions may cut frames anywhere.
  void Receive(std::span<const std::uint8_t> bytes, LineTime now);
  /// At least so many more bytes must arrive before anything can come of them.
  std::size_t BytesToGo() const { return reader_.BytesToGo(); }
  /// When the next bytes go out; nothing when none are to.
  std::optional<LineTime> NextReplyAt() const;
  /// The bytes that are to go out by `now`, one element for each answer or piece of one, in their order.
  std::vector<Bytes> TakeReplies(LineTime now);

  /// What happens at the unit's front panel and inputs.
  void SetLocal(bool local) { local_ = local; }
  void SetStandard(int code) { standard_ = inputStandard_ = code; }
  void SetManual(bool manual);
  void SetVideo(bool video) { video_ = video; }
  /// Goes to Broadcast mode: sends its notice at once and then every second, until the tool selects it.
  void StartBroadcast(LineTime now);
  /// Sends `count` bytes that are no answer to anything.
  void Flood(std::size_t count, LineTime now);
  /// The line is cut: what was on its way in either direction is lost.
  void LoseLine();
  /// Sends any bytes.
  void Say(const Bytes& bytes, LineTime now);
  UnitFaults& Faults() { return faults_; }

  const UnitMemory& Memory() const { return memory_; }
  int Model() const { return settings_.model; }
  int Standard() const { return standard_; }
  bool Manual() const { return manual_; }
  bool Video() const { return video_; }
  bool Local() const { return local_; }
  bool Broadcasting() const { return nextNotice_.has_value(); }
  /// The undamaged frames received since the last call.
  std::vector<ReceivedFrame> TakeFrames() { return std::exchange(frames_, {}); }

 private:
  void Handle(std::span<const std::uint8_t> fields, LineTime now);
  void Execute(const UnitCommand& command, std::span<const std::uint8_t> fields, LineTime now);
  void TakeStandard(const UnitCommand& command, std::span<const std::uint8_t> fields, LineTime now);
  void TakeSetting(const UnitCommand& command, std::span<const std::uint8_t> fields, LineTime now);
  void Refuse(LineTime now);
  void AnswerFrame(std::span<const std::uint8_t> fields, LineTime now);
  Bytes FirmwareFields() const;
  void Answer(const Bytes& bytes, LineTime at);
  void Queue(const Bytes& bytes, LineTime at);

  UnitSettings settings_;
  UnitFaults faults_;
  UnitMemory memory_;
  FrameReader reader_;
  int standard_;
  int inputStandard_;
  bool manual_;
  bool video_;
  bool local_ = false;
  std::optional<LineTime> nextNotice_;
  std::multimap<LineTime, Bytes> replies_;
  LineTime lastPiece_{};
  std::vector<ReceivedFrame> frames_;
};

}  // namespace marlinset

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

/// The unit's firmware as it reports it.
struct UnitFirmware {
  std::string text = "MARLIN40";  ///< eight characters; shorter texts are filled with blanks
  std::array<std::uint8_t, 3> version{2, 14, 0};
  char marker = 'R';  ///< R for a release; with any other letter `build` is valid
  std::array<std::uint8_t, 3> build{};
};

/// Reads a firmware as the tool's About box shows it: "MARLIN40", "MARLIN40 020E00" or "MARLIN40 020E00 B
/// 000017". Returns nothing if the text has none of these forms.
std::optional<UnitFirmware> ParseFirmware(std::string_view text);

constexpr int kModelHd7340 = 2;
constexpr int kModelHd7340Old = 8;
constexpr int kModelHdSd7340 = 10;
constexpr int kModelHd7340Q = 32;

/// The unit's state when it is switched on.
struct UnitSettings {
  int model = kModelHdSd7340;
  int standard = 4;     ///< code of its video standard: 1 to 8, 0 for none; six bits
  bool manual = false;  ///< commands set the standard, the input does not
  bool video = true;    ///< the input has video
  UnitFirmware firmware{};
  LineTime ackTime{};  ///< between the last byte of a setting and its acknowledgement
  /// Settings with a different time, by address and command.
  std::map<std::pair<int, int>, LineTime> ackTimes{};
};

/// Faults on demand. Each use lowers a count by one.
struct UnitFaults {
  int drop = 0;     ///< acknowledgements to lose; the unit takes the setting
  int nak = 0;      ///< settings to refuse with a Nak
  int corrupt = 0;  ///< frames to send with a wrong checksum
  int twice = 0;    ///< answers to send twice in a row
  /// So long after the next setting an Ack goes out that answers nothing, besides the setting's own answer.
  std::optional<LineTime> stray = {};
  LineTime lateAcks{};    ///< added to every acknowledgement
  LineTime lateFrames{};  ///< added to every answer that is a frame
  bool mute = false;      ///< accepts everything and answers nothing
  /// Answers leave in pieces of so many bytes; 0: in one piece.
  std::size_t pieceBytes = 0;
  LineTime pieceGap = std::chrono::milliseconds{2};
};

/// A frame that the unit received, with its start mark and checksum.
struct ReceivedFrame {
  LineTime at;
  Bytes bytes;
};

/// The unit at the far end of the line: takes the tool's bytes, stores its settings, and says which bytes go
/// out when. It does no input or output and has no clock.
///
/// It acknowledges a setting with a lone 4 and refuses an unknown, ill-formed or damaged frame with a lone 5;
/// in local mode it answers everything with a lone 6 and takes nothing. It does not answer the selection of
/// the reporting mode and of the video standard; it answers queries with frames.
class UnitModel {
 public:
  explicit UnitModel(UnitSettings settings = {});

  /// Takes bytes that arrived at `now`; portions may cut frames anywhere.
  void Receive(std::span<const std::uint8_t> bytes, LineTime now);
  /// At least so many more bytes must arrive before they have any effect.
  std::size_t BytesToGo() const { return reader_.BytesToGo(); }
  /// When the next bytes go out; nothing if there are none.
  std::optional<LineTime> NextReplyAt() const;
  /// The bytes due by `now`, one element for each answer or piece of one, in order.
  std::vector<Bytes> TakeReplies(LineTime now);

  /// Events at the unit's front panel and inputs.
  void SetLocal(bool local) { local_ = local; }
  void SetStandard(int code) { standard_ = inputStandard_ = code; }
  void SetManual(bool manual);
  void SetVideo(bool video) { video_ = video; }
  /// Enters Broadcast mode: sends its notice at once and then every second, until the tool selects it.
  void StartBroadcast(LineTime now);
  /// Sends `count` bytes that answer nothing.
  void Flood(std::size_t count, LineTime now);
  /// The line is cut: bytes in transit in either direction are lost.
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

// SPDX-License-Identifier: GPL-3.0-or-later
#include "unit/unit_model.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "wire/frame.h"

namespace marlinset {
namespace {

constexpr LineTime kNoticeInterval = std::chrono::seconds{1};
constexpr std::uint8_t kFloodByte = 0x55;
constexpr std::uint8_t kStatusManual = 0x80;
constexpr std::uint8_t kStatusNoVideo = 0x40;
constexpr std::uint8_t kStatusCode = 0x3F;
constexpr int kHighestStandard = 8;
constexpr std::uint8_t kNotice[] = {15, 0, 187};

}  // namespace

UnitModel::UnitModel(UnitSettings settings)
    : settings_(std::move(settings)),
      standard_(settings_.standard),
      inputStandard_(settings_.standard),
      manual_(settings_.manual),
      video_(settings_.video) {}

void UnitModel::Receive(std::span<const std::uint8_t> bytes, LineTime now) {
  for (auto& [frame, good] : reader_.Take(bytes, now)) {
    if (!good) {
      Answer({local_ ? kLocalMode : kNak}, now);
      continue;
    }
    Handle(std::span(frame).subspan(2, frame.size() - kFrameOverhead), now);
    frames_.push_back({now, std::move(frame)});
  }
}

void UnitModel::Handle(std::span<const std::uint8_t> fields, LineTime now) {
  if (local_) return Answer({kLocalMode}, now);
  const UnitCommand* command = FindUnitCommand(fields);
  if (!command || (command->onlyHd7340Q && settings_.model != kModelHd7340Q)) return Refuse(now);
  Execute(*command, fields, now);
}

void UnitModel::Execute(const UnitCommand& command, std::span<const std::uint8_t> fields, LineTime now) {
  switch (command.action) {
    case UnitAction::kSelect:
      nextNotice_.reset();
      return;
    case UnitAction::kBroadcast:
      return StartBroadcast(now);
    case UnitAction::kSetStandard:
      return TakeStandard(command, fields, now);
    case UnitAction::kVideoSense: {
      const int status =
          (manual_ ? kStatusManual : 0) | (video_ ? 0 : kStatusNoVideo) | (standard_ & kStatusCode);
      return AnswerFrame(Bytes{15, 0, 52, static_cast<std::uint8_t>(status)}, now);
    }
    case UnitAction::kIdentify:
      return AnswerFrame(Bytes{15, 0, 53, static_cast<std::uint8_t>(settings_.model), 0}, now);
    case UnitAction::kFirmware:
      return AnswerFrame(FirmwareFields(), now);
    case UnitAction::kSetting:
      return TakeSetting(command, fields, now);
  }
}

void UnitModel::TakeStandard(const UnitCommand& command, std::span<const std::uint8_t> fields, LineTime now) {
  const int code = fields[3];
  if (code < 1 || code > kHighestStandard) return Refuse(now);
  if (!manual_) return;  // the input decides
  standard_ = code;
  memory_.Keep(command, fields);
}

void UnitModel::TakeSetting(const UnitCommand& command, std::span<const std::uint8_t> fields, LineTime now) {
  if (const auto stray = std::exchange(faults_.stray, std::nullopt)) Answer({kAck}, now + *stray);
  if (faults_.nak > 0) {
    --faults_.nak;
    return Refuse(now);
  }
  memory_.Keep(command, fields);
  const bool selection = command.key == SettingKey::kClassParameter && fields[3] == 0 && fields[4] == 0;
  if (selection) SetManual(fields[5] != 0);
  if (faults_.drop > 0) {
    --faults_.drop;
    return;
  }
  const auto special = settings_.ackTimes.find({command.address, command.command});
  const LineTime time = special == settings_.ackTimes.end() ? settings_.ackTime : special->second;
  Answer({kAck}, now + time + faults_.lateAcks);
}

void UnitModel::Refuse(LineTime now) {
  Answer({kNak}, now);
}

void UnitModel::AnswerFrame(std::span<const std::uint8_t> fields, LineTime now) {
  Bytes frame = EncodeFrame(fields);
  if (faults_.corrupt > 0) {
    --faults_.corrupt;
    frame.back() ^= 0xFFU;
  }
  Answer(frame, now + faults_.lateFrames);
}

Bytes UnitModel::FirmwareFields() const {
  constexpr std::size_t kTextLength = 8;
  const UnitFirmware& firmware = settings_.firmware;
  Bytes text = ToCodePage(firmware.text);
  text.resize(kTextLength, ' ');
  Bytes fields{15, 0, 54};
  fields.insert(fields.end(), text.begin(), text.end());
  fields.insert(fields.end(), firmware.version.begin(), firmware.version.end());
  fields.push_back(static_cast<std::uint8_t>(firmware.marker));
  fields.insert(fields.end(), firmware.build.begin(), firmware.build.end());
  return fields;
}

void UnitModel::Answer(const Bytes& bytes, LineTime at) {
  if (faults_.mute) return;
  Queue(bytes, at);
  if (faults_.twice > 0) {
    --faults_.twice;
    Queue(bytes, at);
  }
}

void UnitModel::Queue(const Bytes& bytes, LineTime at) {
  if (faults_.pieceBytes == 0) {
    replies_.emplace(at, bytes);
    return;
  }
  // Pieces of one answer stay together on the line.
  for (std::size_t begin = 0; begin < bytes.size(); begin += faults_.pieceBytes) {
    const auto piece = std::span(bytes).subspan(begin, std::min(faults_.pieceBytes, bytes.size() - begin));
    lastPiece_ = begin == 0 && at > lastPiece_ ? at : lastPiece_ + faults_.pieceGap;
    replies_.emplace(lastPiece_, Bytes(piece.begin(), piece.end()));
  }
}

std::optional<LineTime> UnitModel::NextReplyAt() const {
  std::optional<LineTime> next;
  if (nextNotice_ && !local_ && !faults_.mute) next = nextNotice_;
  if (!replies_.empty() && (!next || replies_.begin()->first < *next)) next = replies_.begin()->first;
  return next;
}

std::vector<Bytes> UnitModel::TakeReplies(LineTime now) {
  if (nextNotice_ && *nextNotice_ <= now && !local_ && !faults_.mute) {
    AnswerFrame(kNotice, now);
    nextNotice_ = now + kNoticeInterval;
  }
  std::vector<Bytes> due;
  while (!replies_.empty() && replies_.begin()->first <= now) {
    due.push_back(std::move(replies_.begin()->second));
    replies_.erase(replies_.begin());
  }
  return due;
}

void UnitModel::SetManual(bool manual) {
  manual_ = manual;
  if (!manual) standard_ = inputStandard_;
}

void UnitModel::StartBroadcast(LineTime now) {
  nextNotice_ = now;
}

void UnitModel::Flood(std::size_t count, LineTime now) {
  Say(Bytes(count, kFloodByte), now);
}

void UnitModel::LoseLine() {
  replies_.clear();
  reader_ = {};
}

void UnitModel::Say(const Bytes& bytes, LineTime now) {
  if (!faults_.mute) Queue(bytes, now);
}

}  // namespace marlinset

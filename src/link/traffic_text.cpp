// SPDX-License-Identifier: GPL-3.0-or-later
// The cells of a traffic record.
#include <cstdio>

#include "base/text.h"
#include "link/traffic.h"
#include "wire/frame.h"

namespace marlinset {
namespace {

enum Column : std::size_t { kTime, kDirection, kMeaning, kFields, kBytes };

/// Hours, minutes and seconds of the tool's clock.
std::string TimeText(std::int64_t milliseconds) {
  constexpr std::int64_t kMsInHour = 3600000, kMsInMinute = 60000, kMsInSecond = 1000;
  char text[40];
  std::snprintf(text, sizeof text, "%02lld:%02lld:%02lld.%03lld",
                static_cast<long long>(milliseconds / kMsInHour),
                static_cast<long long>(milliseconds % kMsInHour / kMsInMinute),
                static_cast<long long>(milliseconds % kMsInMinute / kMsInSecond),
                static_cast<long long>(milliseconds % kMsInSecond));
  return text;
}

std::string FieldsText(const TrafficRow& row) {
  std::string text;
  if (FirstPiece(row.bytes).kind != PieceKind::kFrame) return text;
  for (std::size_t i = 2; i + 1 < row.bytes.size(); ++i) {
    text += (text.empty() ? "" : " ") + std::to_string(row.bytes[i]);
  }
  return text;
}

std::string BytesText(const TrafficRow& row) {
  std::string text;
  for (const std::uint8_t byte : row.bytes) text += (text.empty() ? "" : " ") + HexByte(byte);
  return text;
}

std::string AnswerText(const TrafficRow& row) {
  const bool known = row.answeredAfterMs != TrafficRow::kUnknownMs;
  const std::string after = std::to_string(row.answeredAfterMs) + " ms";
  switch (row.answer) {
    case TrafficAnswer::kNone:
      return {};
    case TrafficAnswer::kAwaited:
      return "awaited";
    case TrafficAnswer::kAnswered:
      return known ? after : "yes";
    case TrafficAnswer::kRefused:
      return "refused";
    case TrafficAnswer::kMissing:
      return known ? "late, " + after : "no answer";
    case TrafficAnswer::kUncertain:
      return "uncertain";
    case TrafficAnswer::kNotSent:
      break;
  }
  return "not sent";
}

}  // namespace

std::array<std::string, kTrafficColumns> TrafficHeads() {
  return {"Time", "Direction", "Meaning", "Fields", "Bytes", "Acknowledged"};
}

std::string TrafficText(const TrafficRow& row, std::size_t column) {
  switch (column) {
    case kTime:
      return TimeText(row.milliseconds);
    case kDirection:
      return row.sent ? "To unit" : "From unit";
    case kMeaning:
      return row.meaning;
    case kFields:
      return FieldsText(row);
    case kBytes:
      return BytesText(row);
    default:
      return AnswerText(row);
  }
}

}  // namespace marlinset

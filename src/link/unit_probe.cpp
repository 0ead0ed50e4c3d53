// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/unit_probe.h"

#include <algorithm>
#include <array>
#include <span>

#include "base/finally.h"
#include "controls/timer.h"
#include "core/variables.h"
#include "link/replies.h"
#include "platform/event_pump.h"
#include "platform/ms_comm.h"
#include "platform/platform.h"
#include "wire/frame.h"

namespace marlinset {
namespace {

/// The sound frame with the reply to a query, wherever it lies among other bytes.
std::optional<std::vector<std::uint8_t>> FrameIn(std::span<const std::uint8_t> bytes, std::uint8_t command) {
  constexpr std::uint8_t kLinkControl = 15;
  const std::array<std::uint8_t, 3> head = {kLinkControl, 0, command};
  for (; bytes.size() > 1; bytes = bytes.subspan(1)) {
    const std::size_t length = bytes[1] + kFrameOverhead;
    if (bytes[0] != kStartMark || bytes.size() < length || length < 2 + head.size() + 1) continue;
    const auto frame = bytes.first(length);
    const bool answers = std::equal(head.begin(), head.end(), frame.begin() + 2);
    if (answers && CheckFrame(frame) == FrameCheck::kGood) return std::vector(frame.begin(), frame.end());
  }
  return std::nullopt;
}

}  // namespace

std::string UnitProbe::Identify(MSComm& line) {
  std::string text;
  stopped_ = false;
  line_ = &line;
  try {
    Finally(
        [&] {
          line.SetPortOpen(true);
          text = Ask(line);
        },
        [&] {
          line.SetPortOpen(false);
          line_ = nullptr;
        });
  } catch (const RuntimeError& error) {
    text = error.Description() + (error.Remedy().empty() ? "" : " " + error.Remedy());
  }
  return stopped_ ? "The test was stopped." : text;
}

void UnitProbe::Stop() {
  stopped_ = true;
  if (line_) line_->SetPortOpen(false);
}

std::string UnitProbe::Ask(MSComm& line) {
  const auto identification = Reply(line, CommandId::kGetID, kIdentificationReply);
  if (!identification) return NoReplyText(line);
  const std::string_view model = ModelText(At(*identification, 5));
  if (model.empty())
    return "A unit of an unknown model answers: " + std::to_string(At(*identification, 5)) + ".";
  std::string text = "unknown";
  if (const auto firmware = Reply(line, CommandId::kGetFirmware, kFirmwareReply))
    ReadFirmwareText(*firmware, text);
  return std::string(model) + ", firmware " + text;
}

std::optional<UnitProbe::Bytes> UnitProbe::Reply(MSComm& line, CommandId query, std::uint8_t command) {
  const Bytes frame = EncodeFrame(BytesOf(FieldsOf(query)));
  heard_.clear();
  for (int i = 0; i < kTries; ++i) {
    Deadline limit(platform_.pump, platform_.guard, "probe", kReplyMs);
    line.Output(frame);
    while (limit.Enabled() && line.PortOpen() && !platform_.pump.Ending()) {
      while (line.InBufferCount() > 0) heard_.push_back(line.Input());
      if (auto reply = FrameIn(heard_, command)) return reply;
      platform_.pump.Pump();
    }
  }
  return std::nullopt;
}

std::string UnitProbe::NoReplyText(const MSComm& line) const {
  if (line.DeviceGone()) return "The device went away during the test.";
  if (heard_.empty())
    return "No unit answers within a second. Check the cable, and that the unit is switched on.";
  const bool local = std::ranges::all_of(heard_, [](std::uint8_t byte) { return byte == kLocalMode; });
  return local ? "A unit in local mode answers; it says no more."
               : "Something answers, but not as a unit does.";
}

}  // namespace marlinset

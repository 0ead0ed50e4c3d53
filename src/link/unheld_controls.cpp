// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/unheld_controls.h"

#include <algorithm>
#include <string_view>

#include "core/window_ticks.h"

namespace marlinset {
namespace {

using enum CommandId;
using Bytes = std::span<const std::uint8_t>;

/// The bits in which a byte of the two messages differs; all of them if the unit holds no such byte.
int Difference(Bytes message, Bytes held, std::size_t place) {
  constexpr int kAll = 0xFF;
  return place < message.size() && place < held.size() ? message[place] ^ held[place] : kAll;
}

/// Behind address, packet id, command and number: flag byte, vertical row, horizontal position, length. The
/// length follows from two of the ticks.
std::vector<ControlName> OfWindow(int row, Bytes message, Bytes held) {
  constexpr std::size_t kFlags = 4, kVertical = 5, kHorizontal = 6;
  std::vector<ControlName> controls;
  for (const WindowTick& tick : kWindowTicks) {
    if (Difference(message, held, kFlags) & tick.flag) controls.push_back({tick.control, row});
  }
  if (Difference(message, held, kVertical)) controls.push_back({"udVer", row});
  if (Difference(message, held, kHorizontal)) controls.push_back({"udHor", row});
  return controls;
}

/// Behind address, packet id and command: each line, followed by its duplicate.
std::vector<ControlName> OfVitcLines(Bytes message, Bytes held) {
  constexpr int kLines[] = {1, 5, 2, 6, 3, 7};
  constexpr std::size_t kFirst = 3;
  std::vector<ControlName> controls;
  for (std::size_t i = 0; i < std::size(kLines); ++i) {
    if (Difference(message, held, kFirst + i)) controls.push_back({"upVitc1", kLines[i]});
  }
  return controls;
}

/// Mode and preview of the slate are one thing to the unit: what replaces a preview ends it.
std::vector<ControlName> OfSlateMode(Bytes held) {
  const bool previews = std::ranges::equal(held, BytesOf(FieldsOf(kSlatePreview)));
  std::vector<ControlName> controls = {{"ComWin", FrmStart::kSlateMode}};
  if (previews) controls.push_back({"chPrev"});
  return controls;
}

std::vector<ControlName> OfStep(CommandId id) {
  for (const auto steps : {StepsBeforeWindows(), StepsAfterWindows()}) {
    for (const SendStep& step : steps) {
      if (step.command != id && step.otherwise != id) continue;
      const Marks marks = MarksOf(step);
      return {marks.All().begin(), marks.All().end()};
    }
  }
  return {};
}

}  // namespace

std::vector<ControlName> UnheldControls(CommandId id, int row, Bytes message, Bytes held) {
  switch (id) {
    case kVitcSource:
      return {{"oVITC", message.back() - 1}};
    case kSetParameter:
      return {{"udVal", row}};
    case kWindow:
      return OfWindow(row, message, held);
    case kVitcLines:
      return OfVitcLines(message, held);
    case kText:
      return {{"tWinMess"}};
    case kSlateMode:
      return OfSlateMode(held);
    case kSlatePreview:
      return {{"chPrev"}};
    case kSlateDuration:
      return {{"UDDur"}};
    case kWhiteFlagLine:
      return {{"UpDown1"}};
    case kDownConverterControl:
      return {{"ComDownConv", FrmStart::kProcessingMode},
              {"ComDownConv", FrmStart::kVerticalFilter},
              {"ComDownConv", FrmStart::kHorizontalFilter}};
    default:
      return OfStep(id);
  }
}

}  // namespace marlinset

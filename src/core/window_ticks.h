// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "core/frm_start.h"
#include "core/records.h"

namespace marlinset {

/// The check boxes in the row of a character window.
enum class TickId { kSlate, kOn, kField, kSymbol, kDoubleHeight };

struct WindowTick {
  TickId id;
  std::string_view control;  ///< control array of its boxes, by name and as a member
  ControlArray<CheckBox> FrmStart::*boxes;
  bool CharWindowRec::*preset;                         ///< the box's state in database and files
  int flag;                                            ///< its weight in the flag byte on the wire
  std::int16_t CharWindowRec::*extraLength = nullptr;  ///< characters that the tick adds to the window
};

/// In the order in which defaults and files set them.
inline constexpr auto kWindowTicks = [] {
  using enum TickId;
  return std::to_array<WindowTick>({
      {kSlate, "chSlate", &FrmStart::chSlate, &CharWindowRec::DefaultSlateOnOff, 32},
      {kOn, "chOnOff", &FrmStart::chOnOff, &CharWindowRec::DefaultOnOff, 64},
      {kField, "chField", &FrmStart::chField, &CharWindowRec::DefaultFieldOnOff, 2,
       &CharWindowRec::FieldLength},
      {kSymbol, "chSym", &FrmStart::chSym, &CharWindowRec::DefaultSymbolOnOff, 4,
       &CharWindowRec::SymbolLength},
      {kDoubleHeight, "chDblSize", &FrmStart::chDblSize, &CharWindowRec::DoubleHeight, 16},
  });
}();

constexpr const WindowTick& TickOf(TickId id) {
  return kWindowTicks[static_cast<std::size_t>(id)];
}
static_assert(std::ranges::all_of(kWindowTicks, [](const auto& row) { return TickOf(row.id).id == row.id; }),
              "the rows stand in the order of their ids");

/// Sets the boxes of a row, in order, to the state in its window's record; each box that changes runs Click.
void SetWindowTicks(const FrmStart& form, int row, const CharWindowRec& window);

/// The window's length in characters, including what the ticks of its row add.
int TickedLength(const FrmStart& form, int row, const CharWindowRec& window);

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "unit/line_time.h"
#include "unit/unit_commands.h"

namespace marlinset {

/// A character window as the unit shows it.
struct UnitWindow {
  bool on = false;
  bool slate = false;
  bool doubleHeight = false;
  bool symbol = false;
  bool fieldDigit = false;
  bool highlighted = false;
  int row = 0;       ///< in units of the font size
  int position = 0;  ///< characters from the left
  int length = 0;    ///< characters, with symbol and field digit

  bool operator==(const UnitWindow&) const = default;
};

/// The lines that carry VITC; a duplicate of 0 is unused.
struct UnitVitcLines {
  std::array<int, 3> line{};
  std::array<int, 3> duplicate{};

  bool operator==(const UnitVitcLines&) const = default;
};

/// All settings that the unit has received: the last fields of each, and what they mean. A setting that never
/// arrived has no value.
class UnitMemory {
 public:
  /// Window number or selector and 0; class and parameter; 0 and 0 for a command that is one setting.
  using Key = std::pair<int, int>;

  /// Stores the fields of a setting command, from the address on; forgets the command's opposite.
  void Keep(const UnitCommand& command, std::span<const std::uint8_t> fields);

  /// The last fields of a setting, from the address on; nullptr if it never arrived.
  const Bytes* Held(std::string_view command, Key key = {}) const;
  const std::map<std::string_view, std::map<Key, Bytes>>& All() const { return held_; }

  /// By class and parameter. Without 0/0, which is not a parameter but selects how the standard is chosen.
  std::map<Key, std::int32_t> Parameters() const;
  /// Source codes by selector.
  std::map<int, int> Routing() const;
  /// By window number.
  std::map<int, UnitWindow> Windows() const;
  std::optional<UnitVitcLines> VitcLines() const;
  std::optional<bool> VitcOn() const { return OnOff("cmdVitcOn", "cmdVitcOff"); }
  std::optional<int> VitcSource() const { return Value("cmdVitcSource"); }
  std::optional<bool> WhiteFlagOn() const { return OnOff("cmdWhiteFlagOn", "cmdWhiteFlagOff"); }
  std::optional<int> WhiteFlagLine() const { return Value("cmdWhiteFlagLine"); }
  std::optional<int> CharSize() const { return Value("cmdCharSize"); }
  std::optional<int> CharStyle() const { return Value("cmdCharStyle"); }
  std::optional<int> CharOnOff() const { return Value("cmdCharOnOff"); }
  std::optional<int> SlateDuration() const;  ///< frames
  std::optional<int> SlateMode() const { return Value("cmdSlateMode"); }
  /// The text message without the empty bytes that a sender may leave at its end.
  std::optional<std::string> Message() const;
  std::optional<int> DownConverter() const { return Value("cmdDownConverter"); }
  /// Processing mode, vertical filter, horizontal filter.
  std::optional<std::array<int, 3>> DownConverterControl() const;
  std::optional<int> SdiProgramOut() const { return Value("cmdSdiProgramOut"); }

 private:
  std::optional<int> Value(std::string_view command) const;
  std::optional<bool> OnOff(std::string_view on, std::string_view off) const;
  const std::map<Key, Bytes>& Settings(std::string_view command) const;

  std::map<std::string_view, std::map<Key, Bytes>> held_;
};

}  // namespace marlinset

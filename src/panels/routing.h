// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>

#include "controls/control_array.h"
#include "controls/control_types.h"

namespace marlinset {

class FrmStart;
class SettingCommands;
struct Variables;

/// Which source feeds the time bits (comTB) and the user bits (ComUB) of the input, of the LTC output and of
/// the three VITC lines. In interactive mode a choice goes to the unit at once, even in local mode. A choice
/// alone does not count as an edit; typing is undone but counts as one.
class Routing {
 public:
  Routing(Variables& variables, FrmStart& form, SettingCommands& commands);

 private:
  /// A box array and the entries chosen last.
  struct Boxes {
    ControlArray<ComboBox> FrmStart::*controls;
    std::array<std::uint8_t, 5> Variables::*lastIndex;
  };
  void Connect(const Boxes& boxes);
  void Click(const Boxes& boxes, int index);
  void TakeTypingBack(const Boxes& boxes, int index);

  Variables& vars_;
  FrmStart& form_;
  SettingCommands& commands_;
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "app/tool.h"
#include "tests/support/fake_computer.h"

namespace marlinset {

/// The complete tool on the virtual clock, with the shipped database and the virtual unit on every port.
struct ToolRig : FakeComputer<> {
  explicit ToolRig(const UnitSettings& unit = {}, const std::string& folder = SHIPPED_DATABASE_FOLDER)
      : FakeComputer(unit, folder) {
    line.SetPorts({1, 2, 3, 4});
  }

  const std::string& Panel(int number) const { return form.StatBar(number).Text(); }
  std::vector<std::string> Boxes() const { return dialogs.Texts(); }
  /// The texts of the boxes since the last call.
  std::vector<std::string> TakeBoxes() { return dialogs.TakeTexts(); }

  Tool tool{platform};
  FrmStart& form = tool.form;
  Variables& vars = tool.variables;
};

}  // namespace marlinset

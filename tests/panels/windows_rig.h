// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gmock/gmock.h>

#include "tests/support/tool_rig.h"

namespace marlinset {

/// The tool as it stands after its start, with a window in row 0 whose message is known: number 1, 11
/// characters and a field digit of 2, on, at line 40 and column 5. In the large font that is row 10.
struct WindowsRig : ToolRig {
  explicit WindowsRig(int model = kModelHd7340Q) : ToolRig(UnitSettings{.model = model}) {
    if (!tool.Start("", false)) throw std::logic_error("no start");
    form.udVer(0).SetValue(40);
    form.udHor(0).SetValue(5);
    form.UpDown1.SetValue(20);
    vars.ConfigSaved = true;
  }
  /// Interactive mode with an identified unit: acknowledgements are awaited for 100 ms.
  void GoInteractive() {
    form.bGetID.Press();
    form.mnuInter.SetChecked(true);
    form.mnuOff.SetChecked(false);
    form.InterTime.SetEnabled(true);
    vars.MainFormActive = false;  // no polling between what the tests look at
    line.ClearSent();
  }
  /// The fields of what was sent since the last call: "2 8 34 1".
  std::vector<std::string> Sent() {
    std::vector<std::string> texts;
    for (const Bytes& frame : line.Sent()) {
      std::string text;
      for (std::size_t i = 2; i + 1 < frame.size(); ++i) text += " " + std::to_string(frame[i]);
      texts.push_back(text.substr(1));
    }
    line.ClearSent();
    return texts;
  }
  UnitWindow UnitShows(int number) { return line.Unit().Memory().Windows().at(number); }

  FrmStart& form = tool.form;
  Variables& vars = tool.variables;
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/support/link_rig.h"
#include "tests/support/table.h"
#include "tests/support/tool_rig.h"

namespace marlinset {

/// The tool after its start, with an identified unit, so that it waits 100 ms for acknowledgements. Row 0
/// holds a window whose message is known: number 1, 11 characters, a field digit of 2, on, line 40 (row 10 in
/// the large font), column 5.
struct PanelRig : ToolRig {
  PanelRig() : ToolRig({.model = kModelHd7340Q}) {
    if (!tool.Start("", false)) throw std::logic_error("no start");
    form.bGetID.Press();
    form.udVer(0).SetValue(40);
    form.udHor(0).SetValue(5);
    form.UpDown1.SetValue(20);
    line.ClearSent();
    vars.ConfigSaved = true;
  }
  /// Interactive mode without its polls.
  void GoInteractive() {
    form.mnuInter.SetChecked(true);
    form.mnuOff.SetChecked(false);
    form.InterTime.SetEnabled(true);
    vars.MainFormActive = false;
  }
  /// The fields of each message since the last call: "2 8 34 1".
  std::vector<std::string> Sent() {
    auto texts = line.SentFields();
    line.ClearSent();
    return texts;
  }

  /// Carries out lines of a script: "check chDups 1; spin UDDur 9".
  void Do(const std::string& actions);
  /// Carries out one line and returns its answer as JSON text.
  std::string Answer(const std::string& action);

 private:
  struct Hand;
  std::shared_ptr<Hand> hand_;
};

}  // namespace marlinset

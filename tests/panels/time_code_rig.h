// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "tests/support/link_rig.h"
#include "tests/support/tool_rig.h"

namespace marlinset {

/// The numbers of the lines and of their duplicates, each with what its echo shows where that differs.
inline std::string Lines(const FrmStart& form) {
  std::string text;
  for (const int line : FrmStart::kVitcLineIndices) {
    const std::string number = std::to_string(form.upVitc1(line).Value());
    const std::string& shown = form.tLineNumber(line).Text();
    text += (text.empty() ? "" : " ") + number + (shown == number ? "" : "(" + shown + ")");
  }
  return text;
}

struct TimeCodeRig : ToolRig {
  explicit TimeCodeRig(const UnitSettings& unit = {}) : ToolRig(unit) {
    tool.Start("");
    form.bOpen.Press();
    form.bGetID.Press();  // acknowledgements are awaited for 100 ms from now on
    line.ClearSent();
    vars.ConfigSaved = true;
  }
  void GoInteractive(bool on = true) { form.mnuInter.SetChecked(on); }
  void SetLocal(bool local) {
    line.Unit().SetLocal(local);
    vars.UnitLocalMode = local;
  }
  std::vector<std::string> TakeSent() {
    std::vector<std::string> texts;
    for (const Bytes& frame : line.Sent()) texts.push_back(FieldsText(frame));
    line.ClearSent();
    return texts;
  }
  std::vector<std::string> TakeBoxes() {
    std::vector<std::string> texts = Boxes();
    dialogs.shown.clear();
    return texts;
  }
  FrmStart& form = tool.form;
  Variables& vars = tool.variables;
};

}  // namespace marlinset

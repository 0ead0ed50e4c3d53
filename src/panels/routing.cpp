// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/routing.h"

#include "core/frm_start.h"
#include "core/variables.h"
#include "link/setting_commands.h"

namespace marlinset {

Routing::Routing(Variables& variables, FrmStart& form, SettingCommands& commands)
    : vars_(variables), form_(form), commands_(commands) {
  Connect({&FrmStart::comTB, &Variables::TbLastIndex});
  Connect({&FrmStart::ComUB, &Variables::UbLastIndex});
}

void Routing::Connect(const Boxes& boxes) {
  ControlArray<ComboBox>& controls = form_.*boxes.controls;
  controls.OnClick([this, boxes](int index) { Click(boxes, index); });
  controls.OnChange([this, boxes](int index) {
    TakeTypingBack(boxes, index);
    vars_.ConfigSaved = false;
  });
  controls.OnKey([this, boxes](int index, KeyPress&) { TakeTypingBack(boxes, index); });
}

void Routing::TakeTypingBack(const Boxes& boxes, int index) {
  ComboBox& box = (form_.*boxes.controls)(index);
  if (box.ListCount() >= 1) box.PutBack(At(vars_.*boxes.lastIndex, index));
}

void Routing::Click(const Boxes& boxes, int index) {
  const ComboBox& box = (form_.*boxes.controls)(index);
  if (box.ListIndex() >= 0) {
    At(vars_.*boxes.lastIndex, index) = static_cast<std::uint8_t>(box.ListIndex());
  }
  if (!form_.mnuInter.Checked()) return;
  // The second VITC line has no user bits of its own on the unit; sending the last message again does no
  // harm.
  const std::optional<CommandId> command = CommandOfBox(box);
  if (command) {
    commands_.Send(*command, Sender::kPanel);
  } else {
    commands_.SendAgain();
  }
}

}  // namespace marlinset

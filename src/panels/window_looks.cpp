// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/window_looks.h"

#include "base/finally.h"
#include "core/choices.h"
#include "core/frm_start.h"
#include "core/variables.h"
#include "core/vertical_step.h"
#include "link/setting_commands.h"
#include "platform/ms_comm.h"
#include "platform/platform.h"

namespace marlinset {

WindowLooks::WindowLooks(Platform& platform, Variables& variables, FrmStart& form, SettingCommands& commands)
    : platform_(platform), vars_(variables), form_(form), commands_(commands) {
  form_.ComWin.OnClick([this](int box) { Chosen(box); });
  form_.mnuCharOn.OnClick([this] { SwitchInserter(true); });
  form_.mnuCharOff.OnClick([this] { SwitchInserter(false); });
}

void WindowLooks::Chosen(int box) {
  if (commands_.Live()) SendChoice(box);
  if (box == FrmStart::kFontSize && form_.Visible()) SetVerticalSteps(vars_, form_);
  vars_.ConfigSaved = false;
}

void WindowLooks::SendChoice(int index) {
  if (index == FrmStart::kFontSize) return ChangeFontSize();
  const ComboBox& box = form_.ComWin(index);
  const Choice* choice = ChoiceOfBox(box);
  const std::optional<CommandId> command = CommandOfBox(box);
  if (choice && command && UnitHas(*choice, form_.ModelIsQ())) commands_.Send(*command, Sender::kPanel);
}

/// Switches the inserter off meanwhile if it is on, and sends every window again, since its row counts in
/// characters of the new size. At the end the menu shows the inserter on, even if it was off and stays so;
/// operators know it that way.
void WindowLooks::ChangeFontSize() {
  WindowTextChanging_ = form_.mnuCharOn.Checked();
  const auto send = [this] {
    if (WindowTextChanging_) commands_.SendCharInserter(CommandId::kCharOffForSize, Sender::kPanel, true);
    commands_.Send(CommandId::kCharSize, Sender::kPanel);
    SendAllWindows();
    if (WindowTextChanging_) commands_.SendCharInserter(CommandId::kCharOnForSize, Sender::kPanel, true);
    ShowInserter(true);
  };
  Finally(send, [this] { commands_.EndOffForSize(); });
}

/// The second round ends all highlights.
void WindowLooks::SendAllWindows() {
  for (int row = 0; row < static_cast<int>(vars_.CharWindows.size()); ++row) {
    if (commands_.HasWindow(row) && form_.tVert(row).Visible()) commands_.SendWindowAll(row);
  }
  for (int row = 0; row < static_cast<int>(vars_.CharWindows.size()); ++row) {
    commands_.SendWindowInteractive(row, kHighlightOff);
  }
}

/// The tick is part of the configuration, so the choice counts even if no port can be opened, which Open has
/// then reported.
void WindowLooks::SwitchInserter(bool on) {
  if (!platform_.ComP1.PortOpen()) form_.bOpen.Press();
  if (platform_.ComP1.PortOpen()) {
    commands_.SendCharInserter(on ? CommandId::kCharOn : CommandId::kCharOff, Sender::kPanel, on);
  } else {
    ShowInserter(on);
  }
  vars_.ConfigSaved = false;
}

void WindowLooks::ShowInserter(bool on) {
  form_.mnuCharOff.SetChecked(!on);
  form_.mnuCharOn.SetChecked(on);
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/slate_and_message.h"

#include "core/frm_start.h"
#include "core/variables.h"
#include "link/command_table.h"
#include "link/setting_commands.h"

namespace marlinset {

SlateAndMessage::SlateAndMessage(Variables& variables, FrmStart& form, SettingCommands& commands)
    : vars_(variables), form_(form), commands_(commands) {
  form_.chPrev.OnClick([this] { PreviewClicked(); });
  form_.UDDur.OnChange([this] { DurationChanged(); });
  form_.tWinMess.OnChange([this] { MessageChanged(); });
}

void SlateAndMessage::PreviewClicked() {
  commands_.SendSlate();
  vars_.ConfigSaved = false;
}

void SlateAndMessage::DurationChanged() {
  if (commands_.Live()) commands_.Send(CommandId::kSlateDuration, Sender::kPanel);
  vars_.ConfigSaved = false;
}

void SlateAndMessage::MessageChanged() {
  LimitToMessage();
  if (commands_.Live()) commands_.Send(CommandId::kText, Sender::kPanel);
  vars_.ConfigSaved = false;
}

/// The longer the message, the less far to the right its window can go.
void SlateAndMessage::LimitToMessage() {
  if (!form_.Visible() || !form_.udHor.Has(FrmStart::kTextWindowRow)) return;
  SpinControl& horizontal = form_.udHor(FrmStart::kTextWindowRow);
  horizontal.SetProvisional(false);
  horizontal.SetMax(MaxLeftOf(form_.tWinMess.Text()));
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/identification.h"

#include "base/text.h"
#include "controls/dialogs.h"
#include "core/frm_start.h"
#include "link/command_table.h"
#include "link/communications.h"
#include "platform/event_pump.h"
#include "platform/ms_comm.h"
#include "platform/platform.h"

namespace marlinset {
namespace {

/// The limit for acknowledgements once a unit has been asked for its identification.
constexpr int kAckMs = 100;

}  // namespace

Identification::Identification(Platform& platform, Variables& variables, FrmStart& form,
                               Communications& communications)
    : platform_(platform), vars_(variables), form_(form), comms_(communications) {
  form_.bGetID.OnClick([this] { GetId(); });
  form_.bSend.OnClick([this] { SelectMode(); });
  form_.bBroad.OnClick([this] { BroadcastMode(); });
  form_.AboutTimer1.OnTick([this] { form_.AboutTimer1.SetEnabled(false); });
}

/// Returns False if the port can't be opened; Open has then told the operator why.
bool Identification::OpenIfClosed() {
  if (!platform_.ComP1.PortOpen()) form_.bOpen.Press();
  return platform_.ComP1.PortOpen();
}

bool UnitIsIdentified(const FrmStart& form) {
  const std::string& model = form.StatBar(FrmStart::kModelPanel).Text();
  return form.ModelIsQ() || RightOf(model, 4) == "7340";
}

void Identification::GetId() {
  const bool open = OpenIfClosed();
  form_.StatBar(FrmStart::kModelPanel).SetText("Getting ID");
  vars_.PacketFields = FieldsOf(CommandId::kGetID);
  if (open) {
    comms_.SendPacket(vars_.PacketFields);
    comms_.WaitOn(form_.dPause, [this] { return UnitIsIdentified(form_); });
  }
  form_.dPause.SetInterval(kAckMs);
  comms_.ReceivePacket();
  if (UnitIsIdentified(form_) || !platform_.ComP1.PortOpen()) return;
  form_.ShowTraffic(kRed);
  form_.StatBar(FrmStart::kModelPanel).SetText(kGetIdFailedText);
  if (form_.StatBar(FrmStart::kExchangePanel).Text() == kLocalModeText) {
    platform_.dialogs.Tell("Local Mode detected, Interactive mode suspended.");
  } else {
    platform_.dialogs.Tell(
        "Ensure that the PC is properly connected and the proper Com Port is selected from the Options "
        "Menu.");
  }
}

void Identification::SelectMode() {
  if (!OpenIfClosed()) return;
  vars_.PacketFields = FieldsOf(CommandId::kSelect);
  comms_.SendPacket(vars_.PacketFields);
  form_.StatBar(FrmStart::kVideoPanel).SetText("Mode Switched to Select");
}

void Identification::BroadcastMode() {
  if (!OpenIfClosed()) return;
  vars_.PacketFields = FieldsOf(CommandId::kBroadcast);
  comms_.SendPacket(vars_.PacketFields);
}

void Identification::AskFirmwareOnce() {
  vars_.PacketFields = FieldsOf(CommandId::kGetFirmware);
  form_.AboutTimer1.Restart();
  vars_.WaitFullReply = true;
  comms_.SendPacket(vars_.PacketFields);
  while (form_.AboutTimer1.Enabled() && firmwareWanted_ && comms_.LineUp()) {
    comms_.ReceivePacket();
    if (form_.AboutTimer1.Enabled()) platform_.pump.Pump();
  }
  comms_.ReceivePacket();
  comms_.WaitOver.Emit();
}

void Identification::GetFirmware() {
  if (firmwareRunning_) return;
  firmwareRunning_ = true;
  firmwareWanted_ = true;
  vars_.UnitIdText.clear();
  do {
    AskFirmwareOnce();
  } while (vars_.UnitIdText.empty() && firmwareWanted_ && comms_.LineUp() && form_.mnuInter.Checked());
  form_.AboutTimer1.SetEnabled(false);
  vars_.WaitFullReply = false;
  firmwareRunning_ = false;
}

}  // namespace marlinset

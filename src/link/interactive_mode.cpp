// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/interactive_mode.h"

#include <algorithm>
#include <array>
#include <string>

#include "controls/dialogs.h"
#include "core/frm_start.h"
#include "core/question_facts.h"
#include "link/command_table.h"
#include "link/communications.h"
#include "link/held_settings.h"
#include "link/replies.h"
#include "link/setting_commands.h"
#include "link/whole_send.h"
#include "platform/event_pump.h"
#include "platform/ms_comm.h"
#include "platform/platform.h"
#include "platform/settings_keys.h"

namespace marlinset {
namespace {

constexpr auto kModelNames = std::to_array<std::string_view>({"SD7340", "HD7340", "HDSD7340", "HD7340Q"});
/// What panel 1 may show after the last exchange while the link is healthy. A Nak counts as healthy: the unit
/// is alive, and whoever sent the command has reported it.
constexpr auto kHealthy = std::to_array<std::string_view>({"Firmware", "", kNakText, kAckText});
constexpr int kActivityFrames = 5;

template <class Texts>
bool Contains(const Texts& texts, std::string_view text) {
  return std::find(texts.begin(), texts.end(), text) != texts.end();
}

}  // namespace

void LeaveInteractiveMode(FrmStart& form) {
  if (form.mnuOff.Checked()) return;
  form.mnuHD7340.SetEnabled(true);
  form.mnuHD7340Q.SetEnabled(true);
  form.SetInteractive(false, false);
  form.chPrev.SetValue(0);
  form.StatBar(FrmStart::kStandardPanel).SetText("Offline");
  form.ShowVideoPicture(FrmStart::kVideoUnknown);
  form.ShowTraffic(kRed);
}

void SuspendInteractiveMode(FrmStart& form) {
  form.SetInteractive(false, false);
  form.StatBar(FrmStart::kVideoPanel).SetText("Interactive mode disabled ");
  form.ShowVideoPicture(FrmStart::kVideoUnknown);
  form.HideImages();
}

void ResumeInteractiveMode(FrmStart& form, const MSComm& line) {
  form.mnuOff.SetChecked(false);
  if (!line.PortOpen()) {
    LeaveInteractiveMode(form);
    return;
  }
  form.StatBar(FrmStart::kVideoPanel).SetText("Interactive mode enabled ");
  form.SetInteractive(true, true);
}

void Suspended(FrmStart& form, const MSComm& line, const std::function<void()>& action) {
  if (!form.mnuInter.Checked()) {
    action();
    return;
  }
  SuspendInteractiveMode(form);
  action();
  ResumeInteractiveMode(form, line);
}

InteractiveMode::InteractiveMode(Platform& platform, Variables& variables, FrmStart& form,
                                 Communications& communications, SettingCommands& commands,
                                 HeldSettings& held, const WholeSend& wholeSend)
    : platform_(platform),
      vars_(variables),
      form_(form),
      comms_(communications),
      commands_(commands),
      held_(held),
      wholeSend_(wholeSend) {
  form_.mnuInter.OnClick([this] { setChecks("inter"); });
  form_.mnuOff.OnClick([this] { mnuOff_Click(); });
  form_.mnuAuto.OnClick([this] { AskSelection(true); });
  form_.mnuMan.OnClick([this] { AskSelection(false); });
  form_.InterTime.OnTick([this] { InterTime_Timer(); });
}

void InteractiveMode::setChecks(std::string_view mode) {
  if (mode == "off") LeaveInteractiveMode(form_);
  if (mode != "inter") return;
  if (!form_.mnuInter.Checked()) Enter();
  platform_.settings.SaveSetting(kInteractiveSetting.key, kInteractiveOn);
}

void InteractiveMode::Enter() {
  form_.mnuHD7340.SetEnabled(false);
  form_.mnuHD7340Q.SetEnabled(false);
  vars_.ActivityFrame = 0;
  form_.bGetID.Press();  // opens the port
  comms_.ReceivePacket();
  const bool identified =
      platform_.ComP1.PortOpen() && Contains(kModelNames, form_.StatBar(FrmStart::kModelPanel).Text());
  // A send in progress starts the poll when it ends, as every send does in this mode.
  form_.SetInteractive(identified, identified && !wholeSend_.Running());
  if (!identified) {
    form_.mnuHD7340.SetEnabled(true);
    form_.mnuHD7340Q.SetEnabled(true);
    form_.HideImages();
    return;
  }
  form_.bSConfig.Press();
  if (form_.mnuInter.Checked()) form_.Image1(0).SetVisible(true);
}

void InteractiveMode::mnuOff_Click() {
  setChecks("off");
  platform_.settings.SaveSetting(kInteractiveSetting.key, kInteractiveOff);
}

/// The mode's heartbeat. Skips the tick while a send waits or a question or dialog of the tool is open, so
/// that questions don't pile up.
void InteractiveMode::InterTime_Timer() {
  if (!vars_.MainFormActive || form_.dPause.Enabled() || platform_.dialogs.Standing()) return;
  vars_.ActivityFrame = (vars_.ActivityFrame + 1) % kActivityFrames;
  form_.HideImages();
  const std::string& exchange = form_.StatBar(FrmStart::kExchangePanel).Text();
  const bool interactive = form_.mnuInter.Checked();
  if (interactive && Contains(kHealthy, exchange)) {
    Poll();
  } else if (interactive && exchange == kLocalModeText) {
    Watch();
  } else if (!interactive || exchange != kSentText) {
    Fail();
  }
}

void InteractiveMode::Poll() {
  // The operator may leave the mode, or the line may go, during a wait.
  const auto on = [this] { return comms_.LineUp() && form_.mnuInter.Checked(); };
  form_.bGetID.Press();
  if (!on()) return;
  comms_.ReplyWait(FieldsOf(CommandId::kVideoSense));
  if (!on()) return;
  const auto agree = [this] { return form_.StatBar(FrmStart::kStandardPanel).Text() == form_.comVS.Text(); };
  if (agree()) {
    form_.Image1(vars_.ActivityFrame).SetVisible(true);
    return;
  }
  if (platform_.dialogs.Ask("Video Standard from box changed. Change 7340-Marlinset Video Standard?",
                            StandardsFact(form_.comVS.Text(), vars_.UnitStandardText),
                            [&] { return on() && !agree(); })) {
    FollowStandard();
  }
}

void InteractiveMode::FollowStandard() {
  const int remembered = form_.comVS.ListIndex();
  for (int i = 0; i < form_.comVS.ListCount(); ++i) {
    form_.comVS.SetListIndex(i);
    if (form_.comVS.Text() == vars_.UnitStandardText) return;
  }
  if (form_.comVS.Text() == vars_.UnitStandardText) return;
  form_.comVS.SetListIndex(remembered);
  platform_.dialogs.Tell(vars_.UnitStandardText + " Input Video Standard not supported. No changes made.");
}

/// Someone operates the unit at its own controls: queries it at each tick until it answers with a frame
/// again.
void InteractiveMode::Watch() {
  form_.InterTime.SetEnabled(false);
  form_.StatBar(FrmStart::kExchangePanel).SetText("");
  comms_.ReplyWait(FieldsOf(CommandId::kVideoSense));
  if (form_.mnuInter.Checked()) form_.InterTime.SetEnabled(true);
}

void InteractiveMode::Fail() {
  held_.Forget();
  form_.InterTime.SetEnabled(false);
  platform_.dialogs.Tell("Comm Error, Interactive mode suspended, click OK to continue.");
  form_.mnuInter.SetChecked(false);
  mnuOff_Click();
}

/// Switches the unit to automatic or manual selection of its video standard. The menu's ticks follow with the
/// unit's next video status.
void InteractiveMode::AskSelection(bool automatic) {
  if (!platform_.ComP1.PortOpen()) form_.bOpen.Press();
  if (!platform_.ComP1.PortOpen()) return;  // Open has told the operator why
  vars_.PacketFields = FieldsOf(CommandId::kVideoSense);
  vars_.UnitVideoStandard = 0;
  comms_.SendPacket(vars_.PacketFields);
  form_.StatBar(FrmStart::kVideoPanel).SetText("Video Sense Sent");
  form_.ShowVideoPicture(FrmStart::kVideoUnknown);
  comms_.LetAnswerIn();
  comms_.ReceivePacket();
  if (platform_.pump.Ending()) return;
  StatusPanel& video = form_.StatBar(FrmStart::kVideoPanel);
  if (vars_.UnitVideoStandard == 0) {
    platform_.dialogs.Tell("Mode Set error");
    form_.ShowTraffic(kRed);
    form_.mnuAuto.SetChecked(false);
    form_.mnuMan.SetChecked(false);
    return;
  }
  const bool isAutomatic = (vars_.UnitVideoStandard & kManualBit) == 0;
  if (isAutomatic == automatic) {
    video.SetText(automatic ? "In Auto Mode" : "In Manual Mode");
    return;
  }
  commands_.Send(automatic ? CommandId::kAutoSelection : CommandId::kManualSelection, Sender::kPanel);
  video.SetText(automatic ? "Changed to Auto Mode" : "Changed to Manual Mode");
}

}  // namespace marlinset

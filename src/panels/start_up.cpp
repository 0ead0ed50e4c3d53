// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/start_up.h"

#include <array>

#include "core/frm_start.h"
#include "core/load_arrays.h"
#include "core/panel_setup.h"
#include "core/variables.h"
#include "link/ports.h"
#include "platform/guard.h"
#include "platform/platform.h"
#include "platform/settings_store.h"

namespace marlinset {
namespace {

/// Colour of the panels' frames: red 192, green 0, blue 192.
constexpr Color kFrameColor = 192 + (192U << 16U);

struct TimeOut {
  MenuItem FrmStart::*menu;
  int milliseconds;  ///< 0: never
};
constexpr std::array<TimeOut, 5> kTimeOuts = {{{&FrmStart::mnu10, 10000},
                                               {&FrmStart::mnu20, 20000},
                                               {&FrmStart::mnu30, 30000},
                                               {&FrmStart::mnu60, 60000},
                                               {&FrmStart::mnuNever, 0}}};
constexpr int kLastView = 5;

bool EndsInSeparator(const std::string& folder) {
  return !folder.empty() && (folder.back() == '/' || folder.back() == '\\');
}

}  // namespace

StartUp::StartUp(Platform& platform, Variables& variables, FrmStart& form, ReferenceDatabase& database,
                 PanelSetup& panels, Ports& ports)
    : platform_(platform),
      vars_(variables),
      form_(form),
      database_(database),
      panels_(panels),
      ports_(ports) {
  form_.mnuCommD.OnClick([this] { setCommD(); });
  for (int i = 0; i < static_cast<int>(kTimeOuts.size()); ++i) {
    (form_.*At(kTimeOuts, i).menu).OnClick([this, i] { SetTimer(i + 1); });
  }
  form_.tClearStat.OnTick([this] { ClearStatus(); });
}

bool StartUp::Form_Load(const std::string& commandText) {
  return platform_.guard.Run([&] {
    form_.mnuContents.SetEnabled(false);
    vars_.ParDisType = "Dec";
    SetPaths(commandText);
    vars_.CurrentFile = "Unsaved";
    vars_.VitcChanging = false;
    database_.LoadOperatingModes();
    database_.checkDatabase();
    DecideOperatingMode(commandText);
    SetControls();
    form_.ShowVideoPicture(1);
    vars_.ConfigSaved = true;
    RestoreHardwareType();
    vars_.MainFormActive = true;
  });
}

void StartUp::SetPaths(const std::string& commandText) {
  const std::string& folder = platform_.programFolder;
  const bool backslashes = folder.find('\\') != std::string::npos && folder.find('/') == std::string::npos;
  vars_.AppPath = EndsInSeparator(folder) ? folder : folder + (backslashes ? '\\' : '/');
  vars_.OperatingMode = commandText;
  vars_.DatabasePath = vars_.AppPath + std::string(kDatabaseFile);
}

void StartUp::DecideOperatingMode(const std::string& commandText) {
  vars_.OperatingMode = kDefaultOperatingMode;
  std::string note = commandText.empty() ? "" : "(Default) Command Argument Ignored";
  for (int i = 0; !commandText.empty() && i <= UBound(vars_.OperatingModes); ++i) {
    const OperatingModeRec& mode = At(vars_.OperatingModes, i);
    if (commandText != mode.Name && commandText != mode.ModeId) continue;
    vars_.OperatingMode = mode.Name;
    note.clear();
    break;
  }
  form_.SetCaption(form_.Caption() + " - " + vars_.OperatingMode + note);
}

void StartUp::SetControls() {
  database_.LoadArrays();
  panels_.InitPanels();
  ports_.SetUpCom();
  SetFromReg();
  for (Frame* frame : {&form_.fParameters, &form_.fCodes, &form_.fOutputs, &form_.fWindows}) {
    frame->SetBackColor(kFrameColor);
  }
}

void StartUp::SetFromReg() {
  form_.mnuCommD.SetChecked(SettingNumber(platform_.settings, "ComD", "0") == 0);
  setCommD();
  const int page = SettingNumber(platform_.settings, "Page", "0");
  form_.oView(page >= 0 && page <= kLastView ? page : 0).SetValue(true);
  SetTimer(SettingNumber(platform_.settings, "Timer", "1"));
}

void StartUp::RestoreHardwareType() {
  vars_.HardwareType = platform_.settings.GetSetting("HardwareType", "HD7340");
  (vars_.HardwareType == "HD7340Q" ? form_.mnuHD7340Q : form_.mnuHD7340).Press();
}

void StartUp::setCommD() {
  const bool show = !form_.mnuCommD.Checked();
  form_.mnuCommD.SetChecked(show);
  Control* const tools[] = {&form_.tInput, &form_.bGetID, &form_.bSend, &form_.bBroad};
  for (Control* tool : tools) {
    tool->SetVisible(show);
    if (tool != &form_.tInput) tool->SetEnabled(show);
  }
}

void StartUp::SetTimer(int choice) {
  const int last = static_cast<int>(kTimeOuts.size());
  const TimeOut& timeOut = At(kTimeOuts, choice >= 1 && choice <= last ? choice - 1 : 0);
  for (const TimeOut& other : kTimeOuts) (form_.*other.menu).SetChecked(other.menu == timeOut.menu);
  if (timeOut.milliseconds > 0) form_.tClearStat.SetInterval(timeOut.milliseconds);
  form_.tClearStat.SetEnabled(timeOut.milliseconds > 0);
}

void StartUp::ClearStatus() {
  if (form_.mnuInter.Checked() || (busy_ && busy_())) return;
  for (const int panel : form_.StatBar.Indices()) form_.StatBar(panel).SetText("");
  form_.ShowVideoPicture(2);
}

}  // namespace marlinset

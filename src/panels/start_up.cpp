// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/start_up.h"

#include <algorithm>

#include "controls/guard.h"
#include "core/frm_start.h"
#include "core/load_arrays.h"
#include "core/panel_setup.h"
#include "core/variables.h"
#include "link/ports.h"
#include "panels/ends_of_run.h"
#include "panels/recovery.h"
#include "panels/unsaved_changes.h"
#include "panels/window_settings.h"
#include "platform/platform.h"
#include "platform/settings_keys.h"

namespace marlinset {
namespace {

/// Colour of the panels' frames: red 192, green 0, blue 192.
constexpr Color kFrameColor = 192 + (192U << 16U);

bool EndsInSeparator(const std::string& folder) {
  return !folder.empty() && (folder.back() == '/' || folder.back() == '\\');
}

}  // namespace

const OperatingModeRec* FindOperatingMode(const Variables& variables, std::string_view text) {
  const auto& modes = variables.OperatingModes;
  const auto found = std::find_if(modes.begin(), modes.end(), [text](const OperatingModeRec& mode) {
    return text == mode.Name || text == mode.ModeId;
  });
  return found == modes.end() ? nullptr : &*found;
}

StartUp::StartUp(Platform& platform, Variables& variables, FrmStart& form, const Parts& parts)
    : platform_(platform), vars_(variables), form_(form), parts_(parts) {}

bool StartUp::Form_Load(const std::string& commandText, bool resume) {
  return platform_.guard.Run([&] {
    form_.mnuContents.SetEnabled(false);
    vars_.ParDisType = "Dec";
    SetPaths(commandText);
    vars_.CurrentFile = "Unsaved";
    vars_.VitcChanging = false;
    parts_.database.Load(&Variables::OperatingModes);
    parts_.database.checkDatabase();
    DecideOperatingMode(commandText);
    SetControls();
    form_.ShowVideoPicture(FrmStart::kNoVideo);
    vars_.ConfigSaved = !resume || parts_.endsOfRun.OpenDefaultConfiguration(commandText);
    RestoreHardwareType();
    parts_.changes.CountAsStored();
    parts_.recovery.Offer();
    if (resume) parts_.endsOfRun.OfferInteractiveMode();
    parts_.recovery.Begin();
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
  std::string note;
  if (!commandText.empty()) {
    if (const OperatingModeRec* mode = FindOperatingMode(vars_, commandText)) {
      vars_.OperatingMode = mode->Name;
    } else {
      note = "(Default) Command Argument Ignored";
    }
  }
  form_.SetCaption(form_.Caption() + " - " + vars_.OperatingMode + note);
}

void StartUp::SetControls() {
  parts_.database.LoadArrays();
  parts_.panels.InitPanels();
  parts_.ports.SetUpCom();
  parts_.settings.SetFromReg();
  for (Frame* frame : {&form_.fParameters, &form_.fCodes, &form_.fOutputs, &form_.fWindows}) {
    frame->SetBackColor(kFrameColor);
  }
}

void StartUp::RestoreHardwareType() {
  vars_.HardwareType = SettingText(platform_.settings, kModelSetting);
  (vars_.HardwareType == kModelQ ? form_.mnuHD7340Q : form_.mnuHD7340).Press();
}

}  // namespace marlinset

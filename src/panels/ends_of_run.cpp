// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/ends_of_run.h"

#include "base/finally.h"
#include "controls/dialogs.h"
#include "core/frm_start.h"
#include "core/question_facts.h"
#include "core/variables.h"
#include "files/configuration_file.h"
#include "link/interactive_mode.h"
#include "link/ports.h"
#include "link/setting_commands.h"
#include "panels/file_commands.h"
#include "panels/recovery.h"
#include "panels/window_settings.h"
#include "platform/event_pump.h"
#include "platform/file_dialog.h"
#include "platform/file_system.h"
#include "platform/ms_comm.h"
#include "platform/platform.h"
#include "platform/settings_keys.h"

namespace marlinset {
namespace {

constexpr std::string_view kShippedConfiguration = "System Default Video.qcf";

/// The configuration that a setting makes the tool start with.
std::string StartsWith(const std::string& setting, const Variables& variables) {
  return setting == kStartFileSetting.byDefault ? variables.AppPath + std::string(kShippedConfiguration)
                                                : setting;
}

}  // namespace

EndsOfRun::EndsOfRun(Platform& platform, Variables& variables, FrmStart& form, const Parts& parts)
    : platform_(platform), vars_(variables), form_(form), parts_(parts) {
  form_.Closing.Connect([this] { parts_.commands.EndWaits(); });
  form_.mnuExit.OnClick([this] { CloseRequest(); });
}

bool EndsOfRun::OpenDefaultConfiguration(const std::string& commandText) {
  const std::string name = StartsWith(SettingText(platform_.settings, kStartFileSetting), vars_);
  if (!commandText.empty()) return true;
  if (platform_.files.FileExists(name)) {
    platform_.fileDialog.FileName = name;
    vars_.CurrentFile = name;
    parts_.file.ReadConfigFile();
    parts_.file.UpdateFileTitle();
    form_.StatBar(FrmStart::kModelPanel).SetText("File " + vars_.CurrentFile + " Loaded ");
    return true;
  }
  if (platform_.dialogs.Ask("Default file " + name +
                            " was not found.\r\nClick 'Yes' to browse for a file to load, or click 'No' to "
                            "load the default settings from the database?")) {
    parts_.file.LoadConfig();
  }
  return false;
}

void EndsOfRun::OfferInteractiveMode() {
  if (SettingText(platform_.settings, kInteractiveSetting) != kInteractiveOn) return;
  const int port = vars_.ComPortNumber;
  const bool plugged = platform_.ComP1.DeviceIsThere(port);
  if (platform_.dialogs.Ask("Go Interactive? ",
                            Facts({OnAirFact("Yes"), WorkFact("Setup", platform_, vars_)}),
                            [&] { return !plugged || platform_.ComP1.DeviceIsThere(port); })) {
    parts_.interactiveMode.setChecks("inter");
  }
}

void EndsOfRun::CloseRequest() {
  if (closing_) return;
  closing_ = true;
  const auto ask = [this] {
    parts_.interactiveMode.setChecks("off");
    parts_.ports.ClosePort();
    parts_.settings.PutToReg();
    AskToSave();
    AskForNextStart();
    for (Frame* band : {&form_.fComBut, &form_.fVITC, &form_.fControl, &form_.fView}) band->SetVisible(false);
    platform_.pump.HandleDue();
  };
  Finally(ask, [this] {
    closing_ = false;
    // A click queued behind the questions may have opened it again.
    if (platform_.ComP1.PortOpen()) parts_.ports.ClosePort();
    parts_.recovery.End();
    form_.SetVisible(false);
    platform_.pump.End();
  });
}

void EndsOfRun::AskToSave() {
  if (vars_.ConfigSaved) return;
  if (platform_.dialogs.Ask("Save Changes before Exit?", WorkFact("Not saved", platform_, vars_))) {
    parts_.fileCommands.mnuSave_Click();
  } else {
    parts_.recovery.Discard();
  }
}

void EndsOfRun::AskForNextStart() {
  const std::string& name = platform_.fileDialog.FileName;
  const std::string wanted = SettingText(platform_.settings, kStartFileSetting);
  if (name.empty() || wanted.empty() || name == wanted) return;
  const std::string facts =
      Facts({FileFact("Next start", name), FileFact("So far", StartsWith(wanted, vars_))});
  if (platform_.dialogs.Ask("Restart next time with this configuration?", facts)) {
    platform_.settings.SaveSetting(kStartFileSetting.key, name);
  }
}

}  // namespace marlinset

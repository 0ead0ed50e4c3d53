// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/file_commands.h"

#include <string>

#include "controls/dialogs.h"
#include "core/frm_start.h"
#include "core/panel_setup.h"
#include "core/question_facts.h"
#include "core/variables.h"
#include "files/configuration_file.h"
#include "link/interactive_mode.h"
#include "panels/recovery.h"
#include "panels/unsaved_changes.h"
#include "platform/file_dialog.h"
#include "platform/platform.h"
#include "platform/settings_keys.h"

namespace marlinset {

FileCommands::FileCommands(Platform& platform, Variables& variables, FrmStart& form, PanelSetup& panels,
                           ConfigurationFile& file, UnsavedChanges& changes, Recovery& recovery)
    : platform_(platform),
      vars_(variables),
      form_(form),
      panels_(panels),
      file_(file),
      changes_(changes),
      recovery_(recovery) {
  form_.mnuNew.OnClick([this] { mnuNew_Click(); });
  form_.mnuOpen.OnClick([this] { mnuOpen_Click(); });
  form_.mnuSav.OnClick([this] { mnuSav_Click(); });
  form_.mnuSave.OnClick([this] { mnuSave_Click(); });
}

void FileCommands::mnuNew_Click() {
  AskToSave();
  Replace([this] {
    panels_.SetDefaults();
    changes_.CountAsStored();
  });
  vars_.ConfigSaved = true;
  platform_.fileDialog.FileName =
      LastFolder(platform_.settings, vars_.AppPath) + "New" + std::string(kConfigurationExtension);
  vars_.CurrentFile = platform_.fileDialog.FileName;
  file_.UpdateFileTitle();
}

void FileCommands::mnuOpen_Click() {
  AskToSave();
  Replace([this] { file_.LoadConfig(); });
  vars_.ConfigSaved = true;
}

void FileCommands::OpenNamed(const std::string& name) {
  AskToSave(name);
  Replace([&] { file_.LoadNamed(name); });
  vars_.ConfigSaved = true;
}

void FileCommands::mnuSav_Click() {
  if (IsSystemDefaultName(vars_.CurrentFile)) {
    form_.mnuSave.Press();
    return;
  }
  Save("Save");
}

void FileCommands::mnuSave_Click() {
  Save("SaveAs");
}

/// `next` is the file to be opened, empty if not chosen yet.
void FileCommands::AskToSave(const std::string& next) {
  if (vars_.ConfigSaved) return;
  const std::string facts = Facts({WorkFact("Not saved", platform_, vars_), FileFact("To be opened", next),
                                   form_.mnuInter.Checked() ? OnAirFact("either answer") : ""});
  if (platform_.dialogs.Ask("Save changes before opening a new configuration?", facts)) Save("SaveAs");
}

/// Replaces the configuration. In interactive mode sends it to the unit at once.
void FileCommands::Replace(const std::function<void()>& action) {
  recovery_.BeforeReplacing();
  const bool interactive = form_.mnuInter.Checked();
  Suspended(form_, platform_.ComP1, [&] {
    action();
    if (interactive) form_.bSConfig.Press();
  });
}

void FileCommands::Save(std::string_view flow) {
  SaveEnd end = SaveEnd::kFailed;
  Suspended(form_, platform_.ComP1, [&] { end = file_.SaveConfig(flow); });
  if (end != SaveEnd::kDeclined) vars_.ConfigSaved = true;
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/about.h"

#include "base/program_title.h"
#include "base/text.h"
#include "controls/dialogs.h"
#include "core/frm_start.h"
#include "core/load_arrays.h"
#include "core/variables.h"
#include "link/identification.h"
#include "platform/desktop.h"
#include "platform/event_pump.h"
#include "platform/file_system.h"
#include "platform/platform.h"

namespace marlinset {
namespace {

constexpr auto kDescription =
    "The Marlinset developers\n"
    "Free software for the desks that run 7340 units";
constexpr auto kUpdates = "Updates: from where you got this program; CHANGELOG.md tells what is new.";
constexpr auto kSupport = "Support: the user guide, then the people who look after your units.";
constexpr auto kNotice =
    "This program comes with no warranty. You may pass it on and change it under the terms of the GNU "
    "General "
    "Public License, version 3 or later.";

}  // namespace

About::About(Platform& platform, Variables& variables, FrmStart& mainForm, ReferenceDatabase& database,
             Identification& identification)
    : form(platform.guard),
      platform_(platform),
      vars_(variables),
      mainForm_(mainForm),
      database_(database),
      identification_(identification) {
  mainForm_.mnuAbout.OnClick([this] { Show(); });
  form.cmdOK.OnClick([this] { Close(); });
  form.cmdSysInfo.OnClick([this] { cmdSysInfo_Click(); });
  // The cross of the window closes it too.
  form.Changed.Connect([this] {
    if (form.Visible()) shown_ = true;
    if (!form.Visible() && shown_) Close();
  });
}

void About::Show() {
  if (open_) return;
  open_ = true;
  try {
    Load();
  } catch (...) {
    Close();
    throw;
  }
  if (!open_ || platform_.pump.Ending()) return Close();
  platform_.dialogs.ShowModal(form);
}

void About::Load() {
  vars_.MainFormActive = false;
  form.SetCaption("About " + std::string(kProgramTitle));
  form.lblVersion.SetCaption("Release " MARLINSET_VERSION);
  form.lblTitle.SetCaption(std::string(kProgramTitle));
  form.lblDatabase.SetCaption("Database Version: " + database_.DatabaseVersion());
  if (!mainForm_.mnuInter.Checked()) {
    form.lblFirmWare.SetCaption("FirmWare Version: ####");
  } else {
    identification_.GetFirmware();
    form.lblFirmWare.SetCaption("FirmWare Version: " + vars_.UnitIdText);
  }
  form.lblDescription.SetCaption(kDescription);
  form.lblDisclaimer.SetCaption(std::string(kUpdates) + "\n" + kSupport + "\n" + kNotice);
}

void About::Close() {
  open_ = shown_ = false;
  identification_.StopFirmwareQuery();
  form.SetVisible(false);
  vars_.MainFormActive = true;
}

void About::cmdSysInfo_Click() {
  const std::string program = SystemInfoPath();
  if (program.empty() || !platform_.desktop.Run(program)) {
    platform_.dialogs.Tell("System Information Is Unavailable At This Time");
  }
}

/// The system's own tool for system information; empty if there is none.
std::string About::SystemInfoPath() const {
  std::string path = GetKeyValue("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", "PATH");
  if (!path.empty()) return path;
  const std::string folder = GetKeyValue("SOFTWARE\\Microsoft\\Shared Tools Location", "MSINFO");
  if (folder.empty()) return {};
  const std::string program = folder + "\\MSINFO32.EXE";
  return platform_.files.FileExists(program) ? program : "";
}

/// A value of the machine's registry as text, a double word as "&h" and its digits; empty if there is none.
std::string About::GetKeyValue(const std::string& key, const std::string& name) const {
  const RegistryValue value = platform_.desktop.Registry(key, name);
  if (const auto* text = std::get_if<std::string>(&value)) return *text;
  if (const auto* number = std::get_if<std::uint32_t>(&value)) return "&h" + HexText(*number);
  return {};
}

}  // namespace marlinset

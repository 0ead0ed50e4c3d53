// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace marlinset {

class ConfigurationFile;
class FrmStart;
class PanelSetup;
class Recovery;
class UnsavedChanges;
struct Platform;
struct Variables;

/// The file commands of the menu: New, Open, Save and Save As. After each, the configuration counts as saved,
/// whatever the outcome, unless the operator declined to overwrite a file that others have changed. In
/// interactive mode polling pauses meanwhile, and a new configuration goes to the unit at once.
class FileCommands {
 public:
  FileCommands(Platform& platform, Variables& variables, FrmStart& form, PanelSetup& panels,
               ConfigurationFile& file, UnsavedChanges& changes, Recovery& recovery);

  void mnuNew_Click();
  void mnuOpen_Click();
  void mnuSav_Click();
  void mnuSave_Click();  ///< Save As
  /// Open, with a file named by the desktop instead of the dialog.
  void OpenNamed(const std::string& name);

 private:
  void AskToSave(const std::string& next = {});
  void Replace(const std::function<void()>& action);
  void Save(std::string_view flow);

  Platform& platform_;
  Variables& vars_;
  FrmStart& form_;
  PanelSetup& panels_;
  ConfigurationFile& file_;
  UnsavedChanges& changes_;
  Recovery& recovery_;
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace marlinset {

class EndsOfRun;
class FrmStart;
class PanelSetup;
class Ports;
class Recovery;
class ReferenceDatabase;
class UnsavedChanges;
class WindowSettings;
struct OperatingModeRec;
struct Platform;
struct Variables;

/// The operating mode of the reference database with this name or id; null if there is none.
const OperatingModeRec* FindOperatingMode(const Variables& variables, std::string_view text);

/// Starts the tool: paths, reference database, operating mode, panels, ports, remembered settings, the
/// default file, unsaved work of a run that died, and interactive mode if the operator wants it again.
class StartUp {
 public:
  struct Parts {
    ReferenceDatabase& database;
    PanelSetup& panels;
    Ports& ports;
    WindowSettings& settings;
    EndsOfRun& endsOfRun;
    UnsavedChanges& changes;
    Recovery& recovery;
  };
  StartUp(Platform& platform, Variables& variables, FrmStart& form, const Parts& parts);

  /// Starts the tool in the operating mode whose name or id is `commandText`, the default mode if that is
  /// empty. A failure is shown as number, two blanks and description; it ends the start, which returns False.
  /// An unusable reference database ends the program (throws ProgramEnd). Without `resume` the panels keep
  /// the defaults: no default file, no interactive mode, and no questions except those about the work of a
  /// run that died.
  bool Form_Load(const std::string& commandText, bool resume = true);

 private:
  void SetPaths(const std::string& commandText);
  void DecideOperatingMode(const std::string& commandText);
  void SetControls();
  void RestoreHardwareType();

  Platform& platform_;
  Variables& vars_;
  FrmStart& form_;
  Parts parts_;
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace marlinset {

class EndsOfRun;
class FrmStart;
class PanelSetup;
class Ports;
class Recovery;
class ReferenceDatabase;
class UnsavedChanges;
class WindowSettings;
struct Platform;
struct Variables;

/// How the tool comes up: paths, reference database, operating mode, panels, ports, what the settings
/// remember, the default file, unsaved work of a run that died, and interactive mode if the operator wants it
/// again.
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

  /// Brings the tool up in the operating mode that `commandText` names by name or id; empty: the default
  /// mode. A failure on the way is shown as number, two blanks and description; the start ends there and
  /// false is returned. A reference database that is of no use ends the program (ProgramEnd). `resume` off
  /// leaves the defaults in the panels: no default file, no interactive mode, no questions but those about
  /// the work of a run that died.
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

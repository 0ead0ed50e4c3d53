// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>

namespace marlinset {

class FrmStart;
class PanelSetup;
class Ports;
class ReferenceDatabase;
struct Platform;
struct Variables;

/// How the tool comes up: paths, reference database, operating mode, panels, ports, what the settings
/// remember. Also the two menu commands whose state is restored here: the link test tools and the status
/// bar's time-out.
class StartUp {
 public:
  StartUp(Platform& platform, Variables& variables, FrmStart& form, ReferenceDatabase& database,
          PanelSetup& panels, Ports& ports);

  /// Brings the tool up in the operating mode that `commandText` names by name or id; empty: the default
  /// mode. A failure on the way is shown as number, two blanks and description; the start ends there and
  /// false is returned. A reference database that is of no use ends the program (ProgramEnd).
  bool Form_Load(const std::string& commandText);

  /// While this holds the status bar keeps its texts: a whole send is running.
  void KeepStatusWhile(std::function<bool()> busy) { busy_ = std::move(busy); }

  /// Shows the link test tools (byte log, Get ID, Send, Broad) or hides them.
  void setCommD();
  /// Status bar time-out: 1 to 4 for 10, 20, 30 and 60 seconds, 5 for never; any other number is 1.
  void SetTimer(int choice);

 private:
  void SetPaths(const std::string& commandText);
  void DecideOperatingMode(const std::string& commandText);
  void SetControls();
  void SetFromReg();
  void RestoreHardwareType();
  void ClearStatus();

  Platform& platform_;
  Variables& vars_;
  FrmStart& form_;
  ReferenceDatabase& database_;
  PanelSetup& panels_;
  Ports& ports_;
  std::function<bool()> busy_;
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>

namespace marlinset {

class ConfigurationFile;
class FileCommands;
class FrmStart;
class InteractiveMode;
class Ports;
class Recovery;
class SettingCommands;
class WindowSettings;
struct Platform;
struct Variables;

/// Ties the start and the end of a run to configuration files and interactive mode: the default file, the
/// offer to go interactive again, and the questions before the end. Connects to `mnuExit`.
class EndsOfRun {
 public:
  struct Parts {
    ConfigurationFile& file;
    FileCommands& fileCommands;
    SettingCommands& commands;
    InteractiveMode& interactiveMode;
    Ports& ports;
    WindowSettings& settings;
    Recovery& recovery;
  };
  EndsOfRun(Platform& platform, Variables& variables, FrmStart& form, const Parts& parts);

  /// Opens the file that the operator chose for the next start, or the shipped one if none was chosen; opens
  /// none if the command line names an operating mode. If the file is missing, offers to look for it. Returns
  /// whether the panels then count as saved.
  bool OpenDefaultConfiguration(const std::string& commandText);
  /// Goes interactive if the last run was and the operator agrees.
  void OfferInteractiveMode();

  /// The operator wants to leave: goes off line, closes the port, stores the settings, and asks about unsaved
  /// edits and the default file; then closes the window and ends the program. Ignores a second request during
  /// the questions.
  void CloseRequest();

 private:
  void AskToSave();
  void AskForNextStart();

  Platform& platform_;
  Variables& vars_;
  FrmStart& form_;
  Parts parts_;
  bool closing_ = false;
};

}  // namespace marlinset

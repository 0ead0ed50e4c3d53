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
class WindowSettings;
struct Platform;
struct Variables;

/// What ties the start and the end of a run to configuration files and to interactive mode: the default file,
/// the offer to go interactive again, and the questions before the end. Connects to `mnuExit`.
class EndsOfRun {
 public:
  struct Parts {
    ConfigurationFile& file;
    FileCommands& fileCommands;
    InteractiveMode& interactiveMode;
    Ports& ports;
    WindowSettings& settings;
    Recovery& recovery;
  };
  EndsOfRun(Platform& platform, Variables& variables, FrmStart& form, const Parts& parts);

  /// Opens the file that the operator wanted at the next start, the shipped one if none was named; not when
  /// the command line names an operating mode. A file that is missing is asked for. Returns whether the
  /// panels count as saved then.
  bool OpenDefaultConfiguration(const std::string& commandText);
  /// Goes interactive if the last run was and the operator agrees.
  void OfferInteractiveMode();

  /// The operator wants to leave: off line, port closed, settings kept, unsaved edits and the default file
  /// asked about; then the window goes and the program ends. A second request while one is asked about is
  /// ignored.
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

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

class Communications;
class FrmStart;
struct Platform;
struct Variables;

/// What panel 4 shows after an identification that failed.
constexpr const char* kGetIdFailedText = "Get Id Failed. ";

/// Whether panel 4 names the model of a unit.
bool UnitIsIdentified(const FrmStart& form);

/// The buttons that ask the unit for its identification or change how it reports (`bGetID`, `bSend`,
/// `bBroad`), and the query for its firmware text.
class Identification {
 public:
  Identification(Platform& platform, Variables& variables, FrmStart& form, Communications& communications);

  /// Asks for the firmware text every second until it has arrived in UnitIdText. Gives up, with an empty
  /// text, when interactive mode ends, the port closes, `StopFirmwareQuery` is called or the program ends.
  /// Ignores a second query while one runs.
  void GetFirmware();
  /// Ends the query, for a dialog that wanted the text and has closed.
  void StopFirmwareQuery() { firmwareWanted_ = false; }

 private:
  void GetId();
  void SelectMode();
  void BroadcastMode();
  bool OpenIfClosed();
  void AskFirmwareOnce();

  Platform& platform_;
  Variables& vars_;
  FrmStart& form_;
  Communications& comms_;
  bool firmwareWanted_ = false;
  bool firmwareRunning_ = false;
};

}  // namespace marlinset

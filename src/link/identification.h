// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

class Communications;
class FrmStart;
struct Platform;
struct Variables;

/// Panel 4 tells the model of a unit.
bool UnitIsIdentified(const FrmStart& form);

/// The buttons that ask the unit who it is or change how it reports (`bGetID`, `bSend`, `bBroad`), and the
/// query for its firmware text.
class Identification {
 public:
  Identification(Platform& platform, Variables& variables, FrmStart& form, Communications& communications);

  /// Asks for the firmware text, every second until it has come into UnitIdText. Ends with an empty text when
  /// interactive mode ends, the port closes, `StopFirmwareQuery` is called or the program ends. A second
  /// query while one runs is ignored.
  void GetFirmware();
  /// The dialog that wanted the text was closed.
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

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <span>
#include <string>
#include <vector>

#include "platform/ms_comm.h"

namespace marlinset {

class FrmStart;
class MenuItem;
struct Platform;
struct Variables;

/// Opening, closing and choosing the serial port: the buttons Open and Close and the port menu.
/// Connects to `bOpen`, `bClose`, `mnuCom1` to `mnuCom4`.
class Ports {
 public:
  Ports(Platform& platform, Variables& variables, FrmStart& form);

  /// Whoever names devices on the command line (a path a port, empty for none) means one of those: from the
  /// set-up on, unless the port in use is among them, the one of the lowest number is used for this run.
  void NamePorts(std::span<const std::string> paths);
  /// Finds the ports and ticks the one to use: the remembered one when it is there, otherwise the first.
  void SetUpCom();
  /// The digits of the ports that can be opened ("134"); notes them in ComPortPresent.
  std::string ScanPorts();
  /// Makes ports choosable whose device has come since the set-up. One that has been there all the time and
  /// could not be opened at the set-up stays as it is.
  void LookForDevices();
  /// Chooses a port; refused while the port is open.
  void SetComMenu(int port, bool alreadyChecked);
  /// Leaves interactive mode, closes the port and shows it.
  void ClosePort();

  /// The line reports that its device has gone or does not take bytes any more: off line, and a box.
  void LineLost(int commEvent);
  /// The same for a device that has gone, without the box: whoever had it in use tells.
  void DeviceLost();
  /// "The device behind port 1 (/dev/ttyUSB0) is gone"
  std::string LossText() const;

 private:
  void Open();
  void Close();
  void ShowClosed();
  void UsePort(int port);
  std::string PresentDevice(int port) const;

  Platform& platform_;
  Variables& vars_;
  FrmStart& form_;
  /// Devices that have been there since the set-up, by port.
  std::array<std::string, kHighestPort + 1> present_;
  std::vector<int> named_;  ///< ports whose devices the command line names, in order
};

/// Enables the six buttons that talk to the unit: Open, Send, Close, Get ID, Broad, Send Setup; or disables
/// them.
void EnableLinkButtons(FrmStart& form, bool enabled);

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <span>
#include <string>
#include <vector>

#include "controls/signal.h"
#include "platform/ms_comm.h"

namespace marlinset {

class FrmStart;
class MenuItem;
struct Platform;
struct Variables;

/// Opens, closes and chooses the serial port for the buttons Open and Close and for the port menu. Connects
/// to `bOpen`, `bClose`, `mnuCom1` to `mnuCom4`.
class Ports {
 public:
  Ports(Platform& platform, Variables& variables, FrmStart& form);

  /// Takes the devices named on the command line, one path for each port, empty for none. From the set-up on,
  /// this run uses the lowest of these ports, unless the port in use is one of them already.
  void NamePorts(std::span<const std::string> paths);
  /// Finds the ports and ticks the one to use: the remembered one if it is there, otherwise the first.
  void SetUpCom();
  /// Tries all ports. Returns the digits of those that can be opened ("134") and marks them in
  /// ComPortPresent. An address counts as one of them without a try: a start must not wait for a network, nor
  /// take a unit away from somebody else.
  std::string ScanPorts();
  /// Makes ports selectable whose device has appeared since the set-up. One that was there all along and
  /// could not be opened at the set-up stays as it is.
  void LookForDevices();
  /// Chooses a port; refuses while the port is open.
  void SetComMenu(int port, bool alreadyChecked);
  /// Leaves interactive mode, closes the port and shows that.
  void ClosePort();

  /// The line reports that its device has gone or takes no more bytes: goes off line and shows a box.
  void LineLost(int commEvent);
  /// The same for a device that has gone, without the box: the routine that was using it reports the loss.
  void DeviceLost();
  /// "The device behind port 1 (/dev/ttyUSB0) is gone"
  std::string LossText() const;
  /// What to check when the device has gone: "cable and adapter", or their counterparts of an address.
  std::string Suspects() const;

  /// The port was closed, or its device went away.
  Signal<> Closed;

 private:
  void Open();
  void Close();
  void CloseLine();
  void ShowClosed();
  void UsePort(int port);
  bool Opens(int port);
  bool LeadsOverNetwork(int port) const;
  bool GiveUpOpening();
  std::string PresentDevice(int port) const;

  Platform& platform_;
  Variables& vars_;
  FrmStart& form_;
  /// Devices that have been there since the set-up, by port.
  std::array<std::string, kHighestPort + 1> present_;
  std::vector<int> named_;  ///< ports whose devices the command line names, in order
};

/// Enables or disables the six buttons that talk to the unit: Open, Send, Close, Get ID, Broad, Send Setup.
void EnableLinkButtons(FrmStart& form, bool enabled);

}  // namespace marlinset

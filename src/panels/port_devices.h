// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <optional>
#include <string>

#include "core/frm_ports.h"
#include "link/unit_probe.h"

namespace marlinset {

class FrmStart;
class Ports;
struct Platform;

/// The window that gives each port number its device: one that the search finds, a path or an address. OK
/// keeps what is named in the settings, for this run and all later ones; the command line goes before them.
/// The device of an open port stays as it is. Connects to `mnuPorts`.
class PortDevices {
 public:
  PortDevices(Platform& platform, FrmStart& mainForm, Ports& ports);

  FrmPorts form;

 private:
  void Show();
  void Fill(int port, const std::string& named);
  void SearchAgain();
  void NoteAll();
  void Test(int port);
  void cmdOK_Click();
  void Keep(int port);

  bool Opened(int port) const;
  /// What the operator has named; empty for what the search finds.
  std::string Named(int port) const;
  std::string NoteOf(int port) const;
  std::string NoteOfDevice(int port) const;
  /// Whether the tool's own port is open on a device.
  bool OpenOn(const std::string& device) const;
  std::string TestText(int port, const std::string& device);

  Platform& platform_;
  Ports& ports_;
  UnitProbe probe_;
  std::optional<int> testing_;  ///< the port under test
  struct Tested {
    std::string device;      ///< as it was named
    std::string text;        ///< what came of it
    bool whileOpen = false;  ///< counts only until the tool's own port is closed
  };
  std::map<int, Tested> tested_;  ///< since the last search, by port
};

}  // namespace marlinset

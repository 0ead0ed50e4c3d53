// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/frm_ports.h"

#include <string>

namespace marlinset {

FrmPorts::FrmPorts(Guard& guard) : Form("frmPorts", guard) {
  SetCaption("Port Devices");
  for (const int port : lblPort.Indices()) {
    lblPort(port).SetCaption("Com " + std::to_string(port));
    cmdTest(port).SetCaption("Test");
    cmdTest(port).SetToolTip("Asks the unit behind this device for its model and firmware");
  }
  cmdLook.SetCaption("Search Again");
  cmdStop.SetCaption("Stop Test");
  cmdStop.SetEnabled(false);
  cmdOK.SetCaption("OK");
  cmdCancel.SetCaption("Cancel");
}

}  // namespace marlinset

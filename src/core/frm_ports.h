// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/control_array.h"
#include "controls/control_types.h"
#include "controls/form.h"

namespace marlinset {

/// "Port Devices": the window that gives each port number, 1 to 4, its device.
class FrmPorts : public Form {
 public:
  explicit FrmPorts(Guard& guard);

  ControlArray<Label> lblPort{*this, "lblPort", {1, 2, 3, 4}};         ///< "Com 1"
  ControlArray<ComboBox> comDevice{*this, "comDevice", {1, 2, 3, 4}};  ///< to choose or to type into
  ControlArray<Button> cmdTest{*this, "cmdTest", {1, 2, 3, 4}};
  ControlArray<Label> lblNote{*this, "lblNote", {1, 2, 3, 4}};  ///< what is to be said about the device
  Button cmdLook{*this, "cmdLook"};                             ///< searches for devices again
  Button cmdStop{*this, "cmdStop"};                             ///< ends a test
  Button cmdOK{*this, "cmdOK"};
  Button cmdCancel{*this, "cmdCancel"};
};

}  // namespace marlinset

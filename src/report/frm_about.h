// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/control_types.h"
#include "controls/form.h"

namespace marlinset {

/// The About box: the program, its reference database and the unit's firmware.
class FrmAbout : public Form {
 public:
  explicit FrmAbout(Guard& guard) : Form("frmAbout", guard) {
    cmdOK.SetCaption("OK");
    cmdSysInfo.SetCaption("&System Info...");
  }

  PictureBox Picture1{*this, "Picture1"};  ///< the program's icon
  Label lblTitle{*this, "lblTitle"}, lblVersion{*this, "lblVersion"};
  Label lblDatabase{*this, "lblDatabase"}, lblFirmWare{*this, "lblFirmWare"};
  Label lblDescription{*this, "lblDescription"};  ///< who made the program
  Label lblDisclaimer{*this, "lblDisclaimer"};    ///< where to find updates and help, and the notice
  Button cmdOK{*this, "cmdOK"};
  Button cmdSysInfo{*this, "cmdSysInfo"};  ///< "&" in its caption marks the mnemonic
};

}  // namespace marlinset

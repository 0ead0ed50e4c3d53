// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/control_types.h"
#include "controls/form.h"

namespace marlinset {

/// "Add New Parameter": the window that adds a parameter to the configuration.
class FrmEditParameters : public Form {
 public:
  explicit FrmEditParameters(Guard& guard);

  TextBox txtClass{*this, "txtClass"}, txtParameter{*this, "txtParameter"};
  TextBox txtDescription{*this, "txtDescription"}, txtValue{*this, "txtValue"};
  Button cmdUpdate{*this, "cmdUpdate"};
  Button cmdDone{*this, "cmdDone"};  ///< Close

  /// Empties the four boxes.
  void Clear();
};

/// "Delete Parameter": the window that removes a parameter from the configuration.
class FrmDeleteParameter : public Form {
 public:
  explicit FrmDeleteParameter(Guard& guard);

  Label Label1{*this, "Label1"};
  ListView lstParameter{*this, "lstParameter"};
  Button Command2{*this, "Command2"};  ///< Delete
  Button Command1{*this, "Command1"};  ///< Close
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/parameter_forms.h"

namespace marlinset {

FrmEditParameters::FrmEditParameters(Guard& guard) : Form("frmEditParameters", guard) {
  SetCaption("Add New Parameter");
  txtClass.SetCaption("Class");
  txtParameter.SetCaption("Parameter");
  txtDescription.SetCaption("Description");
  txtValue.SetCaption("Value");
  cmdUpdate.SetCaption("Update");
  cmdDone.SetCaption("Close");
}

void FrmEditParameters::Clear() {
  for (TextBox* box : {&txtClass, &txtParameter, &txtDescription, &txtValue}) box->SetText("");
}

FrmDeleteParameter::FrmDeleteParameter(Guard& guard) : Form("frmDeleteParameter", guard) {
  SetCaption("Delete Parameter");
  Label1.SetCaption("Choose a system parameter to delete:");
  Command2.SetCaption("Delete");
  Command1.SetCaption("Close");
}

}  // namespace marlinset

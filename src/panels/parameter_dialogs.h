// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "core/parameter_forms.h"
#include "core/records.h"

namespace marlinset {

class FrmStart;
class ParameterList;
class ReferenceDatabase;
struct Platform;
struct Variables;

/// The two windows that add a parameter to the configuration and remove one from it. They only read the
/// reference database: which parameters are the system's own, and which are retired.
///
/// A failure, such as a database that can't be opened, reaches the caller and leaves the configuration as it
/// was.
class ParameterDialogs {
 public:
  ParameterDialogs(Platform& platform, Variables& variables, ReferenceDatabase& database, ParameterList& list,
                   FrmStart& form);

  void mnuAddParameter_Click();
  void mnuRemoveParameter_Click();

  FrmEditParameters frmEditParameters;
  FrmDeleteParameter frmDeleteParameter;

 private:
  void cmdUpdate_Click();
  /// Accepts digits and backspace, and the minus sign if `minus`; cancels any other key and informs the
  /// operator.
  void FilterKey(KeyPress& press, bool minus);
  /// What is wrong with class and parameter (as typed, rounded); empty if nothing is.
  std::string Refusal(double classNumber, double parameter) const;
  bool IsParameterPresent(double classNumber, double parameter) const;
  bool IsParameterRetired(double classNumber, double parameter) const;
  void AddParameter(SystemParameterRec parameter);

  void LoadDeletable();
  void Command2_Click();
  /// Throws SubscriptOutOfRange if no parameter would be left.
  void RemoveParameter(int classNumber, int parameter);

  Platform& platform_;
  Variables& vars_;
  ReferenceDatabase& database_;
  ParameterList& list_;
};

}  // namespace marlinset

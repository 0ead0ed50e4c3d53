// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/form_printer.h"

namespace marlinset {

class FrmStart;
struct Platform;
struct Variables;

/// File > Print, Print preview and Export as PDF: the composition as a two-page record. It shows what the
/// panels hold, not what a unit holds.
class PrintCommand {
 public:
  PrintCommand(Platform& platform, const Variables& variables, FrmStart& form);

  /// Lays out the two pages from the panels and prints them as one job. Failures of the device reach the
  /// caller.
  void PrintConfig(PrintRequest request);

 private:
  /// Prints on the default printer. Polling pauses meanwhile; a printer that fails leaves interactive mode
  /// suspended.
  void mnuPrint_Click();
  void Preview();
  void Export();
  /// Runs `action` while polling is paused, and resumes it even if `action` fails.
  template <class Action>
  void Undisturbed(const Action& action);
  /// The port that is ticked in the menu, otherwise the one that would be opened next.
  std::string Port() const;

  Platform& platform_;
  const Variables& vars_;
  FrmStart& form_;
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

namespace marlinset {

class FrmStart;
class ReferenceDatabase;
struct Platform;
struct Variables;

/// What the tool remembers of its window from one run to the next, and the two menu commands whose state
/// belongs to that: the link test tools and the status bar's time-out.
class WindowSettings {
 public:
  WindowSettings(Platform& platform, Variables& variables, FrmStart& form, ReferenceDatabase& database);

  /// Restores position and size of the window, the link test tools, the view and the status bar's time-out.
  void SetFromReg();
  /// Stores them, and also the program folder, the versions of database and program, and the model. Stores
  /// the view only for the views 1 to 4.
  void PutToReg();

  /// Shows or hides the link test tools (byte log, Get ID, Send, Broad).
  void setCommD();
  /// Sets the status bar's time-out: 1 to 4 for 10, 20, 30 and 60 seconds, 5 for never; any other number
  /// counts as 1.
  void SetTimer(int choice);
  /// The status bar keeps its texts while this returns True: during a whole send.
  void KeepStatusWhile(std::function<bool()> busy) { busy_ = std::move(busy); }

 private:
  void RestorePlace();
  void ClearStatus();

  Platform& platform_;
  Variables& vars_;
  FrmStart& form_;
  ReferenceDatabase& database_;
  std::function<bool()> busy_;
};

}  // namespace marlinset

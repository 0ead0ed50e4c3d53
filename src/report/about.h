// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "report/frm_about.h"

namespace marlinset {

class FrmStart;
class Identification;
class ReferenceDatabase;
struct Platform;
struct Variables;

/// Help > About. Polling pauses while the box is open or about to open. In interactive mode it asks the unit
/// for its firmware first; the box opens when the unit has answered or can no longer be asked.
class About {
 public:
  About(Platform& platform, Variables& variables, FrmStart& mainForm, ReferenceDatabase& database,
        Identification& identification);

  /// Whether the box is open or about to open.
  bool Open() const { return open_; }
  /// The box itself, for the part that shows it.
  FrmAbout form;

 private:
  void Show();
  void Load();
  void Close();
  void cmdSysInfo_Click();
  std::string SystemInfoPath() const;
  std::string GetKeyValue(const std::string& key, const std::string& name) const;

  Platform& platform_;
  Variables& vars_;
  FrmStart& mainForm_;
  ReferenceDatabase& database_;
  Identification& identification_;
  bool open_ = false;   ///< from the start of the load to the close
  bool shown_ = false;  ///< the box is on the screen
};

}  // namespace marlinset

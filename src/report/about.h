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

/// Help > About. While the box is open, or on its way, polling rests. In interactive mode the unit is asked
/// for its firmware first, and the box opens when it has answered or there is no more unit to ask.
class About {
 public:
  About(Platform& platform, Variables& variables, FrmStart& mainForm, ReferenceDatabase& database,
        Identification& identification);

  /// The box is open or on its way.
  bool Open() const { return open_; }
  /// The box itself, for whoever shows it.
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
  bool open_ = false;   ///< from the beginning of the load to the close
  bool shown_ = false;  ///< the box is on the screen
};

}  // namespace marlinset

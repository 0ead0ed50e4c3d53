// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/form_printer.h"

namespace marlinset {

class FrmStart;
struct Variables;

/// What a page tells: the panels, and what does not stand on them.
struct PrintSource {
  const FrmStart& form;
  const Variables& vars;
  std::string port;  ///< its number
  std::string dateAndTime;
};

/// The two pages of the record on sheets: the panels with the window table, and all parameters. What the
/// composition does not use takes no room, and the rest moves up. A table whose rows do not fit goes on on
/// further sheets, under its heads again. Paper, preview, document and script all come from here. A table
/// without any record is failure 9.
PrintedForm LayOutPanels(const PrintSource& source);
PrintedForm LayOutParameters(const PrintSource& source);

}  // namespace marlinset

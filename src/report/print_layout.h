// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/form_printer.h"

namespace marlinset {

class FrmStart;
struct Variables;

/// What the pages show: the panels, and what is not on them.
struct PrintSource {
  const FrmStart& form;
  const Variables& vars;
  std::string port;  ///< its number
  std::string dateAndTime;
};

/// The two pages of the record on sheets: the panels with the window table, and all parameters. What the
/// composition does not use takes no room, and the rest moves up. A table with too many rows for a sheet
/// continues on further sheets, with its headings repeated. Paper, preview, document and script all use
/// these. Throws SubscriptOutOfRange for a table without any record.
PrintedForm LayOutPanels(const PrintSource& source);
PrintedForm LayOutParameters(const PrintSource& source);

}  // namespace marlinset

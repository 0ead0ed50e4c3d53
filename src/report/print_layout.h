// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/form_printer.h"

namespace marlinset {

class FrmPrint;

/// Puts what the form shows on sheets: head, panels in two columns, tables. What is hidden takes no room, and
/// the rest moves up. A table whose rows do not fit goes on on further sheets, under its heads again. Paper,
/// preview, document and script all come from here.
PrintedForm LayOut(const FrmPrint& form);

}  // namespace marlinset

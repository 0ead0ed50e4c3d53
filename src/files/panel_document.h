// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/pending_edit.h"
#include "files/qcf_document.h"

namespace marlinset {

class FrmStart;
struct Variables;

/// The working configuration as this tool would save it now. Writing it shows whether its numbers fit into a
/// file.
QcfDocument DocumentOfPanels(const Variables& variables, const FrmStart& form);

/// The same as the operator sees it: with the edits that have not reached their controls. Rules behind them
/// have not run. Ignores an edit of another form, and a number that no file can hold.
QcfDocument DocumentOfPanels(const Variables& variables, const FrmStart& form, const PendingEdits& edits);

}  // namespace marlinset

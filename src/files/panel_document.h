// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "files/qcf_document.h"

namespace marlinset {

class FrmStart;
struct Variables;

/// The working configuration as this tool would save it now. Writing it shows whether its numbers fit into a
/// file.
QcfDocument DocumentOfPanels(const Variables& variables, const FrmStart& form);

}  // namespace marlinset

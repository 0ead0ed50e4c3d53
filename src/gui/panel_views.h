// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "core/frm_start.h"

class QWidget;

namespace marlinset {

class WindowSelection;

// The panels, each a list of bindings and a layout. The widget carries the name of its frame.

QWidget* MakeInputsPanel(FrmStart& form, QWidget* parent);
QWidget* MakeOutputsPanel(FrmStart& form, QWidget* parent);
QWidget* MakeWindowsPanel(FrmStart& form, std::shared_ptr<WindowSelection> selection, QWidget* parent);
QWidget* MakeParametersPanel(FrmStart& form, QWidget* parent);
QWidget* MakeDownConverterPanel(FrmStart& form, QWidget* parent);

/// How many letters of a source's name a routing field shows ("RP188 VITC1 Ancillary Data Reader").
constexpr int kSourceCharacters = 28;

}  // namespace marlinset

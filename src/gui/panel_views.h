// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLatin1String>
#include <memory>

#include "core/frm_start.h"

class QWidget;

namespace marlinset {

class TableCommands;
class WindowSelection;

// The panels, each a list of bindings and a layout. The widget carries the name of its frame.

QWidget* MakeInputsPanel(FrmStart& form, QWidget* parent);
QWidget* MakeOutputsPanel(FrmStart& form, QWidget* parent);
QWidget* MakeWindowsPanel(FrmStart& form, std::shared_ptr<WindowSelection> selection, QWidget* parent);
/// Without `commands` the list has neither references nor a clipboard. May be null.
QWidget* MakeParametersPanel(FrmStart& form, TableCommands* commands, QWidget* parent);
QWidget* MakeDownConverterPanel(FrmStart& form, QWidget* parent);

/// Object name of the field that filters the parameter list.
inline constexpr QLatin1String kParameterFilter("parameterFilter");

/// How many letters of a source's name a routing field shows ("RP188 VITC1 Ancillary Data Reader").
constexpr int kSourceCharacters = 28;

}  // namespace marlinset

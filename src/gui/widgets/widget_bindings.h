// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/control_types.h"
#include "gui/widgets/binding.h"

class QAbstractButton;
class QAction;
class QCheckBox;
class QLabel;
class QLineEdit;

namespace marlinset {

// One binding for each kind of control. Combo boxes and spins have widgets of their own (see fields.h), and
// so have the indicator and the status bar.

/// `mnemonic` is the underlined letter of the caption, 0 for none. A press while an earlier one is still
/// pending counts as the same press.
Binding& Bind(QAbstractButton& widget, Button& control, char mnemonic = 0, Turn turn = Turn::kInOrder);
/// Radio buttons and segments: the model decides which one of a choice is on.
Binding& Bind(QAbstractButton& widget, OptionButton& control, Turn turn = Turn::kInOrder);
/// The option of a band that is on; the first if none is, nothing without options.
QAbstractButton* ChosenOption(const QWidget& band);
Binding& Bind(QCheckBox& widget, CheckBox& control, char mnemonic = 0);
/// A mnemonic leads to the label's buddy.
Binding& Bind(QLabel& widget, Label& control, char mnemonic = 0);
/// Each key passes the control's key handlers before it is typed.
Binding& Bind(QLineEdit& widget, TextBox& control);
/// A group, a band or a panel: its flags and its name.
Binding& Bind(QWidget& widget, Frame& control);
/// Only the flags and the name of a control that the widget shows in its own way: a head, an icon, a sheet.
Binding& BindFlags(QWidget& widget, Control& control);
/// A menu entry; `mnemonic` is the underlined letter of its caption, 0 for none.
void Bind(QAction& action, MenuItem& item, char mnemonic = 0, Turn turn = Turn::kInOrder);
/// A menu entry with its own text, composed anew on each change and each time the menu opens.
void Bind(QAction& action, MenuItem& item, std::function<void(const MenuItem&, QAction&)> showText,
          Turn turn = Turn::kInOrder);

/// Shows `widget` exactly while `control` is visible: a label of a field. For controls that are never
/// destroyed.
void ShowWith(QWidget& widget, Control& control);

}  // namespace marlinset

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

// One binding for each kind of control. Combo boxes and spins have widgets of their own: see fields.h; the
// indicator and the status bar too.

/// `mnemonic` is the letter of the caption that is underlined, 0 for none. A press while an earlier one is
/// still to be carried out is the same press.
Binding& Bind(QAbstractButton& widget, Button& control, char mnemonic = 0, Turn turn = Turn::kInOrder);
/// Radio buttons and segments: which one of a choice is on is the model's word.
Binding& Bind(QAbstractButton& widget, OptionButton& control);
/// The option of a band that is on; the first when none is, nothing without options.
QAbstractButton* ChosenOption(const QWidget& band);
Binding& Bind(QCheckBox& widget, CheckBox& control, char mnemonic = 0);
/// A mnemonic leads to the label's buddy.
Binding& Bind(QLabel& widget, Label& control, char mnemonic = 0);
/// Each key goes past the control's key handlers before it is typed.
Binding& Bind(QLineEdit& widget, TextBox& control);
/// A group, a band or a whole panel: its flags and its name.
Binding& Bind(QWidget& widget, Frame& control);
/// The flags and the name alone of a control that the widget stands for otherwise: a head, an icon, a sheet.
Binding& BindFlags(QWidget& widget, Control& control);
/// A menu entry; `mnemonic` is the letter of its caption that is underlined, 0 for none.
void Bind(QAction& action, MenuItem& item, char mnemonic = 0, Turn turn = Turn::kInOrder);
/// A menu entry with words of its own, put together anew with each change and each time the menu opens.
void Bind(QAction& action, MenuItem& item, std::function<void(const MenuItem&, QAction&)> showText,
          Turn turn = Turn::kInOrder);

/// Shows `widget` exactly while `control` is visible: a label that belongs to a field. For controls that
/// stay.
void ShowWith(QWidget& widget, Control& control);

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QKeyCombination>
#include <functional>
#include <map>
#include <memory>

#include "controls/dialogs.h"

class QMessageBox;

namespace marlinset {

class Button;

/// Ends a send, in the main window and in a box over it.
inline constexpr QKeyCombination kStopKeys = Qt::CTRL | Qt::Key_Period;

/// The tool's boxes on the screen, over the window in use. A box shows the tool's text unchanged, the remedy
/// in the informative line. The default button is the safe one; Esc and the cross answer No or Cancel.
/// During a send, Ctrl+. in a box presses Stop, and closes the box if it only reports something.
class QtDialogs : public Dialogs {
 public:
  BoxAnswer Present(const MessageBox& box) override;
  void PresentForm(Form& form) override;

  /// Creates the window that shows a form, over a parent that may be null.
  using WindowMaker = std::function<std::unique_ptr<QDialog>(QWidget*)>;
  /// Sets how a form is shown; a form without this is not shown.
  void AddWindow(const Form& form, WindowMaker maker);
  /// Sets the button that ends a send, which is enabled while one runs. It must outlive all boxes.
  void SetStop(Button& stop) { stop_ = &stop; }

 private:
  int ShowWithStop(QMessageBox& window, BoxButtons buttons);

  Button* stop_ = nullptr;
  std::map<const Form*, WindowMaker> makers_;
};

}  // namespace marlinset

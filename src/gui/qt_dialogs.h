// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <functional>
#include <map>
#include <memory>

#include "controls/dialogs.h"

namespace marlinset {

/// The tool's boxes on the screen, over the window in use. A box shows the tool's text unchanged, the remedy
/// in the informative line. The default button is the safe one; Esc and the cross answer No or Cancel.
class QtDialogs : public Dialogs {
 public:
  BoxAnswer Present(const MessageBox& box) override;
  void PresentForm(Form& form) override;

  /// Creates the window that shows a form, over a parent that may be null.
  using WindowMaker = std::function<std::unique_ptr<QDialog>(QWidget*)>;
  /// Sets how a form is shown; a form without this is not shown.
  void AddWindow(const Form& form, WindowMaker maker);

 private:
  std::map<const Form*, WindowMaker> makers_;
};

}  // namespace marlinset

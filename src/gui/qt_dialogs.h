// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <functional>
#include <map>
#include <memory>

#include "controls/dialogs.h"

namespace marlinset {

/// The tool's boxes on the screen, over the window in use. The tool's text stands as it is, the remedy in
/// the informative line below. The default button is the safe one, Esc and the cross answer No or Cancel.
class QtDialogs : public Dialogs {
 public:
  BoxAnswer Present(const MessageBox& box) override;
  void PresentForm(Form& form) override;

  /// Makes the window that shows a form, over a parent that may be null.
  using WindowMaker = std::function<std::unique_ptr<QDialog>(QWidget*)>;
  /// Tells how a form is shown; one that nobody has told about is not shown.
  void AddWindow(const Form& form, WindowMaker maker);

 private:
  std::map<const Form*, WindowMaker> makers_;
};

}  // namespace marlinset

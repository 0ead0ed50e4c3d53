// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/file_dialog.h"

class QFileDialog;

namespace marlinset {

/// The tool's file dialog on the screen, over the window in use.
class QtFileDialog : public FileDialog {
 protected:
  std::optional<std::string> AskOpen() override;
  std::optional<std::string> AskSave() override;

 private:
  std::optional<std::string> Ask(QFileDialog& window) const;
};

}  // namespace marlinset

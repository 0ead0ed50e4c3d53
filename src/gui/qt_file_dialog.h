// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/file_dialog.h"

class QFileDialog;
class QString;

namespace marlinset {

/// The tool's file dialog on the screen, over the window in use. If the folder that the tool asks for is
/// not writable, saving begins in the operator's documents. A name typed without an extension gets the
/// filter's; with kNeedsExtension any name that lacks it. It asks about overwriting that file.
class QtFileDialog : public FileDialog {
 public:
  bool ConfirmsOverwriting() const override { return true; }

 protected:
  std::optional<std::string> AskOpen() override;
  std::optional<std::string> AskSave() override;

 private:
  std::optional<std::string> Ask(QFileDialog& window, const QString& folder) const;
};

}  // namespace marlinset

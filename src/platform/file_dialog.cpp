// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/file_dialog.h"

#include <utility>

#include "base/runtime_error.h"

namespace marlinset {

void FileDialog::Take(std::optional<std::string> choice) {
  if (choice) {
    FileName = std::move(*choice);
  } else if (CancelError) {
    throw RuntimeError(kErrDialogCancelled, "Cancel was selected.");
  }
}

}  // namespace marlinset

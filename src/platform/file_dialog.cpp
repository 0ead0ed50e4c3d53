// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/file_dialog.h"

#include <utility>

#include "base/finally.h"
#include "base/runtime_error.h"

namespace marlinset {

void FileDialog::Take(std::optional<std::string> choice) {
  if (choice) {
    FileName = std::move(*choice);
  } else if (CancelError) {
    throw RuntimeError(kErrDialogCancelled, "Cancel was selected.");
  }
}

std::optional<std::string> AskToOpen(FileDialog& dialog, FileDialogState state) {
  const FileDialogState before = dialog.State();
  std::optional<std::string> file;
  const auto ask = [&] {
    dialog.State() = std::move(state);
    try {
      dialog.ShowOpen();
      if (!dialog.FileName.empty()) file = dialog.FileName;
    } catch (const RuntimeError& cancelled) {
      if (cancelled.Number() != kErrDialogCancelled) throw;
    }
  };
  Finally(ask, [&] { dialog.State() = before; });
  return file;
}

}  // namespace marlinset

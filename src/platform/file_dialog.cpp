// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/file_dialog.h"

#include <utility>

#include "base/finally.h"
#include "base/runtime_error.h"

namespace marlinset {
namespace {

std::optional<std::string> AskApart(FileDialog& dialog, FileDialogState state, void (FileDialog::*show)()) {
  const FileDialogState before = dialog.State();
  std::optional<std::string> file;
  const auto ask = [&] {
    dialog.State() = std::move(state);
    try {
      (dialog.*show)();
      if (!dialog.FileName.empty()) file = dialog.FileName;
    } catch (const RuntimeError& cancelled) {
      if (cancelled.Number() != kErrDialogCancelled) throw;
    }
  };
  Finally(ask, [&] { dialog.State() = before; });
  return file;
}

}  // namespace

void FileDialog::Take(std::optional<std::string> choice) {
  if (choice) {
    FileName = std::move(*choice);
  } else if (CancelError) {
    throw RuntimeError(kErrDialogCancelled, "Cancel was selected.");
  }
}

std::optional<std::string> AskToOpen(FileDialog& dialog, FileDialogState state) {
  return AskApart(dialog, std::move(state), &FileDialog::ShowOpen);
}

std::optional<std::string> AskToSave(FileDialog& dialog, FileDialogState state) {
  return AskApart(dialog, std::move(state), &FileDialog::ShowSave);
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/new_file.h"

#include "base/finally.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "controls/dialogs.h"
#include "platform/file_dialog.h"
#include "platform/file_system.h"
#include "platform/platform.h"

namespace marlinset {

namespace {

/// Asks in a dialog of another state; empty if the operator cancels.
std::string AskToSave(FileDialog& dialog, const FileDialogState& state) {
  const FileDialogState before = dialog.State();
  std::string file;
  const auto ask = [&] {
    dialog.State() = state;
    try {
      dialog.ShowSave();
      file = dialog.FileName;
    } catch (const RuntimeError& cancelled) {
      if (cancelled.Number() != kErrDialogCancelled) throw;
    }
  };
  Finally(ask, [&] { dialog.State() = before; });
  return file;
}

}  // namespace

std::string AskForNewFile(const Platform& platform, const NewFileQuestion& question,
                          const std::string& unsaved, const std::string& folder) {
  const std::string& open = platform.fileDialog.FileName;
  const std::string name = FileNameOf(open.empty() ? unsaved : open);
  const std::string own = FolderOfPath(open);
  std::string file = AskToSave(platform.fileDialog, {.CancelError = true,
                                                     .Filter = question.kind + "|*" + question.extension,
                                                     .Flags = kOverwritePrompt | kHideReadOnly,
                                                     .FileName = name.substr(0, name.rfind('.')) +
                                                                 question.suffix + question.extension,
                                                     .InitDir = own.empty() ? folder : own,
                                                     .DialogTitle = question.title});
  if (file.empty() || EqualNoCase(RightOf(file, question.extension.size()), question.extension)) return file;
  file += question.extension;
  // The dialog has asked about the name as typed, not about this one.
  const bool taken = platform.files.FileExists(file);
  return !taken || platform.dialogs.Ask(file + " already exists. Do you want to replace it?") ? file : "";
}

std::string FolderOfPath(const std::string& path) {
  return path.substr(0, path.size() - FileNameOf(path).size());
}

}  // namespace marlinset

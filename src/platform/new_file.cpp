// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/new_file.h"

#include "base/text.h"
#include "controls/dialogs.h"
#include "platform/file_dialog.h"
#include "platform/file_system.h"
#include "platform/platform.h"

namespace marlinset {

std::string AskForNewFile(const Platform& platform, const NewFileQuestion& question,
                          const std::string& unsaved, const std::string& folder) {
  const std::string& open = platform.fileDialog.FileName;
  const std::string name = FileNameOf(open.empty() ? unsaved : open);
  const std::string own = FolderOfPath(open);
  const auto answer =
      AskToSave(platform.fileDialog,
                {.CancelError = true,
                 .Filter = question.kind + "|*" + question.extension,
                 .Flags = kOverwritePrompt | kHideReadOnly | kNeedsExtension,
                 .FileName = name.substr(0, name.rfind('.')) + question.suffix + question.extension,
                 .InitDir = own.empty() ? folder : own,
                 .DialogTitle = question.title});
  if (!answer) return {};
  std::string file = *answer;
  if (EqualNoCase(RightOf(file, question.extension.size()), question.extension)) return file;
  file += question.extension;
  // A dialog that does not complete names has not asked about this one.
  const bool taken = platform.files.FileExists(file);
  return !taken || platform.dialogs.Ask(file + " already exists. Do you want to replace it?") ? file : "";
}

}  // namespace marlinset

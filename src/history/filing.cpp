// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/filing.h"

#include "core/frm_start.h"
#include "core/variables.h"
#include "platform/file_dialog.h"
#include "platform/platform.h"

namespace marlinset {

bool Filing::IsOfSameFile(const Filing& other) const {
  return currentFile == other.currentFile && caption == other.caption && open.path == other.open.path &&
         open.folder == other.open.folder;
}

bool Filing::HasSameStored(const Filing& other) const {
  return stored.composition == other.stored.composition;
}

Filing FilingCabinet::Present() const {
  return {.currentFile = vars_.CurrentFile,
          .caption = form_.Caption(),
          .loadFolder = vars_.LoadFolder,
          .configFolder = vars_.ConfigFolder,
          .chosenFile = platform_.fileDialog.FileName,
          .open = file_.Opened(),
          .stored = changes_.GetStored()};
}

void FilingCabinet::Restore(const Filing& filing) {
  vars_.CurrentFile = filing.currentFile;
  vars_.LoadFolder = filing.loadFolder;
  vars_.ConfigFolder = filing.configFolder;
  platform_.fileDialog.FileName = filing.chosenFile;
  form_.SetCaption(filing.caption);
  const bool unchanged = file_.TakeOpened(filing.open);
  UnsavedChanges::Stored stored = filing.stored;
  stored.nowhere = stored.nowhere || !unchanged;
  changes_.TakeStored(stored);
}

}  // namespace marlinset

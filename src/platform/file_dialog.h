// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

namespace marlinset {

/// How a cancelled file dialog reports itself when CancelError is set.
inline constexpr int kErrDialogCancelled = 32755;

/// Flags of a file dialog.
inline constexpr int kOverwritePrompt = 2;  ///< asks before an existing file is chosen for saving
inline constexpr int kHideReadOnly = 4;

/// What a file dialog is told before it opens.
struct FileDialogState {
  bool CancelError = false;  ///< a cancelled dialog is failure 32755 instead of nothing
  std::string Filter;        ///< description and pattern, "Text files|*.txt"
  int FilterIndex = 1;       ///< pattern in force, from 1
  int Flags = 0;
  std::string FileName;     ///< full path; what is offered before a dialog, what was chosen after it
  std::string InitDir;      ///< folder that the dialog opens in
  std::string DialogTitle;  ///< empty: the dialog's own
};

/// The tool's one file dialog. It also carries the name of the file in work between dialogs: whoever saves or
/// loads a configuration does so under `FileName`. One implementation shows a window, one answers from a
/// queue (script, tests).
class FileDialog : public FileDialogState {
 public:
  virtual ~FileDialog() = default;
  FileDialog() = default;
  FileDialog(const FileDialog&) = delete;
  FileDialog& operator=(const FileDialog&) = delete;

  /// All of it at once: for whoever borrows the dialog and gives it back as it was.
  FileDialogState& State() { return *this; }

  /// Asks for a file to open; stores the choice in FileName. Cancelled: FileName stays.
  void ShowOpen() { Take(AskOpen()); }
  /// Asks for a file to save to; stores the choice in FileName. Cancelled: FileName stays.
  void ShowSave() { Take(AskSave()); }
  /// With kOverwritePrompt an existing file is chosen for saving only once the operator has confirmed it.
  virtual bool ConfirmsOverwriting() const { return false; }

 protected:
  /// The full path chosen; nothing when the operator cancelled.
  virtual std::optional<std::string> AskOpen() = 0;
  virtual std::optional<std::string> AskSave() = 0;

 private:
  void Take(std::optional<std::string> choice);
};

}  // namespace marlinset

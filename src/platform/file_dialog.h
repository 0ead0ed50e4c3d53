// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

namespace marlinset {

/// How a cancelled file dialog reports itself when CancelError is set.
inline constexpr int kErrDialogCancelled = 32755;

/// Flags of a file dialog.
inline constexpr int kOverwritePrompt = 2;  ///< asks before it accepts an existing file for saving
inline constexpr int kHideReadOnly = 4;
/// Completes a name for saving with the filter's extension even if it has another one, before it asks.
inline constexpr int kNeedsExtension = 8;

/// What a caller sets before it opens a file dialog.
struct FileDialogState {
  bool CancelError = false;  ///< a cancelled dialog throws kErrDialogCancelled
  std::string Filter;        ///< description and pattern, "Text files|*.txt"
  int FilterIndex = 1;       ///< pattern in force, from 1
  int Flags = 0;
  std::string FileName;     ///< full path; the offer before a dialog, the choice after it
  std::string InitDir;      ///< folder that the dialog opens in
  std::string DialogTitle;  ///< empty: the dialog's own
};

/// The tool's one file dialog. Between dialogs it also carries the name of the current file: a configuration
/// is saved and loaded under `FileName`. One implementation shows a window, another answers from a queue
/// (script, tests).
class FileDialog : public FileDialogState {
 public:
  virtual ~FileDialog() = default;
  FileDialog() = default;
  FileDialog(const FileDialog&) = delete;
  FileDialog& operator=(const FileDialog&) = delete;

  /// All of its state, for callers that borrow the dialog and restore it.
  FileDialogState& State() { return *this; }

  /// Asks for a file to open and stores the choice in FileName; if cancelled, FileName stays.
  void ShowOpen() { Take(AskOpen()); }
  /// Asks for a file to save to and stores the choice in FileName; if cancelled, FileName stays.
  void ShowSave() { Take(AskSave()); }
  /// Whether kOverwritePrompt makes the operator confirm an existing file before it is chosen for saving.
  virtual bool ConfirmsOverwriting() const { return false; }

 protected:
  /// The full path chosen; nothing if the operator cancelled.
  virtual std::optional<std::string> AskOpen() = 0;
  virtual std::optional<std::string> AskSave() = 0;

 private:
  void Take(std::optional<std::string> choice);
};

/// Asks for a file to open, in a dialog of another state; afterwards the dialog is as it was before. Nothing
/// if the operator cancelled.
std::optional<std::string> AskToOpen(FileDialog& dialog, FileDialogState state);
/// The same for a file to save to.
std::optional<std::string> AskToSave(FileDialog& dialog, FileDialogState state);

}  // namespace marlinset

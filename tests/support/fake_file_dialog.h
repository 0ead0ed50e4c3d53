// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "platform/file_dialog.h"

namespace marlinset {

/// A file dialog that a test answers: each dialog is recorded as it came up and takes the next of `choices`.
/// With none left it is cancelled.
class FakeFileDialog : public FileDialog {
 public:
  struct Shown {
    bool save;
    std::string fileName, initDir, filter;
    int flags;
  };
  std::vector<Shown> shown;
  std::deque<std::optional<std::string>> choices;
  bool confirms = true;  ///< as the dialog on the screen does; in a script nobody is asked

  bool ConfirmsOverwriting() const override { return confirms; }

 protected:
  std::optional<std::string> AskOpen() override { return Next(false); }
  std::optional<std::string> AskSave() override { return Next(true); }

 private:
  std::optional<std::string> Next(bool save) {
    shown.push_back({save, FileName, InitDir, Filter, Flags});
    if (choices.empty()) return std::nullopt;
    const std::optional<std::string> choice = choices.front();
    choices.pop_front();
    return choice;
  }
};

}  // namespace marlinset

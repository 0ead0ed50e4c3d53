// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTemporaryDir>
#include <string>

#include "app/computer.h"
#include "app/tool.h"
#include "controls/dialogs.h"

namespace marlinset {

/// The tool of `marlinset-cli` on a real line, with settings of its own, its port open and the unit
/// identified. A message box ends the measurement: std::runtime_error with its text.
class BenchTool {
 public:
  explicit BenchTool(const std::string& device);
  /// Started, without a line.
  BenchTool();

  Tool& operator*() { return tool_; }
  Tool* operator->() { return &tool_; }

 private:
  class Refusal : public Dialogs {
    BoxAnswer Present(const MessageBox& box) override;
    void PresentForm(Form&) override {}
  };
  CommonOptions Options(const std::string& device) const;

  class NoFiles : public FileDialog {
    std::optional<std::string> AskOpen() override { return std::nullopt; }
    std::optional<std::string> AskSave() override { return std::nullopt; }
  };

  QTemporaryDir folder_;
  Refusal dialogs_;
  NoFiles fileDialog_;
  Computer computer_;
  Tool tool_;
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <vector>

#include "files/panel_document.h"
#include "files/qcf_writer.h"
#include "gui/widgets/operator_queue.h"
#include "tests/support/tool_rig.h"

namespace marlinset {

/// A tool in interactive mode with a unit that takes its time to answer.
struct Studio : ToolRig {
  explicit Studio(int ackMs)
      : ToolRig({.model = kModelHd7340Q, .ackTime = std::chrono::milliseconds{ackMs}}) {
    dialogs.onShow = [](const MessageBox& box) {
      return box.buttons == BoxButtons::kYesNo ? BoxAnswer::kYes : BoxAnswer::kOk;
    };
    tool.Start("");
    const auto& list = form.comVS.List();
    form.comVS.OperatorSelect(
        static_cast<int>(std::find(list.begin(), list.end(), "1080i/60") - list.begin()));
    form.mnuInter.OperatorClick();
    EXPECT_TRUE(form.mnuInter.Checked());
  }

  /// The bytes that a file would have with what the operator sees, done or not.
  std::vector<std::uint8_t> AsSeen() {
    return WriteDocument(DocumentOfPanels(vars, form, OperatorQueue::OfProgram().Pending()));
  }
};

/// The one at the top of the list.
inline SpinControl& FirstParameter(FrmStart& form) {
  const std::vector<int> rows = form.lClass.Indices();
  return form.udVal(
      *std::find_if(rows.begin(), rows.end(), [&](int row) { return form.lClass(row).Visible(); }));
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gmock/gmock.h>

#include <QTableView>
#include <string>
#include <vector>

#include "tests/storm/twin.h"
#include "tests/window/live_window.h"
#include "tests/window/studio.h"

namespace marlinset {

/// A window in interactive mode; the parameter is how long its unit takes to answer (ms). At the end each
/// widget shows what its control holds, and the unit holds what a twin with the same file has been sent.
struct LiveWindowTest : testing::TestWithParam<int> {
  LiveWindowTest() {
    desk_.Show(2);
    studio_.line.ClearSent();
  }
  ~LiveWindowTest() override {
    EXPECT_THAT(desk_.Disagreements(), testing::IsEmpty());
    if (form_.mnuInter.Checked()) {
      std::vector<std::string> differences = DifferencesToTwin(studio_);
      // A click on the number of VITC lines does not send it; the next whole send does.
      std::erase_if(differences, [](const std::string& line) { return line.starts_with("cmdVitcSource"); });
      EXPECT_THAT(differences, testing::IsEmpty());
    }
  }

  Studio studio_{GetParam()};
  FrmStart& form_ = studio_.form;
  LiveWindow desk_{studio_};
};

inline QTableView& Parameters(const LiveWindow& desk) {
  return dynamic_cast<QTableView&>(desk.Widget("pParIn"));
}

inline void EditFirstParameter(LiveWindow& desk, const char* digits) {
  QTableView& table = Parameters(desk);
  desk.Click(*table.viewport(), table.visualRect(table.model()->index(0, 2)).center());
  desk.Key(Qt::Key_F2);
  desk.Type(digits);
  desk.Key(Qt::Key_Return);
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include "gui/widgets/application.h"
#include "gui/widgets/readable_style.h"

int main(int argc, char** argv) {
  // Tests run the same with and without a display, and open no window on it.
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const marlinset::Application application(argc, argv);
  QApplication::setStyle(new marlinset::ReadableStyle);
  testing::InitGoogleMock(&argc, argv);
  return RUN_ALL_TESTS();
}

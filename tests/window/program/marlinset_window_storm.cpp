// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/widgets/application.h"
#include "gui/widgets/readable_style.h"
#include "tests/storm/program/storm_program.h"
#include "tests/window/window_storm.h"

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const marlinset::Application application(argc, argv);
  QApplication::setStyle(new marlinset::ReadableStyle);
  return marlinset::RunStorms(argc, argv, marlinset::RunWindowStorm);
}

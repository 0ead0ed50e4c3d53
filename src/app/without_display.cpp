// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/without_display.h"

#include <QCoreApplication>
#include <QString>
#include <cstdio>
#include <cstdlib>

namespace marlinset {
namespace {

void Handle(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  if (type != QtFatalMsg || !QCoreApplication::startingUp()) {
    std::fprintf(stderr, "%s\n", qFormatLogMessage(type, context, text).toLocal8Bit().constData());
    return;
  }
  std::fputs("marlinset: there is no display that the window could be shown on.\n", stderr);
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
    const char* value = std::getenv(name);
    std::fprintf(stderr, "  %s=%s\n", name, value ? value : "");
  }
  std::fputs("marlinset-cli does the same work without one.\n", stderr);
  std::_Exit(EXIT_FAILURE);
}

}  // namespace

void EndInWordsWithoutDisplay() {
  qInstallMessageHandler(Handle);
}

}  // namespace marlinset

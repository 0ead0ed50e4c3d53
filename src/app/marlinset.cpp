// SPDX-License-Identifier: GPL-3.0-or-later
#include <CLI/CLI.hpp>
#include <QApplication>
#include <QTimer>
#include <csignal>
#include <cstdio>
#include <exception>
#include <optional>

#include "app/computer.h"
#include "app/tool.h"
#include "gui/about_window.h"
#include "gui/main_window.h"
#include "gui/parameter_dialogs.h"
#include "gui/qt_dialogs.h"
#include "gui/qt_file_dialog.h"
#include "gui/qt_form_printer.h"
#include "gui/readable_style.h"
#include "gui/splash_window.h"
#include "panels/splash.h"
#include "platform/qt/qt_work_keeper.h"
#include "platform/qt/sheet_painter.h"

namespace marlinset {
namespace {

constexpr int kExitUsage = 2;

int RunWindow(const CommonOptions& options, bool send, const std::string& file) {
  QtDialogs dialogs;
  QtFileDialog fileDialog;
  Computer computer(options, Computer::ClockKind::kReal, dialogs, fileDialog);
  QtFormPrinter printer(computer.Printer(), {.layout = RecordLayout, .paint = PaintForms});
  computer.UsePrinter(printer);
  QtWorkKeeper keeper;
  Platform platform = computer.MakePlatform();
  platform.work = &keeper;
  Tool tool(platform);
  AddParameterWindows(dialogs, tool.parameterDialogs.frmEditParameters,
                      tool.parameterDialogs.frmDeleteParameter);
  dialogs.AddWindow(tool.about.form,
                    [&](QWidget* parent) { return MakeAboutWindow(tool.about.form, parent); });
  const auto openFile = [&tool](const std::string& name) {
    tool.platform.guard.Run([&] { tool.fileCommands.OpenNamed(name); });
  };
  const WindowHooks hooks{.deviceName = [&](int port) { return computer.Line().DeviceName(port); },
                          .lookForDevices = [&] { tool.ports.LookForDevices(); },
                          .openFile = openFile,
                          .recentFiles = &tool.recentFiles.mnuRecent};
  std::optional<MainWindow> window;  // made behind the splash: it takes a while
  FrmSplash splashForm(computer.Pump(), computer.GetGuard());
  Splash splash(
      splashForm,
      [&] {
        window.emplace(tool.form, hooks);
        tool.Load(options.commandText, file.empty());
      },
      [&] {
        tool.Show();
        if (tool.recovery.Restored()) return;  // the operator looks at it first
        if (!file.empty()) openFile(file);
        if (send) QTimer::singleShot(0, &*window, [&tool] { tool.form.bSConfig.OperatorClick(); });
      });
  const SplashWindow splashWindow(splashForm, [&] { splash.Skip(); });
  QObject::connect(qApp, &QGuiApplication::applicationStateChanged, &splashWindow,
                   [&](Qt::ApplicationState state) { tool.SetActive(state == Qt::ApplicationActive); });
  tool.ports.NamePorts(options.ports);
  splash.Load();
  if (send) splash.Skip();
  if (computer.Pump().Ending()) return 0;  // the operator has left already, from a box over the splash
  return QApplication::exec();
}

int Main(int argc, char** argv) {
  CommonOptions options;
  bool send = false;
  std::string file;
  CLI::App app("Configuration tool of the 7340 units", "marlinset");
  app.set_version_flag("--version", "marlinset " MARLINSET_VERSION);
  AddCommonOptions(app, options);
  app.add_flag("--send", send, "Send the setup to the unit once the window is up");
  app.add_option("FILE", file, "Configuration file to open; without it what the last run asked for");
  try {
    app.allow_extras();  // the desktop's own options are still among them
    app.parse(argc, argv);
    const QApplication application(argc, argv);
    QApplication::setStyle(new ReadableStyle);
    QGuiApplication::setDesktopFileName(QStringLiteral("marlinset"));
    app.allow_extras(false);
    file.clear();  // it may have been the value of one of those
    app.parse(argc, argv);
    return RunWindow(options, send, WholePath(file));
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : kExitUsage;
  }
}

}  // namespace
}  // namespace marlinset

int main(int argc, char** argv) {
  std::signal(SIGXFSZ, SIG_IGN);  // a file that may not grow further is a failed save
  try {
    return marlinset::Main(argc, argv);
  } catch (const marlinset::ProgramEnd& end) {
    return end.status;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "marlinset: %s\n", error.what());
  }
  return 1;
}

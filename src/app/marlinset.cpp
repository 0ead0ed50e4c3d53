// SPDX-License-Identifier: GPL-3.0-or-later
#include <CLI/CLI.hpp>
#include <csignal>
#include <cstdio>
#include <exception>
#include <optional>

#include "app/command_line.h"
#include "app/computer.h"
#include "app/tool.h"
#include "app/without_display.h"
#include "base/printable.h"
#include "gui/about_window.h"
#include "gui/guide_window.h"
#include "gui/main_window.h"
#include "gui/parameter_dialogs.h"
#include "gui/port_window.h"
#include "gui/qt_dialogs.h"
#include "gui/qt_file_dialog.h"
#include "gui/qt_form_printer.h"
#include "gui/splash_window.h"
#include "gui/widgets/application.h"
#include "gui/widgets/operator_queue.h"
#include "gui/widgets/readable_style.h"
#include "panels/splash.h"
#include "platform/file_system.h"
#include "platform/posix/streams.h"
#include "platform/qt/outside_ends.h"
#include "platform/qt/qt_work_keeper.h"
#include "platform/qt/sheet_painter.h"

namespace marlinset {
namespace {

constexpr int kExitFailed = 1;
constexpr int kExitUsage = 2;

struct WindowOptions {
  CommonOptions common;
  bool send = false;
  std::string file;  ///< to open, as a full path; empty: what the last run asked for
};

/// One run with the window: the splash, meanwhile the start of the tool, then the operator.
class WindowRun {
 public:
  explicit WindowRun(const WindowOptions& options);
  /// Returns the exit status when the operator has left.
  int Run();

 private:
  Platform MakePlatform();
  /// While the splash shows: creates the window, and the tool in it.
  void Load();
  /// Leaves behind only the unsaved work.
  void Leave();
  /// After the splash: shows the window and does what the command line asks for.
  void Begin();
  void OpenDropped(const std::string& name);
  void ShowGuide();

  const WindowOptions& options_;
  // The tool uses the members before it, the window uses the tool.
  QtDialogs dialogs_;
  QtFileDialog fileDialog_;
  Computer computer_;
  QtFormPrinter printer_;
  QtWorkKeeper keeper_;
  Tool tool_;
  const OutsideEnds ends_{{.keep = [this] { tool_.recovery.KeepNow(); },
                           .leave = [this] { Leave(); },
                           .over = [this] { return computer_.Pump().Ending(); }}};
  std::optional<MainWindow> window_;  // created while the splash shows: it takes a while
  std::optional<GuideWindow> guide_;  // created on first use
};

WindowRun::WindowRun(const WindowOptions& options)
    : options_(options),
      computer_(options.common, Computer::ClockKind::kReal, dialogs_, fileDialog_),
      printer_(computer_.Printer(), {.layout = RecordLayout, .paint = PaintForms}),
      tool_(MakePlatform()) {
  dialogs_.SetStop(tool_.form.bStop);
  AddParameterWindows(dialogs_, tool_.parameterDialogs.frmEditParameters,
                      tool_.parameterDialogs.frmDeleteParameter);
  OperatorQueue& operatorQueue = OperatorQueue::OfProgram();
  tool_.recovery.IncludePending([&operatorQueue] { return operatorQueue.Pending(); },
                                operatorQueue.PendingChanged);
  dialogs_.AddWindow(tool_.portDevices.form,
                     [this](QWidget* parent) { return MakePortWindow(tool_.portDevices.form, parent); });
  dialogs_.AddWindow(tool_.about.form,
                     [this](QWidget* parent) { return MakeAboutWindow(tool_.about.form, parent); });
}

Platform WindowRun::MakePlatform() {
  computer_.UsePrinter(printer_);
  Platform platform = computer_.MakePlatform();
  platform.work = &keeper_;
  return platform;
}

void WindowRun::OpenDropped(const std::string& name) {
  tool_.platform.guard.RunFor(tool_.form.mnuOpen, [&] { tool_.fileCommands.OpenNamed(name); });
}

void WindowRun::ShowGuide() {
  if (!guide_) guide_.emplace(DocumentsFolder());
  guide_->ShowFor(tool_.form);
}

void WindowRun::Load() {
  window_.emplace(tool_.form,
                  WindowHooks{.deviceName = [this](int port) { return computer_.Line().DeviceName(port); },
                              .portOpen = [this] { return tool_.platform.ComP1.PortOpen(); },
                              .lookForDevices = [this] { tool_.ports.LookForDevices(); },
                              .openFile = [this](const std::string& name) { OpenDropped(name); },
                              .showGuide = [this] { ShowGuide(); },
                              .recentFiles = &tool_.recentFiles.mnuRecent,
                              .frameSent = &tool_.communications.FrameSent,
                              .changes = &tool_.unsavedChanges,
                              .remarks = &tool_.remarks,
                              .held = &tool_.held,
                              .wholeSend = &tool_.wholeSend,
                              .picture = &tool_.pictureRules,
                              .compare = &tool_.compareCommand,
                              .tables = &tool_.tables,
                              .traffic = &tool_.trafficRules});
  tool_.Load(options_.common.commandText, options_.file.empty());
}

void WindowRun::Begin() {
  tool_.Show();
  if (tool_.recovery.Restored()) return;  // the operator looks at it first
  if (!options_.file.empty()) {
    tool_.platform.guard.Run([this] { tool_.fileCommands.OpenNamed(options_.file); });
    tool_.history.Begin();
  }
  if (options_.send)
    OperatorQueue::OfProgram().Take(tool_.form.bSConfig, {OperatorAction::Kind::kClick}, Turn::kInOrder);
}

void WindowRun::Leave() {
  tool_.recovery.Leave();
  computer_.Line().SetPortOpen(false);
}

int WindowRun::Run() {
  FrmSplash splashForm(computer_.Pump(), computer_.GetGuard());
  Splash splash(
      splashForm, [this] { Load(); }, [this] { Begin(); });
  const SplashWindow splashWindow(splashForm, [&] { splash.Skip(); });
  QObject::connect(qApp, &QGuiApplication::applicationStateChanged, &splashWindow,
                   [this](Qt::ApplicationState state) { tool_.SetActive(state == Qt::ApplicationActive); });
  tool_.ports.NamePorts(options_.common.ports);
  splash.Load();
  if (options_.send) splash.Skip();
  if (computer_.Pump().Ending()) return 0;  // the operator has left already, from a box over the splash
  return QApplication::exec();
}

/// If started from the desktop, nobody sees standard error, but then no settings file was named either.
int RunWindow(const WindowOptions& options) try {
  return WindowRun(options).Run();
} catch (const RuntimeError& failure) {
  std::fprintf(stderr, "marlinset: %s\n%s\n", failure.what(), PrintableLines(failure.Remedy()).c_str());
  if (options.common.settingsFile.empty())
    QtDialogs().Show({.text = failure.what(), .remedy = failure.Remedy()});
  return kExitFailed;
}

int Main(int argc, char** argv) {
  WindowOptions options;
  CLI::App app("Configuration tool of the 7340 units", "marlinset");
  app.set_version_flag("--version", "marlinset " MARLINSET_VERSION);
  AddCommonOptions(app, options.common);
  app.add_flag("--send", options.send, "Send the setup to the unit once the window is up");
  app.add_option("FILE", options.file, "Configuration file to open; without it what the last run asked for");
  try {
    app.allow_extras();  // the desktop's own options are still among them
    app.parse(argc, argv);
    const Application application(argc, argv);
    QApplication::setStyle(new ReadableStyle);
    QGuiApplication::setDesktopFileName(QStringLiteral("marlinset"));
    app.allow_extras(false);
    options.file.clear();  // it may be the value of one of those
    app.parse(argc, argv);
    options.file = AbsolutePath(options.file);
    return RunWindow(options);
  } catch (const CLI::ParseError& error) {
    return EndOfOptions(app, error, kExitUsage);
  }
}

}  // namespace
}  // namespace marlinset

int main(int argc, char** argv) {
  marlinset::HoldStandardStreams();
  marlinset::EndInWordsWithoutDisplay();
  std::signal(SIGXFSZ, SIG_IGN);  // a file at its size limit is a failed save
  try {
    return marlinset::Main(argc, argv);
  } catch (const marlinset::ProgramEnd& end) {
    return end.status;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "marlinset: %s\n", error.what());
  }
  return 1;
}

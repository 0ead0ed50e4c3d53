// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/computer.h"

#include <CLI/CLI.hpp>
#include <QCoreApplication>
#include <QStandardPaths>
#include <cstdio>
#include <filesystem>

#include "base/printable.h"
#include "platform/device_address.h"
#include "platform/file_system.h"
#include "platform/no_line.h"
#include "platform/posix/settings_file.h"
#include "platform/qt/found_ports.h"
#include "platform/qt/qt_line.h"
#include "platform/qt/qt_pump.h"
#include "platform/virtual_pump.h"

namespace marlinset {
namespace {

/// The folder of the reference database: that of the programs, as in a build tree, or an installation's
/// folder for data. If neither holds it, a message names the first.
std::string FolderOfDatabase() {
  const std::filesystem::path programs = QCoreApplication::applicationDirPath().toStdString();
  const auto data = (programs / MARLINSET_DATA_FOLDER).lexically_normal();
  std::error_code unknown;
  const bool installed = !std::filesystem::exists(programs / kDatabaseFile, unknown) &&
                         std::filesystem::exists(data / kDatabaseFile, unknown);
  return installed ? data.string() : programs.string();
}

/// The user's settings: 7340-Marlinset.ini in the folder for configuration ($XDG_CONFIG_HOME, ~/.config).
std::string UsersSettings() {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
  return folder.toStdString() + "/7340-Marlinset.ini";
}

std::unique_ptr<SettingsStore> OpenSettings(const std::string& file) try {
  auto settings = std::make_unique<SettingsFile>(file.empty() ? UsersSettings() : file);
  // Nobody asked for this write just now, so it raises no box and does not fail the current action.
  settings->onNotWritten = [](const RuntimeError& failure) {
    std::fprintf(stderr, "The settings cannot be kept.\n%s\n", PrintableLines(failure.Remedy()).c_str());
  };
  return settings;
} catch (const RuntimeError& failure) {
  throw RuntimeError(failure.Number(), "The settings cannot be read.",
                     failure.Remedy() + "\nMove it away, or name another file with --settings.");
}

PortMap::Paths OnlyDevice(int port, const std::string& device) {
  PortMap::Paths paths;
  At(paths, port - kLowestPort) = device;
  return paths;
}

/// A line needs its map before it begins.
struct OwnMap {
  PortMap map;
};

/// A line with a map of its own, which knows one device.
class LineApart : OwnMap, public QtLine {
 public:
  LineApart(Guard& guard, EventPump& pump, int port, const std::string& device)
      : OwnMap{PortMap(OnlyDevice(port, device))}, QtLine(guard, map, pump) {}
};

}  // namespace

std::string DocumentsFolder() {
  const std::filesystem::path programs = QCoreApplication::applicationDirPath().toStdString();
  return (programs / MARLINSET_DOCUMENTS_FOLDER).lexically_normal().string();
}

void AddDataOptions(CLI::App& app, CommonOptions& options) {
  app.add_option("--program-folder", options.programFolder,
                 "Folder of shotsys.mdb and the default configuration")
      ->type_name("DIR");
  app.add_option("--command", options.commandText, "Operating mode, by name or id")->type_name("TEXT");
}

void AddCommonOptions(CLI::App& app, CommonOptions& options) {
  AddDataOptions(app, options);
  app.add_option("--settings", options.settingsFile, "Settings store to use")->type_name("FILE");
  for (int port = kLowestPort; port <= kHighestPort; ++port) {
    const std::string number = std::to_string(port);
    app.add_option("--com" + number, At(options.ports, port - kLowestPort),
                   "Device behind port " + number + ": a path, tcp://HOST:PORT or rfc2217://HOST:PORT")
        ->type_name("DEVICE")
        ->check(AddressFault);
  }
}

Computer::Computer(const CommonOptions& options, ClockKind clock, Dialogs& dialogs, FileDialog& fileDialog)
    : clock_(clock),
      dialogs_(dialogs),
      fileDialog_(fileDialog),
      guard_(dialogs),
      programFolder_(options.programFolder) {
  if (programFolder_.empty()) programFolder_ = FolderOfDatabase();
  programFolder_ = AbsolutePath(programFolder_);
  settings_ = OpenSettings(options.settingsFile);
  if (clock_ == ClockKind::kVirtual) {
    portMap_ =
        std::make_unique<PortMap>(options.ports, *settings_, [] { return std::vector<std::string>{}; });
    pump_ = std::make_unique<VirtualPump>();
    line_ = std::make_unique<NoLine>();
    return;
  }
  PortMap::Paths ports = options.ports;
  for (std::string& device : ports) {
    if (!IsAddress(device)) device = AbsolutePath(device);
  }
  portMap_ = std::make_unique<PortMap>(ports, *settings_, FoundPorts);
  pump_ = std::make_unique<QtPump>();
  line_ = std::make_unique<QtLine>(guard_, *portMap_, *pump_);
}

Platform Computer::MakePlatform(MSComm& line) {
  return {.pump = *pump_,
          .ComP1 = line,
          .engine = engine_,
          .dialogs = dialogs_,
          .settings = *settings_,
          .guard = guard_,
          .fileDialog = fileDialog_,
          .files = files_,
          .printer = *printer_,
          .desktop = desktop_,
          .programFolder = programFolder_,
          .portMap = portMap_.get(),
          .makeLine = [this](int port, const std::string& device) { return MakeLine(port, device); }};
}

std::unique_ptr<MSComm> Computer::MakeLine(int port, const std::string& device) {
  std::unique_ptr<MSComm> line = std::make_unique<NoLine>();
  if (clock_ == ClockKind::kReal) line = std::make_unique<LineApart>(guard_, *pump_, port, device);
  line->SetCommPort(port);
  return line;
}

}  // namespace marlinset

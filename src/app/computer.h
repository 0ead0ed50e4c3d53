// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>

#include "controls/dialogs.h"
#include "controls/guard.h"
#include "core/variables.h"
#include "data/file_engine.h"
#include "data/mdb/mdb_engine.h"
#include "data/sqlite/sqlite_engine.h"
#include "platform/event_pump.h"
#include "platform/file_dialog.h"
#include "platform/ms_comm.h"
#include "platform/platform.h"
#include "platform/port_map.h"
#include "platform/posix/local_files.h"
#include "platform/qt/pdf_printer.h"
#include "platform/qt/qt_desktop.h"
#include "platform/settings_store.h"

namespace CLI {
class App;
}

namespace marlinset {

/// The options that all programs of the tool share.
struct CommonOptions {
  std::string programFolder;  ///< empty: the program's folder, or that of its installed data
  std::string settingsFile;   ///< empty: the user's own settings
  std::string commandText;    ///< names an operating mode
  PortMap::Paths ports;       ///< device behind each port number; empty: from the settings or the search
};

/// The folder of the program's documents, with docs/user-guide.md and its neighbours.
std::string DocumentsFolder();

/// Adds --program-folder and --command.
void AddDataOptions(CLI::App& app, CommonOptions& options);
/// Adds the options of AddDataOptions, --settings, and --com1 to --com4.
void AddCommonOptions(CLI::App& app, CommonOptions& options);

/// The real computer, or one whose clock jumps and that has no serial line. Needs Qt's application object.
/// Throws kErrFileAccess if the settings file may not be read, is not a regular file or is too large,
/// kErrDevice if the disk fails, kErrMemory if memory cannot hold it. A missing one counts as empty.
class Computer {
 public:
  enum class ClockKind { kReal, kVirtual };
  Computer(const CommonOptions& options, ClockKind clock, Dialogs& dialogs, FileDialog& fileDialog);

  EventPump& Pump() { return *pump_; }
  Guard& GetGuard() { return guard_; }
  MSComm& Line() { return *line_; }
  /// Writes PDF documents.
  FormPrinter& Printer() { return pdfPrinter_; }
  /// Uses a printer instead of the computer's own, which only writes PDF documents.
  void UsePrinter(FormPrinter& printer) { printer_ = &printer; }
  /// Uses another line instead of the computer's own, if one is given.
  Platform MakePlatform() { return MakePlatform(*line_); }
  Platform MakePlatform(MSComm& line);

 private:
  std::unique_ptr<MSComm> MakeLine(int port, const std::string& device);

  const ClockKind clock_;
  Dialogs& dialogs_;
  FileDialog& fileDialog_;
  LocalFiles files_;
  Guard guard_;
  std::string programFolder_;
  std::unique_ptr<SettingsStore> settings_;
  std::unique_ptr<PortMap> portMap_;
  std::unique_ptr<EventPump> pump_;
  std::unique_ptr<MSComm> line_;
  SqliteEngine sqlite_;
  MdbEngine access_;
  FileEngine engine_{sqlite_, access_};
  PdfPrinter pdfPrinter_;
  FormPrinter* printer_ = &pdfPrinter_;
  QtDesktop desktop_;
};

}  // namespace marlinset

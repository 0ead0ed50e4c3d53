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

/// What every program of the tool can be told on its command line.
struct CommonOptions {
  std::string programFolder;  ///< empty: that of the program, or of its installed data
  std::string settingsFile;   ///< empty: the user's own store
  std::string commandText;    ///< names an operating mode
  PortMap::Paths ports;       ///< device behind each port number, empty: chosen by the settings or found
};

/// A path as the command line has it, counted from the folder in which the program was started: file dialogs
/// take the tool to other folders. A path that has no whole form stays as it is, and whoever opens it tells
/// what is wrong.
std::string WholePath(const std::string& path);

/// Where the documents that come with the program lie, as docs/user-guide.md and beside it.
std::string DocumentsFolder();

/// Adds --program-folder, --settings, --command and --com1 to --com4.
void AddCommonOptions(CLI::App& app, CommonOptions& options);

/// The real computer, or one whose clock jumps and that has no serial line. Needs Qt's application object.
/// Failures of the settings file: 75 when it may not be read, is no regular file or is too large, 57 when the
/// disk fails on the way, 7 when memory does not hold it. One that is not there is an empty one.
class Computer {
 public:
  enum class ClockKind { kReal, kVirtual };
  Computer(const CommonOptions& options, ClockKind clock, Dialogs& dialogs, FileDialog& fileDialog);

  EventPump& Pump() { return *pump_; }
  Guard& GetGuard() { return guard_; }
  MSComm& Line() { return *line_; }
  /// Writes PDF documents.
  FormPrinter& Printer() { return pdfPrinter_; }
  /// A printer in place of the computer's own, which writes PDF documents and nothing else.
  void UsePrinter(FormPrinter& printer) { printer_ = &printer; }
  /// With another line in place of the computer's own, if one is given.
  Platform MakePlatform() { return MakePlatform(*line_); }
  Platform MakePlatform(MSComm& line);

 private:
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

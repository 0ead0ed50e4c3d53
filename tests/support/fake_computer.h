// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gmock/gmock.h>

#include <algorithm>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/runtime_error.h"
#include "controls/guard.h"
#include "data/file_engine.h"
#include "data/mdb/mdb_engine.h"
#include "data/sqlite/sqlite_engine.h"
#include "platform/desktop.h"
#include "platform/file_dialog.h"
#include "platform/form_printer.h"
#include "platform/platform.h"
#include "platform/posix/local_files.h"
#include "tests/support/fake_dialogs.h"
#include "tests/support/memory_settings.h"
#include "tests/support/unit_line.h"

namespace marlinset {

/// A desktop with a stopped clock and an empty registry.
class FakeDesktop : public Desktop {
 public:
  std::string DateAndTime() const override { return "21/11/2026 14:30"; }
  RegistryValue Registry(const std::string& /*key*/, const std::string& /*name*/) const override {
    return {};
  }
  bool Run(const std::string& /*program*/) override { return true; }
};

/// Records every file dialog and gives it the next of `choices`; when none is left, it is cancelled.
class FakeFileDialog : public FileDialog {
 public:
  struct Shown {
    bool save;
    std::string fileName, initDir, filter;
    int flags;
  };
  std::vector<Shown> shown;
  std::deque<std::optional<std::string>> choices;
  bool confirms = true;  ///< as the dialog on the screen does; in a script nobody is asked

  bool ConfirmsOverwriting() const override { return confirms; }

 protected:
  std::optional<std::string> AskOpen() override { return Next(false); }
  std::optional<std::string> AskSave() override { return Next(true); }

 private:
  std::optional<std::string> Next(bool save) {
    shown.push_back({save, FileName, InitDir, Filter, Flags});
    if (choices.empty()) return std::nullopt;
    std::optional<std::string> choice = choices.front();
    choices.pop_front();
    return choice;
  }
};

/// Keeps what is printed. `onPrint` lets a test look at the tool before each form, or fail like a printer.
class FakePrinter : public FormPrinter {
 public:
  struct Job {
    PrintRequest request;
    std::vector<PrintedForm> forms;
    bool finished;
  };
  std::vector<Job> jobs;
  std::function<void()> onPrint;

  std::unique_ptr<PrintJob> Begin(const PrintRequest& request) override {
    jobs.push_back({request, {}, false});
    return std::make_unique<FakeJob>(*this);
  }

 private:
  class FakeJob : public PrintJob {
   public:
    explicit FakeJob(FakePrinter& printer) : printer_(printer) {}
    void PrintForm(const PrintedForm& form) override {
      if (printer_.onPrint) printer_.onPrint();
      printer_.jobs.back().forms.push_back(form);
    }
    void Finish() override { printer_.jobs.back().finished = true; }

   private:
    FakePrinter& printer_;
  };
};

/// The computer's files with faults on demand. Records changes of the folder, which all tests share.
class TestFiles : public FileSystem {
 public:
  std::vector<std::string> folders;  ///< every ChangeDirectory that went well
  bool refuseFolders = false;        ///< ChangeDirectory fails
  bool refuseBackups = false;        ///< a folder that takes no new file
  bool refuseReading = false;        ///< files open but do not give their bytes
  std::optional<std::size_t> room;   ///< bytes that still fit on the disk

  bool FileExists(const std::string& path) const override { return local_.FileExists(path); }
  FileIdentity Identify(const std::string& path) const override { return local_.Identify(path); }
  std::unique_ptr<InputFile> OpenForReading(const std::string& path) override {
    auto file = local_.OpenForReading(path);
    if (refuseReading) return std::make_unique<DeafFile>(file->Length());
    return file;
  }
  std::unique_ptr<OutputFile> OpenForWriting(const std::string& path) override {
    auto file = local_.OpenForWriting(path);
    if (room) return std::make_unique<FullFile>(std::move(file), *this);
    return file;
  }
  void Backup(const std::string& path) override {
    if (refuseBackups) throw RuntimeError(kErrFileAccess, "Path/File access error");
    local_.Backup(path);
  }
  void ChangeDirectory(const std::string& folder) override {
    if (refuseFolders) throw RuntimeError(kErrPathNotFound, "Path not found");
    folders.push_back(folder);
  }

 private:
  class DeafFile : public InputFile {
   public:
    explicit DeafFile(std::size_t length) : length_(length) {}
    std::size_t Length() const override { return length_; }
    std::vector<std::uint8_t> ReadAll() override { throw RuntimeError(kErrDevice, "Device I/O error"); }

   private:
    std::size_t length_;
  };

  class FullFile : public OutputFile {
   public:
    FullFile(std::unique_ptr<OutputFile> file, TestFiles& disk) : file_(std::move(file)), disk_(disk) {}
    void Write(std::span<const std::uint8_t> bytes) override {
      const auto written = bytes.first(std::min(bytes.size(), *disk_.room));
      *disk_.room -= written.size();
      file_->Write(written);
      if (written.size() < bytes.size()) throw RuntimeError(kErrDiskFull, "Disk full");
    }
    void Commit() override { file_->Commit(); }

   private:
    std::unique_ptr<OutputFile> file_;
    TestFiles& disk_;
  };

  LocalFiles local_;
};

/// The virtual clock; calls `onHandle` in every wait.
class TestPump : public VirtualPump {
 public:
  std::function<void()> onHandle;

  void HandleDue() override {
    VirtualPump::HandleDue();
    if (onHandle) onHandle();
  }
};

/// The computer of a tool under test: a virtual unit on the line, both engines for reference databases, and
/// an operator, files and a printer under the test's control. `Line` and `Clock` can be the real ones, too.
template <class Line = UnitLine, class Clock = TestPump>
struct FakeComputer {
  explicit FakeComputer(const UnitSettings& unit = {}, std::string programFolder = {})
      : line(pump, unit), platform{pump,       line,  engine,  dialogs, settings,     guard,
                                   fileDialog, files, printer, desktop, programFolder} {}

  Clock pump;
  Line line;
  SqliteEngine sqlite;
  MdbEngine access;
  FileEngine engine{sqlite, access};
  FakeDialogs dialogs;
  MemorySettings settings;
  Guard guard{dialogs};
  FakeFileDialog fileDialog;
  TestFiles files;
  FakePrinter printer;
  FakeDesktop desktop;
  Platform platform;
};

}  // namespace marlinset

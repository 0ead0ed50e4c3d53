// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "app/tool.h"
#include "controls/guard.h"
#include "data/file_engine.h"
#include "data/mdb/mdb_engine.h"
#include "data/sqlite/sqlite_engine.h"
#include "tests/support/fake_desktop.h"
#include "tests/support/fake_dialogs.h"
#include "tests/support/fake_file_dialog.h"
#include "tests/support/fake_printer.h"
#include "tests/support/memory_settings.h"
#include "tests/support/test_files.h"
#include "tests/support/unit_line.h"

namespace marlinset {

/// The whole tool on the virtual clock with the shipped reference database and a virtual unit on every port.
struct ToolRig {
  using Clock = std::unique_ptr<VirtualPump>;
  explicit ToolRig(const UnitSettings& unit = {}, const std::string& folder = SHIPPED_DATABASE_FOLDER,
                   Clock clockInUse = std::make_unique<VirtualPump>())
      : clock(std::move(clockInUse)),
        line(pump, unit),
        tool({pump, line, engine, dialogs, settings, guard, fileDialog, files, printer, desktop, folder}) {
    line.SetPorts({1, 2, 3, 4});
  }

  const std::string& Panel(int number) const { return tool.form.StatBar(number).Text(); }
  std::vector<std::string> Boxes() const { return dialogs.Texts(); }

  Clock clock;
  VirtualPump& pump = *clock;
  UnitLine line;
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
  Tool tool;
};

}  // namespace marlinset

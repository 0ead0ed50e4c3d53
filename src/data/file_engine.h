// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>

#include "data/data_engine.h"

namespace marlinset {

/// Reference databases in the two formats that lie beside the tool under one name: Access files, as units
/// were delivered with, and SQLite files, as the tool is shipped with. The first bytes of a file tell which
/// engine opens it. What is neither is refused by the SQLite engine (3343), and so is what is not there
/// (3024).
class FileEngine : public DataEngine {
 public:
  FileEngine(DataEngine& sqlite, DataEngine& access) : sqlite_(sqlite), access_(access) {}
  std::unique_ptr<Database> OpenDatabase(const std::string& path) override;

 private:
  DataEngine& sqlite_;
  DataEngine& access_;
};

/// Whether a file begins as Access files of all versions up to 2003 do. False for what cannot be read and for
/// what is no file (a pipe is not waited for).
bool IsAccessFile(const std::string& path);

}  // namespace marlinset

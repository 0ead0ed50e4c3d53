// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>

#include "data/data_engine.h"

namespace marlinset {

/// Opens reference databases in the two formats that lie beside the tool under one name: Access files, as
/// delivered with units, and SQLite files, as shipped with the tool. The first bytes of a file decide which
/// engine opens it. The SQLite engine refuses any other file (kErrBadDatabase) and a missing one
/// (kErrNoDatabase).
class FileEngine : public DataEngine {
 public:
  FileEngine(DataEngine& sqlite, DataEngine& access) : sqlite_(sqlite), access_(access) {}
  std::unique_ptr<Database> OpenDatabase(const std::string& path) override;

 private:
  DataEngine& sqlite_;
  DataEngine& access_;
};

/// Whether a file begins as Access files of all versions up to 2003 do. False if it cannot be read or is not
/// a file (this does not wait for a pipe).
bool IsAccessFile(const std::string& path);

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace marlinset {

/// A configuration that no file of the operator holds yet, and the file to which it belongs.
struct UnsavedWork {
  std::string title;     ///< as in the window's caption
  std::string fileName;  ///< full path, empty if it never had one
  std::vector<std::uint8_t> bytes;
  std::string mark = {};  ///< what that file held when last read or written, one line of text

  bool operator==(const UnsavedWork&) const = default;
};

/// Unsaved work of a run that ended before it could be saved.
struct LeftWork {
  std::string file;  ///< a configuration file like any other
  std::string title;
  std::string fileName;
  std::string when;       ///< date and time of the last change kept, in the desktop's format
  std::string mark = {};  ///< as kept; empty in work of earlier versions
};

/// Keeps the unsaved work of a run outside the operator's own files, for a next run.
class WorkKeeper {
 public:
  virtual ~WorkKeeper() = default;
  /// Replaces the work that this run kept; if that throws kErrFileAccess or kErrDiskFull, the old work stays.
  virtual void Keep(const UnsavedWork& work) = 0;
  /// This run has nothing left to keep.
  virtual void Drop() = 0;
  /// Leaves the kept work as if this run had ended; from now on the run keeps its work elsewhere.
  virtual void Leave() = 0;

  /// Work left by runs that are over, the latest first.
  virtual std::vector<LeftWork> Left() = 0;
  /// Removes left work, by its file, because it lives on in this run.
  virtual void DropLeft(const std::string& file) = 0;
  /// The operator declined the left work: it is not offered again, but stays in case of a second thought. If
  /// there are many, the oldest is removed.
  virtual void DeclineLeft(const std::string& file) = 0;
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace marlinset {

/// A configuration that no file of the operator holds yet, and the file that it belongs to.
struct UnsavedWork {
  std::string title;     ///< as the window's caption names it
  std::string fileName;  ///< full path, empty when it never had one
  std::vector<std::uint8_t> bytes;
  std::string mark = {};  ///< what that file held when it was read or written last, a line of text

  bool operator==(const UnsavedWork&) const = default;
};

/// Unsaved work of a run that ended before it could be saved.
struct LeftWork {
  std::string file;  ///< a configuration file like any other
  std::string title;
  std::string fileName;
  std::string when;       ///< date and time of the last change kept, as the desktop writes them
  std::string mark = {};  ///< as it was kept; empty in work of earlier versions
};

/// Keeps the unsaved work of a run outside the operator's own files, for a next run.
class WorkKeeper {
 public:
  virtual ~WorkKeeper() = default;
  /// Keeps the work in place of what this run kept before; a failure leaves that as it was. Failure 75 or 61.
  virtual void Keep(const UnsavedWork& work) = 0;
  /// This run has nothing to keep any more.
  virtual void Drop() = 0;
  /// What this run has kept is left as if the run had ended; from now on it keeps elsewhere.
  virtual void Leave() = 0;

  /// What was left by runs that are over, the latest first.
  virtual std::vector<LeftWork> Left() = 0;
  /// Does away with left work, by its file: it lives on in this run.
  virtual void DropLeft(const std::string& file) = 0;
  /// The operator does not want the left work: it is not offered again, but stays for a second thought; the
  /// oldest goes when there are many.
  virtual void DeclineLeft(const std::string& file) = 0;
};

}  // namespace marlinset

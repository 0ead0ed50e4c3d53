// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace marlinset {

/// One of the programs, running. Every wait has a limit far beyond what the slowest machine needs; what does
/// not come in time is an empty text or -1.
class ChildProgram {
 public:
  ChildProgram(const char* program, const std::vector<std::string>& options);
  ~ChildProgram();
  ChildProgram(const ChildProgram&) = delete;
  ChildProgram& operator=(const ChildProgram&) = delete;

  /// Writes a line to its standard input.
  void Tell(const std::string& line) const;
  /// The next line of its standard output, of its standard error.
  std::string ReadLine() { return NextLine(output_, outputText_); }
  std::string ReadDiagnostic() { return NextLine(errors_, errorText_); }
  /// What Ctrl-C does.
  void Interrupt() const;
  /// Ends its standard input; returns its exit status, -1 when a signal ended it.
  int End();

 private:
  static std::string NextLine(int descriptor, std::string& text);

  pid_t process_ = -1;
  int input_ = -1;
  int output_ = -1;
  int errors_ = -1;
  std::string outputText_;
  std::string errorText_;
};

struct UnitProgram : ChildProgram {
  explicit UnitProgram(const std::vector<std::string>& options) : ChildProgram(UNIT_PROGRAM, options) {}
};

struct CliProgram : ChildProgram {
  explicit CliProgram(const std::vector<std::string>& options) : ChildProgram(CLI_PROGRAM, options) {}
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "app/computer.h"

namespace marlinset {

/// Exit statuses of the command line twin.
enum ExitStatus : int {
  kExitDone = 0,
  kExitNotDone = 1,         ///< the operator's answers, or the configuration, kept it from being done
  kExitUsage = 2,           ///< options or script lines that can't be understood
  kExitStart = 3,           ///< the tool did not start
  kExitPort = 4,            ///< the port can't be opened, or went away
  kExitReply = 5,           ///< no reply, or none that makes sense
  kExitUnacknowledged = 6,  ///< sent, but some messages were refused or not acknowledged
  kExitUncertain = 7,  ///< sent and answered, but of some messages it is uncertain whether they were taken
  kExitSignal = 128,   ///< and the number of the signal that ended it, as shells tell it
};

/// What a run of the command line twin was asked for.
struct CliOptions {
  CommonOptions common;
  std::vector<std::string> answers;  ///< for the boxes to come: yes, no, ok, cancel
  std::vector<std::string> files;    ///< for the file dialogs to come: a path, or cancel
  bool virtualClock = false;
  std::string scriptFile;                   ///< empty: standard input
  std::vector<std::string> configurations;  ///< configuration files; compose: the JSON text
  std::string output;                       ///< file to write: compose a configuration, print a PDF document
  bool json = false;                        ///< show: as JSON
  bool all = false;                         ///< diff: also what is equal
  bool verbose = false;                     ///< send: print each message
};

int RunScript(const CliOptions& options);
int RunSend(const CliOptions& options);
int RunIdentify(const CliOptions& options);
/// Prints a configuration, or the defaults, into a PDF document. Needs a QGuiApplication.
int RunPrint(const CliOptions& options);
/// Lists configuration files. kExitNotDone when one can't be read.
int RunShow(const CliOptions& options);
/// Compares two configuration files. kExitNotDone when they differ, kExitUsage when one can't be read.
int RunDiff(const CliOptions& options);
/// Writes a configuration file from what show --json printed.
int RunCompose(const CliOptions& options);

}  // namespace marlinset

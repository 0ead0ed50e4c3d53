// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "app/computer.h"
#include "picture/qt/picture_file.h"

namespace marlinset {

/// Exit statuses of marlinset-cli.
enum ExitStatus : int {
  kExitDone = 0,
  kExitNotDone = 1,         ///< the operator's answers, or the configuration, prevented it
  kExitUsage = 2,           ///< options or script lines that can't be understood
  kExitStart = 3,           ///< the tool did not start
  kExitPort = 4,            ///< the port can't be opened, or went away
  kExitReply = 5,           ///< no reply, or no valid one
  kExitUnacknowledged = 6,  ///< sent, but some messages were refused or not acknowledged
  kExitUncertain = 7,       ///< sent and answered, but it is uncertain whether all messages were taken
  kExitSignal = 128,        ///< plus the number of the signal that ended it, as in shells
};

/// What the command rack takes besides the options of others.
struct RackOptions {
  std::string file;
  std::vector<std::string> only;  ///< names of units; empty: all of them
  std::size_t jobs = 8;           ///< units at a time
  bool dryRun = false;
};

/// The options of a run of marlinset-cli.
struct CliOptions {
  CommonOptions common;
  std::vector<std::string> answers;  ///< for later boxes: yes, no, ok, cancel
  std::vector<std::string> files;    ///< for later file dialogs: a path, or cancel
  bool virtualClock = false;
  std::string scriptFile;                   ///< empty: standard input
  std::vector<std::string> configurations;  ///< configuration files; compose: the JSON text
  std::string output;    ///< file to write: compose a configuration, print a PDF document, picture an image
  bool json = false;     ///< show, check, send, rack: as JSON
  bool all = false;      ///< diff: also equal values
  bool verbose = false;  ///< send: print each message
  PictureOrder picture;  ///< picture: how it is written
  RackOptions rack;
};

int RunScript(const CliOptions& options);
int RunSend(const CliOptions& options);
int RunIdentify(const CliOptions& options);
/// Prints a configuration, or the defaults, into a PDF document. Needs a QGuiApplication.
int RunPrint(const CliOptions& options);
/// Draws the windows of a configuration, or of the defaults, into a PNG file. kExitUsage if that file is also
/// an input. Needs Qt's application object.
int RunPicture(const CliOptions& options);
/// Lists configuration files. kExitNotDone if one can't be read.
int RunShow(const CliOptions& options);
/// Compares two configuration files. kExitNotDone if they differ, kExitUsage if one can't be read.
int RunDiff(const CliOptions& options);
/// Prints the remarks on configuration files. kExitNotDone if there are any, kExitUsage if a file can't be
/// read. Needs Qt's application object.
int RunCheck(const CliOptions& options);
/// Sends configurations to many units at the same time. kExitNotDone if any is not complete and acknowledged,
/// kExitUsage for a mistake in the rack file. Needs Qt's application object.
int RunRack(const CliOptions& options);
/// Writes a configuration file from the output of show --json.
int RunCompose(const CliOptions& options);

}  // namespace marlinset

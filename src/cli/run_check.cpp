// SPDX-License-Identifier: GPL-3.0-or-later
#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/configuration_input.h"
#include "cli/output.h"
#include "cli/picture_json.h"
#include "cli/queued_dialogs.h"
#include "cli/terminal_run.h"

namespace marlinset {
namespace {

/// A tool for one file: it starts from the defaults, so that nothing of another file is left, and has neither
/// a line nor waits.
class CheckRun {
 public:
  CheckRun(const CliOptions& options, const std::string& path)
      : path_(path),
        computer_(options.common, Computer::ClockKind::kVirtual, dialogs_, fileDialog_),
        tool_(computer_.MakePlatform()) {
    dialogs_.onShown = [this](const MessageBox& box, BoxAnswer) { boxes_.push_back(box.text); };
    started_ = StartTool(tool_, options.common, false);
    if (!started_) PrintBoxes();
  }
  bool Started() const { return started_; }

  /// Loads the file and prints on standard error what the load changes in the setup. Throws
  /// std::runtime_error that says why the file cannot be loaded. The remarks live as long as this run.
  const std::vector<Remark>& Check() {
    tool_.platform.fileDialog.FileName = path_;
    tool_.configurationFile.ReadConfigFile();
    if (tool_.configurationFile.LastRead() != ReadEnd::kLoaded) {
      throw std::runtime_error(path_ + ": cannot be loaded: " + (boxes_.empty() ? "" : boxes_.back()));
    }
    PrintBoxes();
    tool_.remarks.Refresh();
    return tool_.remarks.Remarks();
  }

 private:
  void PrintBoxes() const {
    for (const std::string& box : boxes_) PrintLine(Printable(path_ + ": " + box), stderr);
  }

  const std::string& path_;
  std::vector<std::string> boxes_;
  QueuedDialogs dialogs_;
  QueuedFileDialog fileDialog_{dialogs_};
  Computer computer_;
  Tool tool_;
  bool started_ = false;
};

void PrintRemarks(const std::string& path, const std::vector<Remark>& remarks, bool json) {
  if (json) return PrintJson({{"file", path}, {"remarks", RemarksJson(remarks)}});
  for (const Remark& remark : remarks) {
    PrintLine(Printable(path + ": " + std::string(NameOf(remark.severity)) + ": " + remark.text));
  }
}

}  // namespace

int RunCheck(const CliOptions& options) {
  int status = kExitDone;
  for (const std::string& path : options.configurations) {
    try {
      ReadConfiguration(path);
      CheckRun run(options, path);
      if (!run.Started()) return kExitStart;
      const std::vector<Remark>& remarks = run.Check();
      PrintRemarks(path, remarks, options.json);
      if (!remarks.empty() && status == kExitDone) status = kExitNotDone;
    } catch (const std::runtime_error& error) {
      PrintError(error, path, options.json);
      status = kExitUsage;
    }
  }
  return status;
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/printable.h"
#include "cli/commands.h"
#include "cli/configuration_input.h"
#include "cli/output.h"
#include "cli/picture_json.h"
#include "cli/trial_load.h"

namespace marlinset {
namespace {

void PrintBoxes(const TrialLoad& trial, const std::string& path) {
  const std::string place = path + ": ";
  for (const std::string& box : trial.Boxes()) PrintLine(Printable(place + box), stderr);
}

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
      TrialLoad trial(options.common);  // for this file alone, so that nothing of another one is left
      if (trial.Started()) trial.Load(path);
      PrintBoxes(trial, path);
      if (!trial.Started()) return kExitStart;
      trial.tool.remarks.Refresh();
      const std::vector<Remark>& remarks = trial.tool.remarks.Remarks();
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

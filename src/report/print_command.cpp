// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/print_command.h"

#include <memory>

#include "base/finally.h"
#include "core/frm_start.h"
#include "core/variables.h"
#include "link/interactive_mode.h"
#include "platform/desktop.h"
#include "platform/file_system.h"
#include "platform/ms_comm.h"
#include "platform/new_file.h"
#include "platform/platform.h"
#include "platform/settings_keys.h"
#include "report/print_layout.h"

namespace marlinset {
PrintCommand::PrintCommand(Platform& platform, const Variables& variables, FrmStart& form)
    : platform_(platform), vars_(variables), form_(form) {
  form_.mnuPrint.OnClick([this] { mnuPrint_Click(); });
  form_.mnuPreview.OnClick([this] { Preview(); });
  form_.mnuExport.OnClick([this] { Export(); });
}

void PrintCommand::mnuPrint_Click() {
  Suspended(form_, platform_.ComP1, [this] { PrintConfig({.target = PrintTarget::kPrinter}); });
}

template <class Action>
void PrintCommand::Undisturbed(const Action& action) {
  const bool interactive = form_.mnuInter.Checked();
  if (interactive) SuspendInteractiveMode(form_);
  Finally(action, [&] {
    if (interactive) ResumeInteractiveMode(form_, platform_.ComP1);
  });
}

void PrintCommand::Preview() {
  Undisturbed([this] { PrintConfig({.target = PrintTarget::kPreview}); });
}

void PrintCommand::Export() {
  std::string file;
  Undisturbed([&] {
    file = AskForNewFile(
        platform_, {.title = "Export as PDF", .kind = "PDF document", .extension = ".pdf", .suffix = {}},
        vars_.CurrentFile, LastFolder(platform_.settings, vars_.AppPath));
    if (!file.empty()) PrintConfig({.target = PrintTarget::kFile, .file = file});
  });
  if (file.empty()) return;
  form_.StatBar(FrmStart::kVideoPanel).SetText(FileNameOf(file) + " written to " + FolderOfPath(file));
}

void PrintCommand::PrintConfig(PrintRequest request) {
  const auto source = [this]() -> PrintSource {
    return {form_, vars_, Port(), platform_.desktop.DateAndTime()};
  };
  const PrintedForm panels = LayOutPanels(source());
  request.title = form_.Caption();
  const std::unique_ptr<PrintJob> job = platform_.printer.Begin(request);
  job->PrintForm(panels);
  job->PrintForm(LayOutParameters(source()));
  job->Finish();
}

std::string PrintCommand::Port() const {
  int number = platform_.ComP1.CommPort();
  for (int port = kLowestPort; port <= kHighestPort; ++port) {
    if (form_.ComMenu(port).Checked()) number = port;
  }
  return std::to_string(number);
}

}  // namespace marlinset

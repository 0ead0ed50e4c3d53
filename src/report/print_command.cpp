// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/print_command.h"

#include <memory>

#include "base/finally.h"
#include "base/text.h"
#include "controls/dialogs.h"
#include "core/frm_start.h"
#include "core/variables.h"
#include "link/interactive_mode.h"
#include "platform/desktop.h"
#include "platform/file_dialog.h"
#include "platform/file_system.h"
#include "platform/ms_comm.h"
#include "platform/platform.h"
#include "platform/settings_keys.h"
#include "report/print_layout.h"

namespace marlinset {
namespace {

constexpr std::string_view kPdf = ".pdf";

/// The document's name for a configuration of this name.
std::string PdfNameOf(const std::string& configuration) {
  const std::string name = FileNameOf(configuration);
  return name.substr(0, name.rfind('.')) + std::string(kPdf);
}

/// With its separator; empty if the path has none.
std::string FolderOf(const std::string& path) {
  return path.substr(0, path.size() - FileNameOf(path).size());
}

bool EndsInPdf(const std::string& file) {
  return EqualNoCase(RightOf(file, kPdf.size()), kPdf);
}

}  // namespace

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
    file = AskForDocument();
    if (!file.empty()) PrintConfig({.target = PrintTarget::kFile, .file = file});
  });
  if (file.empty()) return;
  form_.StatBar(FrmStart::kVideoPanel).SetText(FileNameOf(file) + " written to " + FolderOf(file));
}

/// The document to write; empty if the operator decides against it.
std::string PrintCommand::AskForDocument() const {
  std::string file = AskForName();
  if (file.empty() || EndsInPdf(file)) return file;
  file += kPdf;
  // The dialog has asked about the name as typed, not about this one.
  const bool taken = platform_.files.FileExists(file);
  return !taken || platform_.dialogs.Ask(file + " already exists. Do you want to replace it?") ? file : "";
}

/// Asks with the tool's one file dialog, which belongs to the open configuration and gets its state back
/// afterwards. Suggests the configuration's folder. Empty if the operator cancelled.
std::string PrintCommand::AskForName() const {
  FileDialog& dialog = platform_.fileDialog;
  const FileDialogState before = dialog.State();
  const std::string folder = FolderOf(before.FileName);
  dialog.State() = {.CancelError = true,
                    .Filter = "PDF document|*.pdf",
                    .Flags = kOverwritePrompt | kHideReadOnly,
                    .FileName = PdfNameOf(before.FileName.empty() ? vars_.CurrentFile : before.FileName),
                    .InitDir = folder.empty() ? LastFolder(platform_.settings, vars_.AppPath) : folder,
                    .DialogTitle = "Export as PDF"};
  std::string file;
  const auto ask = [&] {
    try {
      dialog.ShowSave();
      file = dialog.FileName;
    } catch (const RuntimeError& cancelled) {
      if (cancelled.Number() != kErrDialogCancelled) throw;
    }
  };
  Finally(ask, [&] { dialog.State() = before; });
  return file;
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

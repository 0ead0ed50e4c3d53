// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/print_command.h"

#include <utility>

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
#include "platform/settings_store.h"
#include "report/frm_print.h"
#include "report/print_layout.h"

namespace marlinset {
namespace {

/// The slate's duration among the line numbers of both forms.

/// White flag, then each VITC line with its duplicate: place in tOutbox and index of tLineNumber.
constexpr std::pair<int, int> kLineNumbers[] = {{10, 0}, {11, 1}, {12, 5}, {13, 2},
                                                {14, 6}, {15, 3}, {16, 7}};

constexpr std::string_view kPdf = ".pdf";

/// The name of a document for a configuration of that name.
std::string PdfNameOf(const std::string& configuration) {
  const std::string name = FileNameOf(configuration);
  return name.substr(0, name.rfind('.')) + std::string(kPdf);
}

/// With its separator; empty when the name has none.
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

/// The document to write; empty when the operator thinks better of it.
std::string PrintCommand::AskForDocument() const {
  std::string file = AskForName();
  if (file.empty() || EndsInPdf(file)) return file;
  file += kPdf;
  // The dialog has asked about the name as it was typed, not about this one.
  const bool taken = platform_.files.FileExists(file);
  return !taken || platform_.dialogs.Ask(file + " already exists. Do you want to replace it?") ? file : "";
}

/// The tool's one file dialog carries the configuration in work, and does so again afterwards. The document
/// is to lie beside it. Empty when the operator cancelled.
std::string PrintCommand::AskForName() const {
  FileDialog& dialog = platform_.fileDialog;
  const FileDialogState before = dialog.State();
  const std::string folder = FolderOf(before.FileName);
  dialog.State() = {.CancelError = true,
                    .Filter = "PDF document|*.pdf",
                    .Flags = kOverwritePrompt | kHideReadOnly,
                    .FileName = PdfNameOf(before.FileName.empty() ? vars_.CurrentFile : before.FileName),
                    .InitDir = folder.empty() ? platform_.settings.GetSetting("Load", vars_.AppPath) : folder,
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
  FrmPrint page1(platform_.guard);
  FillPage1(page1);
  request.title = form_.Caption();
  const std::unique_ptr<PrintJob> job = platform_.printer.Begin(request);
  job->PrintForm(LayOut(page1));
  FrmPrint page2(platform_.guard);
  FillPage2(page2);
  job->PrintForm(LayOut(page2));
  job->Finish();
}

void PrintCommand::FillPage1(FrmPrint& page) const {
  page.tOutbox(FrmPrint::kName).SetText(form_.Caption());
  for (const int n : form_.comTB.Indices()) {
    page.tOutbox(2 * n).SetText(form_.comTB(n).Text());
    page.tOutbox(2 * n + 1).SetText(form_.ComUB(n).Text());
  }
  for (const auto& [outbox, line] : kLineNumbers) {
    page.tOutbox(outbox).SetText(form_.tLineNumber(line).Text());
  }
  page.chEnable.SetValue(form_.chEnable.Value());
  page.chVITC.SetValue(form_.chVITC.Value());
  page.chDups.SetValue(form_.chDups.Value());
  page.chSync.SetValue(form_.chSync.Value());
  CopyVitcLines(page);
  page.tOutbox(FrmPrint::kStandard).SetText(form_.comVS.Text());
  CopyPort(page);
  CopyAttributes(page);
  CopyDownConverter(page);
  CopyWindows(page);
  page.tOutbox(FrmPrint::kDateAndTime).SetText(platform_.desktop.DateAndTime());
}

void PrintCommand::CopyVitcLines(FrmPrint& page) const {
  for (int mode = 0; mode < 3; ++mode) {
    if (!form_.oVITC(mode).Value()) continue;
    page.tOutbox(FrmPrint::kVitcCount).SetText(std::to_string(mode + 1) + " Line");
    page.fVITC1.SetVisible(true);
    page.fVITC2.SetVisible(mode >= 1);
    page.fVITC3.SetVisible(mode >= 2);
  }
}

void PrintCommand::CopyPort(FrmPrint& page) const {
  page.tOutbox(FrmPrint::kPort).SetText(std::to_string(platform_.ComP1.CommPort()));
  for (int port = kLowestPort; port <= kHighestPort; ++port) {
    if (form_.ComMenu(port).Checked()) page.tOutbox(FrmPrint::kPort).SetText(std::to_string(port));
  }
}

void PrintCommand::CopyAttributes(FrmPrint& page) const {
  page.tOutbox(FrmPrint::kStyle).SetText(form_.ComWin(FrmStart::kCharStyle).Text());
  page.tOutbox(FrmPrint::kFontSize).SetText(form_.ComWin(FrmStart::kFontSize).Text());
  page.chPrev.SetValue(form_.chPrev.Value());
  page.tOutbox(FrmPrint::kSlateMode).SetText(form_.ComWin(FrmStart::kSlateMode).Text());
  page.tLineNumber(FrmStart::kSlateDurationEcho)
      .SetText(form_.tLineNumber(FrmStart::kSlateDurationEcho).Text());
  page.tWinMess.SetText(form_.tWinMess.Text());
  page.tOutbox(FrmPrint::kAspectRatio).SetText(form_.ComWin(FrmStart::kAspectRatio).Text());
}

/// What only one model has stands on paper while panel 4 names that model.
void PrintCommand::CopyDownConverter(FrmPrint& page) const {
  if (form_.ModelIsQ()) {
    for (const int i : page.TxtNew.Indices()) page.TxtNew(i).SetText(form_.ComDownConv(i).Text());
    page.TxtSDI.SetText(form_.ComWin(FrmStart::kSdiProgramOut).Text());
    return;
  }
  for (const int i : page.TxtNew.Indices()) page.TxtNew(i).SetVisible(false);
  page.fSDIProgramOut.SetVisible(false);
  for (const int i : FrmPrint::kModelLabels) page.lMisc(i).SetVisible(false);
}

void PrintCommand::CopyWindows(FrmPrint& page) const {
  for (int i = 0; i <= UBound(vars_.CharWindows); ++i) {
    page.LoadWindowRow(i);
    if (!form_.lName.Has(i)) continue;
    if (!form_.lName(i).Visible()) page.HideWindowRow(i);
    page.lName(i).SetCaption(form_.lName(i).Caption());
    page.chSlate(i).SetValue(form_.chSlate(i).Value());
    page.chOnOff(i).SetValue(form_.chOnOff(i).Value());
    page.chField(i).SetValue(form_.chField(i).Value());
    page.chSym(i).SetValue(form_.chSym(i).Value());
    page.chDblSize(i).SetValue(form_.chDblSize(i).Value());
    page.tVert(i).SetText(form_.tVert(i).Text());
    page.tHor(i).SetText(form_.tHor(i).Text());
  }
}

void PrintCommand::FillPage2(FrmPrint& page) const {
  page.tOutbox(FrmPrint::kDateAndTime).SetText(platform_.desktop.DateAndTime());
  page.tOutbox(FrmPrint::kName).SetText(form_.Caption());
  page.ShowParametersOnly();
  page.bValue.SetCaption(form_.bValue.Caption());
  for (int i = 0; i <= UBound(vars_.SystemParameters); ++i) {
    const SystemParameterRec& parameter = At(vars_.SystemParameters, i);
    page.LoadParameterRow(i);
    page.lClass(i).SetCaption(std::to_string(parameter.Class));
    page.lParam(i).SetCaption(std::to_string(parameter.Parameter));
    page.lDesc(i).SetCaption(parameter.Description);
    if (form_.tVal.Has(i)) page.tVal(i).SetText(form_.tVal(i).Text());
  }
}

}  // namespace marlinset

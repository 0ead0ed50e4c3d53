// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/configuration_file.h"

#include <functional>
#include <utility>

#include "base/finally.h"
#include "base/program_title.h"
#include "base/text.h"
#include "controls/dialogs.h"
#include "core/frm_start.h"
#include "core/panel_setup.h"
#include "core/question_facts.h"
#include "core/variables.h"
#include "files/panel_document.h"
#include "files/qcf_writer.h"
#include "platform/file_dialog.h"
#include "platform/file_system.h"
#include "platform/platform.h"
#include "platform/settings_keys.h"
#include "platform/work_keeper.h"

namespace marlinset {
namespace {

constexpr std::string_view kHeaderFault = "Data Process Error, file header corrupt or unreadable";
constexpr std::string_view kNoModelFault = "No 7340 Configuration found in file, using Default.";
constexpr std::string_view kCorrupt = "Data Process Error, file may be corrupt";

/// Which file failed and why: what an operator needs besides the box's own text.
std::string Reason(const Platform& platform, const RuntimeError& failure) {
  const std::string& file = platform.fileDialog.FileName;
  if (!failure.Remedy().empty()) return failure.Remedy();
  std::string reason = failure.Description();
  if (FileNameOf(file).find('.') == std::string::npos) {
    reason = "The name needs the extension " + std::string(kConfigurationExtension) + ".";
  } else if (failure.Number() == kErrOverflow) {
    reason = "A number on the panels is beyond what a file can hold.";
  }
  return file.empty() ? reason : file + "\n" + reason;
}

/// The new content replaces the old from the first byte; if the old one is longer, its end stays.
void WriteOver(std::vector<std::uint8_t>& content, const std::vector<std::uint8_t>& old) {
  if (old.size() <= content.size()) return;
  content.insert(content.end(), old.begin() + static_cast<std::ptrdiff_t>(content.size()), old.end());
}

/// Runs a flow with a file dialog and reports a failure. A cancelled dialog is none and leaves no trace: it
/// puts the previous file name back. Returns whether it reported a failure.
bool WithDialog(Platform& platform, std::string_view message, const std::function<void()>& flow) {
  const std::string nameBefore = platform.fileDialog.FileName;
  try {
    flow();
  } catch (const RuntimeError& failure) {
    if (failure.Number() == kErrDialogCancelled) {
      platform.fileDialog.FileName = nameBefore;
    } else {
      platform.dialogs.Show({.text = std::string(message), .remedy = Reason(platform, failure)});
      return true;
    }
  }
  return false;
}

}  // namespace

bool IsSystemDefaultName(std::string_view name) {
  return UpperOf(LeftOf(Trim(name), kSystemDefault.size())) == UpperOf(kSystemDefault);
}

ConfigurationFile::ConfigurationFile(Platform& platform, Variables& variables, FrmStart& form,
                                     PanelSetup& panels)
    : platform_(platform),
      vars_(variables),
      form_(form),
      panels_(panels),
      loader_(platform, variables, form, panels),
      known_(platform.files) {}

SaveEnd ConfigurationFile::SaveConfig(std::string_view flow) {
  const bool named = flow == "SaveAs";
  SaveEnd end = SaveEnd::kCancelled;
  if (!named && flow != "Save") return end;
  platform_.fileDialog.CancelError = true;
  vars_.LoadFolder = LastFolder(platform_.settings, vars_.AppPath);
  const bool failed = WithDialog(platform_, "Error during save, save aborted!", [&] {
    OfferConfigurations();
    if (named) {
      AskForName();
    } else {
      NameWithoutAsking();
    }
    if (!MayWriteOver(platform_.fileDialog.FileName, named)) {
      end = SaveEnd::kDeclined;
      throw RuntimeError(kErrDialogCancelled, "Cancel was selected.");
    }
    vars_.CurrentFile = platform_.fileDialog.FileName;
    UpdateFileTitle();
    WriteConfigFile();
    end = SaveEnd::kStored;
    ShowStatus("File " + vars_.CurrentFile + " Saved ");
    InUse.Emit(platform_.fileDialog.FileName);
  });
  if (failed && end != SaveEnd::kStored) end = SaveEnd::kFailed;
  SaveEnded.Emit(end);
  return end;
}

void ConfigurationFile::OfferConfigurations() {
  platform_.fileDialog.Filter = kConfigurationFilter;
  platform_.fileDialog.FilterIndex = 1;
}

void ConfigurationFile::AskForName() {
  FileDialog& dialog = platform_.fileDialog;
  dialog.Flags = kOverwritePrompt;
  if (!vars_.LoadFolder.empty()) EnterFolder();
  dialog.FileName = vars_.CurrentFile + std::string(kConfigurationExtension);
  dialog.InitDir = vars_.LoadFolder;
  for (dialog.ShowSave(); IsSystemDefaultName(FileNameOf(dialog.FileName)); dialog.ShowSave()) {
    platform_.dialogs.Tell("Cannot overwrite a system default QCF file. Please choose another file name");
  }
}

/// A folder that has gone must not keep the next Save As from opening, and neither must the program's own.
void ConfigurationFile::EnterFolder() {
  try {
    platform_.files.ChangeDirectory(vars_.LoadFolder);
  } catch (const RuntimeError& failure) {
    platform_.settings.SaveSetting(kFolderSetting.key,
                                   vars_.LoadFolder == vars_.AppPath ? "" : vars_.AppPath);
    throw RuntimeError(failure.Number(), failure.Description(),
                       vars_.LoadFolder + "\nThe folder last used is not there any more.");
  }
}

/// Asks before overwriting content that this run does not know, since it may be all that its owner has, and
/// before saving to another folder than the open file's, where nobody would find it again. `named`: the
/// operator has just chosen the name; a dialog that confirms has then asked about the file, whatever it is.
bool ConfigurationFile::MayWriteOver(const std::string& name, bool named) {
  if (named && platform_.fileDialog.ConfirmsOverwriting()) return true;
  const bool known = known_.Knows(name) && (named || known_.IsOpen(name));
  std::string what;
  if (!platform_.files.FileExists(name)) {
    if (named || !known_.IsElsewhere(name)) return true;
    what = " is in another folder than the file that is open. Write it there?";
  } else if (known) {
    if (known_.IsAsItWas(name)) return true;
    what = " is not as this window last read or saved it: it was changed meanwhile. Write over it?";
  } else {
    if (named) return true;
    what = " is there already, and it is not the file that is open. Write over it?";
  }
  const std::string open = known || known_.IsOpen(name) ? "" : FileFact("Open", path_);
  return platform_.dialogs.Show(
             {.text = name + what,
              .buttons = BoxButtons::kYesNo,
              .icon = BoxIcon::kQuestion,
              .remedy = Facts({open, open.empty() ? "" : ToBeWritten(name),
                               "No leaves the file alone; your changes stay unsaved. Save As... stores them "
                               "under another name."})}) == BoxAnswer::kYes;
}

/// Names the file behind a link, since the link's name says nothing about it.
std::string ConfigurationFile::ToBeWritten(const std::string& name) const {
  const std::string linked = known_.BehindLink(name);
  return linked.empty() ? FileFact("To be written", name)
                        : FileFact("To be written, where the link leads", linked);
}

void ConfigurationFile::TakeName(const LeftWork& work) {
  const std::string& path = work.fileName;
  known_.TakeMark(path, work.mark);
  if (LastSeparator(path) != std::string::npos && FileNameOf(path).find('.') != std::string::npos) {
    vars_.CurrentFile = path;
    UpdateFileTitle();
    return;
  }
  path_ = path;
  known_.Open(path);
  vars_.CurrentFile = work.title;
  form_.SetCaption(TitleOf(work.title));
}

ConfigurationFile::OpenFile ConfigurationFile::Opened() const {
  return {path_, LastFolder(platform_.settings, vars_.AppPath), known_.Opened()};
}

bool ConfigurationFile::TakeOpened(const OpenFile& file) {
  path_ = file.path;
  if (file.folder != LastFolder(platform_.settings, vars_.AppPath)) {
    platform_.settings.SaveSetting(kFolderSetting.key, file.folder);
  }
  return known_.TakeOpened(file.known);
}

ConfigurationFile::Copy ConfigurationFile::CopyInUse() const {
  const std::string& name = platform_.fileDialog.FileName;
  return {platform_.files.Identify(name).place, known_.Mark(name)};
}

void ConfigurationFile::NameWithoutAsking() {
  platform_.fileDialog.Flags = kHideReadOnly;
  platform_.fileDialog.FileName = vars_.LoadFolder + vars_.CurrentFile + std::string(kConfigurationExtension);
}

void ConfigurationFile::UpdateFileTitle() {
  const std::string path = path_ = vars_.CurrentFile;
  known_.Open(path);
  const std::size_t separator = LastSeparator(path);
  std::string folder;
  if (separator != std::string::npos) {
    const std::size_t name = separator + 1;
    const std::size_t dot = path.find('.', name);
    if (dot == std::string::npos) throw RuntimeError(kErrInvalidCall, "Invalid procedure call or argument");
    vars_.CurrentFile = path.substr(name, dot - name);
    folder = path.substr(0, name);
  }
  platform_.settings.SaveSetting(kFolderSetting.key, folder);
  form_.SetCaption(TitleOf(vars_.CurrentFile));
}

/// Keeps a backup of whatever is there, even if damaged or foreign: it may be all that its owner has.
void ConfigurationFile::WriteConfigFile() {
  const std::string name = platform_.fileDialog.FileName;
  FileSystem& files = platform_.files;
  vars_.FileChannel = 1;  // the first free number: only one file is open at a time
  std::vector<std::uint8_t> content = WriteDocument(DocumentOfPanels(vars_, form_));
  const bool isThere = files.FileExists(name);
  if (isThere) WriteOver(content, files.OpenForReading(name)->ReadAll());
  const std::unique_ptr<OutputFile> file = files.OpenForWriting(name);
  file->Write(content);
  if (isThere) files.Backup(name);
  file->Commit();
  known_.Note(name, content);
}

void ConfigurationFile::LoadConfig() {
  FileDialog& dialog = platform_.fileDialog;
  dialog.CancelError = true;
  vars_.ConfigFolder = LastFolder(platform_.settings, vars_.AppPath);
  ShowStatus("Getting Saved Data ");
  WithDialog(platform_, "Error during load, load aborted!", [&] {
    OfferConfigurations();
    dialog.Flags = kHideReadOnly;
    dialog.FileName = "*" + std::string(kConfigurationExtension);
    if (!vars_.ConfigFolder.empty()) ChangeToConfigFolder();
    dialog.InitDir = vars_.ConfigFolder;
    dialog.ShowOpen();
    TakeChosenFile();
  });
}

void ConfigurationFile::LoadNamed(const std::string& name) {
  ShowStatus("Getting Saved Data ");
  WithDialog(platform_, "Error during load, load aborted!", [&] {
    OfferConfigurations();  // in case the operator has to look for the file
    platform_.fileDialog.FileName = name;
    TakeChosenFile();
  });
}

void ConfigurationFile::TakeChosenFile() {
  ReadConfigFile();
  vars_.CurrentFile = platform_.fileDialog.FileName;
  UpdateFileTitle();
  ShowStatus("File " + vars_.CurrentFile + " Loaded ");
  if (lastRead_ == ReadEnd::kLoaded) InUse.Emit(platform_.fileDialog.FileName);
}

void ConfigurationFile::ChangeToConfigFolder() {
  try {
    platform_.files.ChangeDirectory(vars_.ConfigFolder);
  } catch (const RuntimeError&) {
    // Then the dialog opens wherever it can.
  }
}

void ConfigurationFile::ReadConfigFile() {
  lastRead_ = ReadEnd::kNotFound;
  reading_ = true;
  const auto read = [this] {
    const auto bytes = OpeningStage();
    if (bytes) lastRead_ = ParsingStage(*bytes);
  };
  Finally(read, [this] { reading_ = false; });
  if (lastRead_ != ReadEnd::kNotFound && lastRead_ != ReadEnd::kEmpty) Replaced.Emit();
}

/// The bytes of the file. Empty if there is nothing to parse; LastRead then says why.
ConfigurationFile::Content ConfigurationFile::OpeningStage() {
  std::unique_ptr<InputFile> file;
  for (bool located = false; !file;) {
    try {
      file = platform_.files.OpenForReading(platform_.fileDialog.FileName);
    } catch (const RuntimeError& failure) {
      if (!LocateFile(failure)) return std::nullopt;
      located = true;
      continue;
    }
    if (located) platform_.settings.SaveSetting(kStartFileSetting.key, platform_.fileDialog.FileName);
  }
  lastRead_ = ReadEnd::kEmpty;
  const std::string& name = platform_.fileDialog.FileName;
  if (file->Length() == 0) {
    known_.Note(name, std::span<const std::uint8_t>());
    return std::nullopt;
  }
  lastRead_ = ReadEnd::kNotReadable;
  try {
    Content bytes = file->ReadAll();
    known_.Note(name, *bytes);
    return bytes;
  } catch (const RuntimeError&) {
    known_.Note(name, std::nullopt);
    file.reset();
    ResetPanels("Import Error");
    return std::nullopt;
  }
}

/// Lets the operator look for the file. Returns False if none was chosen.
bool ConfigurationFile::LocateFile(const RuntimeError& failure) {
  FileDialog& dialog = platform_.fileDialog;
  const std::string nameBefore = dialog.FileName;
  platform_.dialogs.Show({.text = "Default folder could not found.  Please browse to the .qcf file location",
                          .remedy = nameBefore.empty() ? "" : failure.Remedy()});
  try {
    platform_.files.ChangeDirectory(vars_.AppPath);
    dialog.FileName.clear();
    dialog.InitDir = vars_.AppPath;
    dialog.ShowOpen();
  } catch (const RuntimeError&) {
    dialog.FileName.clear();
  }
  if (!dialog.FileName.empty()) return true;
  dialog.FileName = nameBefore;
  platform_.dialogs.Tell("Qcf file location was not set, Data will not be loaded properly");
  return false;
}

ReadEnd ConfigurationFile::ParsingStage(const std::vector<std::uint8_t>& bytes) {
  using enum LoadOutcome::End;
  LoadOutcome outcome = loader_.Load(bytes);
  switch (outcome.end) {
    case kLoaded:
      return ReadEnd::kLoaded;
    case kIncomplete:
      platform_.dialogs.Tell(std::move(outcome.failure));
      return ReadEnd::kIncomplete;
    case kForeignHeader:
      ResetPanels(std::string(kHeaderFault));
      break;
    case kNoModel:
      ResetPanels(std::string(kNoModelFault));
      break;
    case kDamaged:
      ResetPanels(std::string(kCorrupt));
      break;
  }
  return ReadEnd::kNotReadable;
}

void ConfigurationFile::ResetPanels(std::string message) {
  platform_.dialogs.Tell(std::move(message));
  panels_.SetDefaults();
}

void ConfigurationFile::ShowStatus(const std::string& text) {
  form_.StatBar(FrmStart::kModelPanel).SetText(text);
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/signal.h"
#include "files/known_files.h"
#include "files/panel_loader.h"

namespace marlinset {

struct LeftWork;

/// Names of the shipped configurations begin with this; the tool never saves over them.
inline constexpr std::string_view kSystemDefault = "System Default";
inline constexpr std::string_view kConfigurationExtension = ".qcf";
/// What file dialogs offer.
inline constexpr std::string_view kConfigurationFilter = "Brandal Marlinset File|*.qcf";

/// Whether a file name begins with "System Default", ignoring case and leading blanks.
bool IsSystemDefaultName(std::string_view name);

/// How the last read of a configuration file ended.
enum class ReadEnd {
  kNone,         ///< there was no read yet
  kLoaded,       ///< the panels hold the file's configuration
  kEmpty,        ///< the file is empty; the panels are unchanged
  kNotFound,     ///< the file could not be opened and no other was chosen; the panels are unchanged
  kNotReadable,  ///< the file is damaged or for another tool; the panels hold the defaults
  kIncomplete,   ///< all but the parameters was loaded
};

/// How a save ended.
enum class SaveEnd {
  kStored,
  kCancelled,  ///< in the file dialog
  kDeclined,   ///< the operator declined to overwrite what others have written
  kFailed,     ///< which was reported
};

/// Saves and loads the working configuration. The dialog's FileName names the file in use. This class reports
/// every failure itself, except those while it sets the defaults: they reach the caller.
class ConfigurationFile {
 public:
  ConfigurationFile(Platform& platform, Variables& variables, FrmStart& form, PanelSetup& panels);

  /// "SaveAs" asks for the name, "Save" uses the present one; any other text does nothing. If the old file is
  /// longer, its end stays; no reader looks at it. The old content is kept beside the file as NAME.qcf.bak. A
  /// failure leaves the file as it was. Asks before it overwrites a file that is no longer as this run last
  /// read or wrote it; under the present name also before it overwrites a file that is not the open one, or
  /// writes to another folder than the open file's. Does not ask if the dialog has asked already.
  SaveEnd SaveConfig(std::string_view flow);
  /// A save has ended.
  Signal<SaveEnd> SaveEnded;

  /// Asks for a file and reads it. Title and status name the file even if it could not be read.
  void LoadConfig();
  /// The same without asking.
  void LoadNamed(const std::string& name);

  /// Reads the file named by the dialog.
  void ReadConfigFile();
  ReadEnd LastRead() const { return lastRead_; }
  /// Whether a read is in progress: the panels then hold parts of two configurations, even while one of its
  /// boxes is open.
  bool Reading() const { return reading_; }
  /// The panels hold another configuration: the one read, or the defaults in its place.
  Signal<> Replaced;

  /// The operator has opened or saved this file (full name), and it was read or written.
  Signal<const std::string&> InUse;

  /// Reduces CurrentFile from a full path to the bare name without folder and extension (the extension begins
  /// at the leftmost dot), remembers the folder and shows the name in the title. Leaves a path without a
  /// folder as it is. Throws kErrInvalidCall for a name without a dot.
  void UpdateFileTitle();
  /// The full path of the file that the title names; empty before the first one.
  const std::string& Path() const { return path_; }
  /// What that file held when it was last read or written, for work that is kept aside.
  std::string Mark() const { return known_.Mark(path_); }
  /// The panels hold work of an earlier run: adopts its file for title, folder and the next save, which asks
  /// as it would have asked then.
  void TakeName(const LeftWork& work);

  /// The file that the window works on: name, folder, and what it is known to hold.
  struct OpenFile {
    std::string path;
    std::string folder;  ///< where the next file dialog opens and Save writes
    KnownFiles::OpenFile known;
  };
  OpenFile Opened() const;
  /// Works on an earlier file again: the next save behaves as it would have then. Returns whether that file
  /// is known to hold what it held then.
  bool TakeOpened(const OpenFile& file);

  /// What a file held when this run last read or wrote it.
  struct Copy {
    std::string place;  ///< as FileIdentity names it; empty for no file
    std::string mark;   ///< as KnownFiles::Mark
  };
  /// That of the file which the dialog names.
  Copy CopyInUse() const;
  /// Whether the file still holds it; true without a file.
  bool IsThere(const Copy& copy) const { return copy.place.empty() || known_.Holds(copy.place, copy.mark); }

 private:
  /// Empty if there is nothing to parse.
  using Content = std::optional<std::vector<std::uint8_t>>;

  void OfferConfigurations();
  void AskForName();
  void EnterFolder();
  bool MayWriteOver(const std::string& name, bool named);
  std::string ToBeWritten(const std::string& name) const;
  void NameWithoutAsking();
  void WriteConfigFile();
  void ChangeToConfigFolder();
  void TakeChosenFile();
  Content OpeningStage();
  bool LocateFile(const RuntimeError& failure);
  ReadEnd ParsingStage(const std::vector<std::uint8_t>& bytes);
  void ResetPanels(std::string message);
  void ShowStatus(const std::string& text);

  Platform& platform_;
  Variables& vars_;
  FrmStart& form_;
  PanelSetup& panels_;
  PanelLoader loader_;
  ReadEnd lastRead_ = ReadEnd::kNone;
  bool reading_ = false;
  std::string path_;
  KnownFiles known_;
};

}  // namespace marlinset

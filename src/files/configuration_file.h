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

/// Names of the shipped configurations begin so; the tool never saves over them.
inline constexpr std::string_view kSystemDefault = "System Default";
inline constexpr std::string_view kConfigurationExtension = ".qcf";

/// Whether a file name, without regard to case and to blanks before it, begins with "System Default".
bool IsSystemDefaultName(std::string_view name);

/// How the last read of a configuration file ended.
enum class ReadEnd {
  kNone,         ///< there was none yet
  kLoaded,       ///< the panels hold the file's configuration
  kEmpty,        ///< the file has no byte; the panels stayed
  kNotFound,     ///< it could not be opened and no other was chosen; the panels stayed
  kNotReadable,  ///< it is damaged or for another tool; the panels hold the defaults
  kIncomplete,   ///< all but the parameters was taken
};

/// How a save ended.
enum class SaveEnd {
  kStored,
  kCancelled,  ///< in the file dialog
  kDeclined,   ///< the operator would not write over what others have put there
  kFailed,     ///< which has been told
};

/// Saving and loading the working configuration. The file in work is the one that the file dialog's FileName
/// holds. Every failure is told here; only a failure while the defaults are set goes to the caller.
class ConfigurationFile {
 public:
  ConfigurationFile(Platform& platform, Variables& variables, FrmStart& form, PanelSetup& panels);

  /// "SaveAs" asks for the name, "Save" writes under the present one; any other text does nothing. A longer
  /// file keeps its old end, which no reader looks at; what it held before stands beside it in NAME.qcf.bak.
  /// A failure leaves the file as it was. A file that is no longer as this run read or wrote it last is asked
  /// about first, and under the present name also one that is not the open file, or any name in another
  /// folder than the open file's; not where the dialog has asked already.
  SaveEnd SaveConfig(std::string_view flow);
  /// A save has ended.
  Signal<SaveEnd> SaveEnded;

  /// Asks for a file and reads it. Title and status name the file also when it could not be read.
  void LoadConfig();
  /// The same without asking.
  void LoadNamed(const std::string& name);

  /// Reads the file named by the dialog.
  void ReadConfigFile();
  ReadEnd LastRead() const { return lastRead_; }
  /// A read is under way: the panels hold parts of two configurations, also while one of its boxes stands.
  bool Reading() const { return reading_; }
  /// The panels hold another configuration: what was read, or the defaults in its place.
  Signal<> Replaced;

  /// A file by its whole name: the operator has opened or saved it, and it was read or written.
  Signal<const std::string&> InUse;

  /// Reduces CurrentFile from a full path to the bare name without folder and extension (what follows the
  /// leftmost dot), remembers the folder and shows the name in the title. A path without a folder stays as it
  /// is. Failure 5 for a name without a dot.
  void UpdateFileTitle();
  /// The file that the title names, by its whole path; empty before the first one.
  const std::string& Path() const { return path_; }
  /// What that file held when it was read or written last, for kept work.
  std::string Mark() const { return known_.Mark(path_); }
  /// The panels hold work of an earlier run: title, folder and the next save are its file's, and that asks as
  /// it would have then.
  void TakeName(const LeftWork& work);

 private:
  /// Nothing where a file does not give it.
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

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "files/qcf_document.h"
#include "files/upgrade.h"

namespace marlinset {

class ComboBox;
class QcfReader;
class SpinControl;

/// How a load ended. The caller informs the operator and decides what the panels hold after a file that could
/// not be read.
struct LoadOutcome {
  enum class End {
    kLoaded,
    kForeignHeader,  ///< the file has another signature or format version
    kNoModel,        ///< the configurations in the file are for other models
    kDamaged,
    kIncomplete,  ///< panels or database refused the parameters; everything before them is loaded
  };
  End end = End::kLoaded;
  std::string failure = {};  ///< for kIncomplete: number and text
};

/// Loads a configuration file into the panels, field by field in file order, as if an operator did it: every
/// assignment acts as a change of its control. If a box does not offer a text, the operator is told at once,
/// the fallback is selected and loading continues.
class PanelLoader {
 public:
  PanelLoader(Platform& platform, Variables& variables, FrmStart& form, PanelSetup& panels);

  /// Loads all bytes of a file. When it reads the operating mode, it sets the panels to the defaults of that
  /// mode. What it set before a failure stays.
  LoadOutcome Load(std::span<const std::uint8_t> bytes) { return Load(bytes, Mode::kOfFile); }
  /// kPresent: keeps the operating mode of the panels; the file's must be a known one all the same.
  enum class Mode { kOfFile, kPresent };
  LoadOutcome Load(std::span<const std::uint8_t> bytes, Mode mode);

 private:
  void LoadPanels(QcfReader& reader);
  void UnloadParameterRows();
  void TakeParameters(std::vector<SystemParameterRec> parameters);
  void Apply(const QcfField& field, const QcfValue& value, int version);
  void ApplyNumber(const QcfField& field, std::int64_t number);
  void ApplyText(const QcfField& field, const std::string& text);
  void TakeOperatingMode(const std::string& text);
  void TakeInserter(bool on);
  void TakeVitcLine(SpinControl& line, int number);
  void LookUp(const QcfField& field, const std::string& text, const std::string& wanted);
  void TakeWindows(const std::vector<QcfRecord>& records, int version);
  ComboBox& BoxOf(const QcfField& field, int index) const;

  Platform& platform_;
  Variables& vars_;
  FrmStart& form_;
  PanelSetup& panels_;
  Upgrade upgrade_;
  Mode mode_ = Mode::kOfFile;
};

}  // namespace marlinset

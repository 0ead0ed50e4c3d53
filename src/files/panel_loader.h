// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "files/qcf_reader.h"
#include "files/upgrade.h"

namespace marlinset {

class ComboBox;
class SpinControl;

/// Puts the bytes of a configuration file into the panels, field by field in file order, as if an operator
/// did it: every assignment acts as a change of its control. A text that its box does not offer is told and
/// replaced; the load goes on.
class PanelLoader {
 public:
  PanelLoader(Platform& platform, Variables& variables, FrmStart& form, PanelSetup& panels);

  /// The file up to the character windows, which are in place and arranged after it. The panels have the
  /// defaults of the file's operating mode from that field on. Failures: QcfError, or any other for a damaged
  /// file; what was set by then stays.
  void LoadPanels(QcfReader& reader);

  /// The parameters of the file. They become the working list with TakeParameters.
  static std::vector<SystemParameterRec> ReadParameters(QcfReader& reader);

  /// Takes away the rows of the parameter list but the first.
  void UnloadParameterRows();

  /// Makes `parameters` the working list, merged with the reference database and sorted by class.
  void TakeParameters(std::vector<SystemParameterRec> parameters);

 private:
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
};

}  // namespace marlinset

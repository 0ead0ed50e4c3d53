// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "files/qcf_values.h"

namespace marlinset {

class ComboBox;
class FrmStart;
class PanelSetup;
struct QcfField;
struct Variables;

/// Sets single values of the panels without their rules. What shows a value or depends on it as a look (echo,
/// record, remembered selection, frames, step) is afterwards as a load leaves it.
class PanelWriter {
 public:
  PanelWriter(Variables& variables, FrmStart& form, PanelSetup& panels)
      : vars_(variables), form_(form), panels_(panels) {}

  /// Whether the field's control can hold the value. `record` is the window's or parameter's number in its
  /// list, kNoIndex for any other field.
  bool Takes(const QcfField& field, int record, const SingleValue& value) const;
  /// Sets a value that Takes allows.
  void Set(const QcfField& field, int record, const SingleValue& value);

 private:
  void SetNumber(const QcfField& field, int index, int number);
  void SetText(const QcfField& field, int index, const std::string& text);
  void SetParameter(int record, const SingleValue& value);
  void SetVitcMode(int lines);
  void RememberSelection(const ComboBox& box);

  Variables& vars_;
  FrmStart& form_;
  PanelSetup& panels_;
};

}  // namespace marlinset

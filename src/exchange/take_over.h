// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "exchange/comparison.h"
#include "files/qcf_values.h"

namespace marlinset {

class FrmStart;
class PanelSetup;
class WholeSend;
struct Platform;
struct QcfField;
struct Variables;

/// A value for the panels, named as QcfNamedValue names it.
struct NewValue {
  std::string name;
  SingleValue value;
};

/// What the history calls taking over values of a file.
std::string TakeOverName(const std::string& fileName);

/// Sets values in the panels that come from outside: another file, a table, the clipboard.
class TakeOver {
 public:
  TakeOver(Platform& platform, Variables& variables, FrmStart& form, PanelSetup& panels,
           WholeSend& wholeSend);

  /// Sets values as a load would: no rule runs, limits and lists of boxes stay as they are even if a value is
  /// beyond them, and what shows a value follows it. All of it is one action of the operator, which the
  /// history lists by the name `action`. While changes go out at once, it then sends what the unit does not
  /// hold, and reports a missing acknowledgement as the panels do.
  ///
  /// Throws RuntimeError, before anything is set, if the tool waits for the unit, for a name that the panels
  /// do not have, and for a value that its control cannot hold.
  void Set(const std::string& action, const std::vector<NewValue>& values);

  /// The other side's values of these rows; leaves out what does not differ. Throws RuntimeError that names
  /// the first one that only one side has, or that the panels do not have.
  std::vector<NewValue> Chosen(const std::vector<ComparedValue>& differences,
                               const std::vector<std::string>& names) const;
  /// The other side's values of all rows that both sides have.
  static std::vector<NewValue> All(const std::vector<ComparedValue>& differences);

  /// Whether a value of this field can be set: not what identifies a window or parameter, nor the operating
  /// mode.
  static bool CanSet(const QcfField& field);

 private:
  struct Place;
  std::vector<Place> PlacesOf(const std::vector<NewValue>& values) const;
  void SetPlaces(const std::vector<Place>& places);

  Platform& platform_;
  Variables& vars_;
  FrmStart& form_;
  PanelSetup& panels_;
  WholeSend& wholeSend_;
};

}  // namespace marlinset

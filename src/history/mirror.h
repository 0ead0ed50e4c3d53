// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "controls/packed_fields.h"
#include "history/changes.h"

namespace marlinset {

class Control;
class FrmStart;
struct Variables;

/// What the configuration was when it was looked at last: the state of every control that belongs to it, the
/// records of CharWindows and SystemParameters, and the variables that belong to selections and rows.
class Mirror {
 public:
  Mirror(Variables& variables, FrmStart& form);

  /// Takes the configuration as it is. Call first.
  void Begin();
  /// What has changed since the last look. Looks only at controls that were touched meanwhile.
  Changes Look();
  /// Brings every thing to its state after the changes. Adds and removes rows; runs no rule.
  void Apply(const Changes& changes);

  /// Nothing for a control that does not belong to the configuration.
  std::optional<ThingKey> KeyOf(const Control& control);
  /// The control that a change is about; null for a record or a control that is no longer there.
  Control* ControlOf(ThingKey thing) const;

 private:
  struct Name {
    std::string control;  ///< array or single control; empty for what is no control
    bool belongs = false;
  };

  std::uint32_t NumberOf(const std::string& control);
  void Compare(ThingKey thing, const std::string* state, Changes& changes);
  void LookAtControls(Changes& changes);
  void LookAtVariables(Changes& changes);
  template <class Rec>
  void LookAtRecords(const std::vector<Rec>& records, std::uint32_t number, Changes& changes);
  void RestoreVariables(std::string_view state);
  void ArrangeRows(const Changes& changes);

  Variables& vars_;
  FrmStart& form_;
  std::vector<Name> names_;
  std::map<std::string, std::uint32_t, std::less<>> numbers_;
  std::unordered_map<ThingKey, std::string> states_;
  std::size_t windows_ = 0;     ///< records of CharWindows when they were looked at
  std::size_t parameters_ = 0;  ///< the same of SystemParameters
  FieldPacker packer_;
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "files/qcf_document.h"

namespace marlinset {

/// A single value of a configuration: a text, or a number; a parameter's with its sign.
using SingleValue = std::variant<std::int64_t, std::string>;

/// A value with its name, as listings show it.
struct QcfNamedValue {
  /// "text message". Values of a window carry its name ("character windows / Text / Vertical"), those of a
  /// parameter its class and number ("system parameters / 2.7 / Value").
  std::string name;
  SingleValue value;
  const QcfField* field;
  std::string owner = {};  ///< the name up to the window or parameter ("system parameters / 2.7")
  int record = kNoIndex;   ///< number of the window or parameter in its list
};

/// All values of the configuration block, in file order. Names are unique: further windows or parameters of
/// one name are numbered ("character windows / Text (2)").
std::vector<QcfNamedValue> ValuesOf(const QcfDocument& document);

}  // namespace marlinset

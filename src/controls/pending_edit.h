// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace marlinset {

class Control;

/// The number or text to which the operator has set a control that does not hold it yet, because the tool
/// waits for the unit or for the answer to a box. The screen shows it already.
struct PendingEdit {
  const Control* control;
  std::variant<std::int64_t, std::string> value;
};

/// In the operator's order.
using PendingEdits = std::vector<PendingEdit>;

}  // namespace marlinset

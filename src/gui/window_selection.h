// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <utility>

#include "controls/control.h"
#include "controls/signal.h"

namespace marlinset {

/// Which character window the operator works on, for all views of the windows: by its row in the table,
/// kNoIndex for none. The row may have gone. The views share it, because none of them lives longest.
class WindowSelection {
 public:
  int Row() const { return row_; }
  void Select(int row) {
    if (std::exchange(row_, row) != row) Changed.Emit();
  }
  Signal<> Changed;

 private:
  int row_ = kNoIndex;
};

}  // namespace marlinset

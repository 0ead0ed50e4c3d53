// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/dialogs.h"

namespace marlinset {

/// The tool's boxes on the screen, over the window in use. The tool's text stands as it is, the remedy in
/// the informative line below. The default button is the safe one, Esc and the cross answer No or Cancel.
class QtDialogs : public Dialogs {
 public:
  BoxAnswer Show(const MessageBox& box) override;
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QWidget>

#include "core/frm_start.h"
#include "platform/guard.h"
#include "platform/virtual_pump.h"
#include "tests/support/fake_dialogs.h"

namespace marlinset {

/// A main window's panel model with nothing behind it: what the widgets do to it is all that happens.
class FormTest : public testing::Test {
 protected:
  /// The widget of a control, by its name, as a person who automates the window would look it up.
  template <class W>
  static W& Widget(const QWidget& in, const char* name) {
    W* found = in.findChild<W*>(QString::fromLatin1(name));
    if (!found) throw std::logic_error(std::string("no widget ") + name);
    return *found;
  }

  FakeDialogs dialogs_;
  Guard guard_{dialogs_};
  VirtualPump pump_;
  FrmStart form_{pump_, guard_};
};

}  // namespace marlinset

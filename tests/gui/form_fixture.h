// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gmock/gmock.h>

#include <QApplication>
#include <QTest>
#include <QTimer>

#include "controls/guard.h"
#include "core/frm_start.h"
#include "gui/main_window.h"
#include "platform/virtual_pump.h"
#include "tests/gui/qt_loop.h"
#include "tests/support/fake_dialogs.h"

namespace marlinset {

/// The controls of a main window without any rules: only what the widgets do to them happens.
struct FormTest : testing::Test {
  static void Show(QWidget& window) {
    window.show();
    window.activateWindow();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
  }
  static void Settle() { TurnQtsLoop(); }
  /// Types into a field over what it holds.
  static void Enter(QWidget& field, const char* text, Qt::Key last) {
    field.setFocus();
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&field, text);
    QTest::keyClick(&field, last);
  }
  static void Leave(QWidget& field, std::initializer_list<Qt::FocusReason> reasons) {
    for (const Qt::FocusReason reason : reasons) {
      QFocusEvent out(QEvent::FocusOut, reason);
      QApplication::sendEvent(&field, &out);
    }
  }
  /// Runs `show`, then `act` on the modal window that it opens; `act` closes that window.
  static void AtDialog(const std::function<void()>& show, const std::function<void(QWidget&)>& act) {
    bool seen = false;
    QTimer::singleShot(0, [&] {
      QWidget* dialog = QApplication::activeModalWidget();
      if (!dialog) return;
      act(*dialog);
      Settle();
      seen = !dialog->isVisible();
      dialog->close();
    });
    show();
    EXPECT_TRUE(seen);
  }

  FakeDialogs dialogs_;
  Guard guard_{dialogs_};
  VirtualPump pump_;
  FrmStart form_{pump_, guard_};
  QWidget window_;
};

/// A complete window with two character windows and two parameters, and a hidden one of each.
struct MainWindowTest : FormTest {
  MainWindowTest() {
    form_.ForWindowRow([](auto& array) { array(0).SetVisible(false); });
    for (const int row : {2, 1}) {
      form_.ForWindowRow([row](auto& array) { array.Load(row).SetVisible(true); });
      form_.lName(row).SetCaption("Window " + std::to_string(row));
      form_.ForParameterRow([row](auto& array) { array.Load(row); });
      form_.lClass(row).SetVisible(true);
      form_.lParam(row).SetCaption(std::to_string(row));
      form_.lDesc(row).SetCaption("Gain " + std::to_string(row));
      form_.tVal(row).SetText("7");
      form_.udVal(row).SetMax(100);
      form_.udVal(row).SetVisible(true);
    }
    form_.lClass(0).SetVisible(false);
  }
  void Open(MainWindow& window, Frame FrmStart::*panel) {
    for (const auto other : kPanels) (form_.*other).SetVisible(other == panel);
    form_.SetVisible(true);
    window.resize(1400, 900);  // room for all, so that nothing scrolls
    Show(window);
  }

  static constexpr Frame FrmStart::*kPanels[] = {&FrmStart::fCodes, &FrmStart::fOutputs, &FrmStart::fWindows,
                                                 &FrmStart::fParameters, &FrmStart::fDownConverter};
};

}  // namespace marlinset

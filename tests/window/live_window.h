// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QWidget>
#include <memory>
#include <string>
#include <vector>

#include "gui/main_window.h"
#include "tests/gui/qt_loop.h"
#include "tests/support/tool_rig.h"

namespace marlinset {

/// A tool's window under mouse and keyboard. As on a desktop, events are queued and arrive in one batch when
/// Qt's loop turns, also while the tool waits.
class LiveWindow {
 public:
  explicit LiveWindow(ToolRig& rig);

  QWidget& Window() { return *window_; }
  QWidget& Widget(const std::string& name) const;
  /// Shows a panel at full size and lets the tool come to rest.
  void Show(int view);
  /// Lets the tool come to rest. Not during a wait: this deletes widgets that were retired.
  static void Settle();

  void Move(QWidget& widget, QPoint at);
  /// Clicks as quickly as in a double click.
  void Click(QWidget& widget, QPoint at, int times = 1);
  void Click(QWidget& widget) { Click(widget, widget.rect().center()); }
  /// The left button goes down, is held while the mouse moves, goes up.
  void Press(QWidget& widget, QPoint at);
  void Hold(QWidget& widget, QPoint at);
  void Release(QWidget& widget, QPoint at);
  void ClickArrow(QWidget& spin, bool up);
  /// Chooses an entry of a drop-down list.
  void Pick(const std::string& box, int entry);
  /// A press, without its release for a key that is held down.
  void Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString& text = {});
  void Type(const char* letters);
  void Wheel(QWidget& widget, bool up);

  /// Where a widget does not show what its control holds.
  std::vector<std::string> Disagreements() const;

 private:
  void Mouse(QWidget& widget, QPoint at, Qt::MouseButtons buttons, Qt::MouseButton button, int type,
             int moment);

  ToolRig& rig_;
  std::unique_ptr<MainWindow> window_;
};

}  // namespace marlinset

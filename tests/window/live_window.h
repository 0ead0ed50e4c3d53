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

/// The window of a tool under an operator's mouse and keyboard. Events are queued as the desktop queues them:
/// they arrive when Qt's loop turns, those of one call in one batch; it turns also while the tool waits.
class LiveWindow {
 public:
  explicit LiveWindow(ToolRig& rig);

  QWidget& Window() { return *window_; }
  /// The widget of a control.
  QWidget& Widget(const std::string& name) const;
  /// Shows a panel, with room for all of it, and lets the tool come to rest.
  void Show(int view);
  /// Lets the tool come to rest. Not for the middle of a wait: widgets that were put away are deleted.
  static void Settle();

  void Move(QWidget& widget, QPoint at);
  /// `times`: as quickly as double clicks are.
  void Click(QWidget& widget, QPoint at, int times = 1);
  void Click(QWidget& widget) { Click(widget, widget.rect().center()); }
  /// The arrow of a spin.
  void ClickArrow(QWidget& spin, bool up);
  /// A press, without its release for a key that is held down.
  void Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString& text = {});
  void Type(const char* letters);
  void Wheel(QWidget& widget, bool up);

  /// Where a widget shows something else than its control holds.
  std::vector<std::string> Disagreements() const;

 private:
  void Mouse(QWidget& widget, QPoint at, Qt::MouseButtons buttons, Qt::MouseButton button, int type,
             int moment);

  ToolRig& rig_;
  std::unique_ptr<MainWindow> window_;
};

}  // namespace marlinset

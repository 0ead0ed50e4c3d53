// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMainWindow>
#include <functional>
#include <string>

#include "core/frm_start.h"
#include "gui/binding.h"

namespace marlinset {

/// What the window asks of whoever put it together.
struct WindowHooks {
  /// The device behind a port number, empty when there is none.
  std::function<std::string(int)> deviceName;
  /// The operator wants to close the window; whether it may.
  std::function<bool()> mayClose;
};

/// The main window: shows FrmStart and hands every action of the operator to it. It comes up and goes with
/// the form's Visible flag. The form has to outlive it.
class MainWindow : public QMainWindow {
  Q_OBJECT
 public:
  explicit MainWindow(FrmStart& form, WindowHooks hooks = {});

 protected:
  void closeEvent(QCloseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  QWidget* MakeLog();
  void ShowForm();

  FrmStart& form_;
  WindowHooks hooks_;
  bool formVisible_ = false;
  Listening<> listening_;
};

}  // namespace marlinset

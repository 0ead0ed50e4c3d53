// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <functional>

#include "core/frm_splash.h"
#include "gui/widgets/binding.h"

namespace marlinset {

/// Shows FrmSplash: icon, title and version, a quarter of the screen from its top left corner, painted before
/// anything is loaded. A click or a key closes it early. The form must outlive it.
class SplashWindow : public QWidget {
  Q_OBJECT
 public:
  SplashWindow(FrmSplash& form, std::function<void()> skip);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void ShowForm();
  void Skip();

  FrmSplash& form_;
  std::function<void()> skip_;
  Listening<> listening_;
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMargins>
#include <QObject>
#include <QPoint>
#include <QSize>

class QWidget;

namespace marlinset {

/// Room for `lines` lines of `letters` average letters in the widget's font, which makes a window's first
/// size grow with the desktop's text.
QSize RoomForText(const QWidget& widget, int letters, int lines);

/// Makes the window `size`, at most as large as the screen has room for inside a frame of these margins, and
/// puts the frame's corner as near to `corner` as all of it can be seen.
void StandOnScreen(QWidget& window, QPoint corner, QSize size, QMargins frame);

/// Scrolls the surrounding area so that the widget is visible; does nothing on a hidden panel.
void BringIntoView(QWidget& widget);

/// Brings a window onto the screen with its frame, once: how much the window manager draws around it is
/// known only some time after it has come up. Belongs to the window.
class ScreenFit : public QObject {
  Q_OBJECT
 public:
  explicit ScreenFit(QWidget& window);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Fit();

  QWidget& window_;
};

}  // namespace marlinset

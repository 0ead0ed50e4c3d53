// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/widgets/screen_fit.h"

#include <QEvent>
#include <QScreen>
#include <QScrollArea>
#include <QTimer>
#include <QWidget>
#include <QWindow>

namespace marlinset {

QSize RoomForText(const QWidget& widget, int letters, int lines) {
  const QFontMetrics metrics = widget.fontMetrics();
  return {metrics.averageCharWidth() * letters, metrics.height() * lines};
}

void BringIntoView(QWidget& widget) {
  if (!widget.isVisible()) return;
  for (QWidget* around = widget.parentWidget(); around; around = around->parentWidget()) {
    if (auto* area = qobject_cast<QScrollArea*>(around)) area->ensureWidgetVisible(&widget);
  }
}

void StandOnScreen(QWidget& window, QPoint corner, QSize size, QMargins frame) {
  const QRect desk = window.screen()->availableGeometry();
  size = size.boundedTo(desk.marginsRemoved(frame).size());
  const QRect whole =
      QRect(corner, size).marginsAdded({0, 0, frame.left() + frame.right(), frame.top() + frame.bottom()});
  window.resize(size);
  window.move(qBound(desk.left(), corner.x(), desk.right() + 1 - whole.width()),
              qBound(desk.top(), corner.y(), desk.bottom() + 1 - whole.height()));
}

ScreenFit::ScreenFit(QWidget& window) : QObject(&window), window_(window) {
  window.installEventFilter(this);
}

bool ScreenFit::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  if (type == QEvent::Show || type == QEvent::Move || type == QEvent::Resize) {
    QTimer::singleShot(0, this, &ScreenFit::Fit);
  }
  return QObject::eventFilter(watched, event);
}

void ScreenFit::Fit() {
  const bool stands =
      window_.isVisible() && !window_.isMinimized() && !window_.isMaximized() && !window_.isFullScreen();
  const QMargins frame = stands ? window_.windowHandle()->frameMargins() : QMargins();
  if (frame.isNull()) return;
  window_.removeEventFilter(this);
  StandOnScreen(window_, window_.pos(), window_.size(), frame);
  deleteLater();
}

}  // namespace marlinset

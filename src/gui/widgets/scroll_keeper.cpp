// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/widgets/scroll_keeper.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QEvent>
#include <QScrollBar>

namespace marlinset {

ScrollKeeper::ScrollKeeper(QAbstractScrollArea& area, Button& send)
    : QObject(&area), area_(area), listening_(send.Changed, [this, &send] { Follow(!send.Enabled()); }) {
  // Wheel, handle and keys, but not changes by code.
  connect(area.verticalScrollBar(), &QAbstractSlider::actionTriggered, this, [this] { LeaveToHands(); });
}

bool ScrollKeeper::MayScroll(const QAbstractScrollArea& area) {
  const auto* keeper = area.findChild<ScrollKeeper*>(QString(), Qt::FindDirectChildrenOnly);
  return !keeper || !keeper->sending_ || keeper->place_;
}

/// During a send, of the whole program: fields and heads keep to themselves what is done to them.
bool ScrollKeeper::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::KeyPress:
    case QEvent::Wheel:
      if (watched == &area_ ||
          (watched->isWidgetType() && area_.isAncestorOf(static_cast<QWidget*>(watched)))) {
        LeaveToHands();
      }
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

void ScrollKeeper::Follow(bool sending) {
  if (sending == sending_) return;
  sending_ = sending;
  QScrollBar& bar = *area_.verticalScrollBar();
  if (sending) {
    place_ = bar.value();
    qApp->installEventFilter(this);
  } else {
    qApp->removeEventFilter(this);
    if (place_) bar.setValue(*place_);
  }
}

}  // namespace marlinset

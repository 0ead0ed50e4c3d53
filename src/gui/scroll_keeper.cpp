// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/scroll_keeper.h"

#include <QAbstractScrollArea>
#include <QEvent>
#include <QScrollBar>

namespace marlinset {

ScrollKeeper::ScrollKeeper(QAbstractScrollArea& area, FrmStart& form)
    : QObject(&area),
      area_(area),
      listening_(form.bSConfig.Changed, [this, &form] { Follow(!form.bSConfig.Enabled()); }) {
  // Wheel, handle and keys, but not changes by code.
  connect(area.verticalScrollBar(), &QAbstractSlider::actionTriggered, this, [this] { LeaveToHands(); });
}

void ScrollKeeper::HeedHands() {
  area_.installEventFilter(this);
  area_.viewport()->installEventFilter(this);
}

bool ScrollKeeper::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::KeyPress:
    case QEvent::Wheel:
      LeaveToHands();
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

/// The main action is disabled exactly while a setup is being sent.
void ScrollKeeper::Follow(bool sending) {
  if (sending == sending_) return;
  sending_ = sending;
  QScrollBar& bar = *area_.verticalScrollBar();
  if (sending) {
    place_ = bar.value();
  } else if (place_) {
    bar.setValue(*place_);
  }
}

}  // namespace marlinset

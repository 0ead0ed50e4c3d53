// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <optional>

#include "controls/control_types.h"
#include "controls/signal.h"

class QAbstractScrollArea;

namespace marlinset {

/// A whole send scrolls the area to what is being sent, until the operator presses a button, a key or the
/// wheel in it. At the end of the send this scrolls the area back to its former place, unless the operator
/// was at work there. Belongs to the area.
class ScrollKeeper : public QObject {
  Q_OBJECT
 public:
  /// `send` is the main action; it is disabled exactly while a setup is being sent.
  ScrollKeeper(QAbstractScrollArea& area, Button& send);

  /// The operator is at work in the area: the rest of the send leaves it alone.
  void LeaveToHands() { place_.reset(); }
  /// Whether what is sent may be brought into view in an area, which may have a keeper.
  static bool MayScroll(const QAbstractScrollArea& area);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Follow(bool sending);

  QAbstractScrollArea& area_;
  bool sending_ = false;
  std::optional<int>
      place_;  ///< of the vertical bar before the send, while the operator leaves it to the send
  Listening<> listening_;
};

}  // namespace marlinset

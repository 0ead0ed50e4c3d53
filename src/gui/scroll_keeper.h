// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <optional>

#include "core/frm_start.h"
#include "gui/widgets/binding.h"

class QAbstractScrollArea;

namespace marlinset {

/// A whole send scrolls the area to what is being sent. At its end this scrolls the area back to its former
/// place, unless the operator has scrolled it meanwhile. Belongs to the area.
class ScrollKeeper : public QObject {
  Q_OBJECT
 public:
  ScrollKeeper(QAbstractScrollArea& area, FrmStart& form);

  /// From a press, a key or a turn of the wheel in the area on, the rest of a send leaves it alone.
  void HeedHands();
  /// The operator is at work in the area.
  void LeaveToHands() { place_.reset(); }
  /// Whether what is sent may be brought into view.
  bool MayScroll() const { return !sending_ || place_; }

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

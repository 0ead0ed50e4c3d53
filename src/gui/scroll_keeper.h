// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <optional>

#include "core/frm_start.h"
#include "gui/widgets/binding.h"

class QAbstractScrollArea;

namespace marlinset {

/// The send of a whole setup scrolls to what is on its way; at its end the area stands where it stood before,
/// unless the operator has scrolled it meanwhile. Belongs to the area.
class ScrollKeeper : public QObject {
  Q_OBJECT
 public:
  ScrollKeeper(QAbstractScrollArea& area, FrmStart& form);

 private:
  void Follow(bool sending);

  QAbstractScrollArea& area_;
  bool sending_ = false;
  std::optional<int> place_;  ///< of the vertical bar, before the send
  Listening<> listening_;
};

}  // namespace marlinset

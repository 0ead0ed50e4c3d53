// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <vector>

#include "controls/signal.h"
#include "gui/widgets/soon.h"

namespace marlinset {

class FrmStart;
class HeldSettings;
class WholeSend;
struct UnheldMessage;

/// "3 changes not on the unit": how many messages Send Changes would put on the line. Empty while the tool
/// does not know what the unit holds, and when the unit holds all of it. Looks at most once in a turn of the
/// event loop, and only while it can be seen.
class ChangeCounter : public QLabel {
  Q_OBJECT
 public:
  ChangeCounter(FrmStart& form, HeldSettings& held, const WholeSend& send, QWidget* parent);
  /// Keeps room for any number, so that its neighbours stay in their places.
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

  /// What the unit does not hold, as far as the tool knows; during a send as it was before.
  Signal<const std::vector<UnheldMessage>&> Counted;

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void LookSoon();
  void Look();

  FrmStart& form_;
  const HeldSettings& held_;
  const WholeSend& send_;
  Soon soon_{[this] { Look(); }};
  Listening<> formListening_;
  Listening<> heldListening_;
};

}  // namespace marlinset

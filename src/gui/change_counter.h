// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <QTimer>

#include "controls/signal.h"

namespace marlinset {

class FrmStart;
class HeldSettings;
class WholeSend;

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

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void LookSoon();
  void Look();

  FrmStart& form_;
  const HeldSettings& held_;
  const WholeSend& send_;
  QTimer soon_;  ///< runs while a look is due
  Listening<> formListening_;
  Listening<> heldListening_;
};

}  // namespace marlinset

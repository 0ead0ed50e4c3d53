// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <optional>

#include "core/frm_start.h"
#include "gui/widgets/binding.h"

namespace marlinset {

/// The traffic indicator: the colour of `pComBut`, and because colour is never the only sign also a shape. In
/// interactive mode the visible one of the five pictures `Image1` lies on it, a heart with a dot that goes
/// round with each good poll.
class Indicator : public QWidget {
  Q_OBJECT
 public:
  enum class State { kClosed, kTraffic, kWaiting, kUnknown };

  Indicator(FrmStart& form, QWidget* parent);

  State Shown() const;
  /// Which frame of the heartbeat is seen, 0 to 4.
  std::optional<int> Heartbeat() const;
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void ShowControls();

  FrmStart& form_;
  std::vector<Listening<>> listening_;
  std::optional<int> heartbeatPainted_;
  Color colorPainted_ = kWindowColor;
};

}  // namespace marlinset

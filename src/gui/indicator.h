// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <optional>

#include "core/frm_start.h"
#include "gui/widgets/binding.h"

namespace marlinset {

/// The traffic indicator: the colour of `pComBut`, and also a shape, because colour must not be the only
/// sign. In interactive mode it shows the visible one of the five pictures `Image1`, a heart with a dot that
/// moves round with each good poll.
class Indicator : public QWidget {
  Q_OBJECT
 public:
  enum class State { kClosed, kTraffic, kWaiting, kUnknown };

  Indicator(FrmStart& form, QWidget* parent);

  State Shown() const;
  /// The visible frame of the heartbeat, 0 to 4.
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

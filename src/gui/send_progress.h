// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include "controls/signal.h"

namespace marlinset {

class WholeSend;

/// How far a send is: a thin bar and "43 of 95", the messages sent and planned; "Stopping" once the operator
/// has stopped it, "Closing" while the window waits for the characters to be on again. Otherwise it shows
/// what lies below it and keeps its place, so nothing moves.
class SendProgress : public QWidget {
  Q_OBJECT
 public:
  SendProgress(WholeSend& send, QWidget* parent);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }
  /// What stands beside the bar; empty without a send.
  const QString& Text() const { return text_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void ShowSend();
  QRect Bar() const;

  const WholeSend& send_;
  QString text_;
  double done_ = 0;  ///< 0 to 1
  Listening<> listening_;
};

}  // namespace marlinset

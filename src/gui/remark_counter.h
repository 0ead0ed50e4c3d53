// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>
#include <QToolButton>

#include "controls/signal.h"

namespace marlinset {

class FrmStart;
class RemarkList;

/// How many remarks there are on the setup: a quiet button that is empty when there are none. A click opens
/// them as a list, notes included; a choice there leads to the control. It follows the panels, at most once
/// in a turn of the event loop, and only while it can be seen.
class RemarkCounter : public QToolButton {
  Q_OBJECT
 public:
  /// `remarks` may be null: then it only shows what lRemarks says.
  RemarkCounter(FrmStart& form, RemarkList* remarks, QWidget* parent);
  /// Keeps room for any number, so that its neighbours stay in their places.
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void LookSoon();
  void Look();
  void ShowCount();
  void OpenList();
  bool HasAny() const;

  FrmStart& form_;
  RemarkList* remarks_;
  QTimer soon_;
  Listening<> touched_;
  Listening<> counted_;
};

}  // namespace marlinset

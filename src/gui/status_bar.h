// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStatusBar>
#include <optional>

#include "core/frm_start.h"
#include "gui/widgets/binding.h"
#include "gui/widgets/icons.h"

namespace marlinset {

/// One panel of the status bar: its picture, then its text, which is cut with an ellipsis if it does not fit
/// and always complete in the tool tip.
class StatusPanelView : public QWidget {
  Q_OBJECT
 public:
  StatusPanelView(FrmStart& form, StatusPanel& panel, QWidget* parent);
  /// The part of the text that fits the present width.
  QString ReadableText() const;
  std::optional<VideoPicture> Picture() const { return picture_; }
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void ShowControl();
  QRect TextArea() const;

  FrmStart& form_;
  StatusPanel& panel_;
  std::optional<VideoPicture> picture_;
};

/// The status bar: four panels of equal and constant width.
class StatusBarView : public QStatusBar {
  Q_OBJECT
 public:
  StatusBarView(FrmStart& form, QWidget* parent);
};

}  // namespace marlinset

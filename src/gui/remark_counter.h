// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QToolButton>
#include <optional>

#include "controls/signal.h"
#include "gui/widgets/soon.h"
#include "picture/remarks.h"

namespace marlinset {

class FrmStart;
class RemarkList;

/// How many remarks there are on the setup: a flat button, invisible while there are none. A click opens them
/// as a list, notes included; a choice there leads to the control. It follows the panels, at most once
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
  void paintEvent(QPaintEvent* event) override;
  /// A button that is given another text lays its neighbours out anew; this one only paints it.
  void initStyleOption(QStyleOptionToolButton* option) const override;

 private:
  void LookSoon();
  void Look();
  void ShowCount();
  void OpenList();
  std::optional<Severity> Worst() const;

  FrmStart& form_;
  RemarkList* remarks_;
  QString count_;                  ///< as shown
  std::optional<Severity> worst_;  ///< as shown; none without remarks
  Soon soon_{[this] { Look(); }};
  Listening<> formListening_;
  Listening<> countListening_;
};

}  // namespace marlinset

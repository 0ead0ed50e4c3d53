// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDockWidget>

#include "controls/signal.h"

namespace marlinset {

class FrmStart;
class MenuItem;

/// A panel that docks at the left, the right or the bottom, or floats on a second screen. Like the main
/// window it comes and goes with its control: its close button is a click on the menu's entry.
class FormDock : public QDockWidget {
  Q_OBJECT
 public:
  /// `name` is that by which the layout of the docks is restored.
  FormDock(FrmStart& form, MenuItem& item, const char* name, QWidget* parent);

  /// Whether the form wants it shown, perhaps behind another dock.
  bool Open() const;
  /// Is shown or hidden as the form says.
  virtual void FollowForm();

 protected:
  void closeEvent(QCloseEvent* event) override;
  FrmStart& GetForm() { return form_; }

 private:
  FrmStart& form_;
  MenuItem& item_;
  Listening<> itemListening_;
  Listening<> formListening_;
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStackedWidget>
#include <memory>
#include <vector>

#include "core/frm_start.h"
#include "gui/widgets/binding.h"

namespace marlinset {

class TableCommands;
class WindowSelection;

/// Shows the panel whose frame is visible. Each panel scrolls if the window is too small for it.
class PanelHost : public QStackedWidget {
  Q_OBJECT
 public:
  PanelHost(FrmStart& form, TableCommands* tables, std::shared_ptr<WindowSelection> selection,
            QWidget* parent);

 protected:
  bool focusNextPrevChild(bool next) override;

 private:
  bool LeadToViews();
  void Add(Frame& frame, QWidget* panel);
  void ShowVisible();

  FrmStart& form_;
  std::vector<std::pair<Frame*, QWidget*>> pages_;
  std::vector<Listening<>> listening_;
};

}  // namespace marlinset

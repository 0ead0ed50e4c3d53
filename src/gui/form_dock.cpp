// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/form_dock.h"

#include <QCloseEvent>

#include "core/frm_start.h"
#include "gui/widgets/look.h"
#include "gui/widgets/operator_queue.h"

namespace marlinset {

FormDock::FormDock(FrmStart& form, MenuItem& item, const char* name, QWidget* parent)
    : QDockWidget(Shown(item.Caption()), parent),
      form_(form),
      item_(item),
      itemListening_(item.Changed, [this] { FollowForm(); }),
      formListening_(form.Changed, [this] { FollowForm(); }) {
  // At the top it would come between the menu bar and the tools.
  setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea | Qt::BottomDockWidgetArea);
  setObjectName(QLatin1String(name));
}

bool FormDock::Open() const {
  return item_.Checked() && form_.Visible();
}

void FormDock::FollowForm() {
  if (isHidden() == Open()) setVisible(Open());
}

void FormDock::closeEvent(QCloseEvent* event) {
  event->ignore();  // it closes with its control
  OperatorQueue::OfProgram().Take(item_, {OperatorAction::Kind::kClick}, Turn::kAtOnce);
}

}  // namespace marlinset

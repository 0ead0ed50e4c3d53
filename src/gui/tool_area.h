// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include "core/frm_start.h"

class QBoxLayout;

namespace marlinset {

class RemarkList;
struct WindowHooks;

/// The area above the panels. First row: indicator, video standard, VITC mode, Open, Close, the main
/// action and what there is to remark before it; second row: the choice of the panel (Alt+1 to Alt+5), what
/// is going on with the unit, and the service buttons.
class ToolArea : public QWidget {
  Q_OBJECT
 public:
  ToolArea(FrmStart& form, const WindowHooks& hooks, QWidget* parent);

 private:
  QWidget* MakeVitcModes(FrmStart& form);
  QWidget* MakeViews(FrmStart& form);
  void AddStandard(FrmStart& form, QBoxLayout& row);
  void AddMain(FrmStart& form, RemarkList* remarks, QBoxLayout& row);
  void AddSend(FrmStart& form, const WindowHooks& hooks, QBoxLayout& row);
  void AddService(FrmStart& form, QBoxLayout& row);
};

}  // namespace marlinset

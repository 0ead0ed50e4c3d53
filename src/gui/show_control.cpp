// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/show_control.h"

#include <QLineEdit>
#include <QPointer>
#include <QTableView>
#include <QTimer>
#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>

#include "core/frm_start.h"
#include "gui/panel_views.h"
#include "gui/parameter_model.h"
#include "gui/widgets/look.h"
#include "gui/widgets/operator_queue.h"
#include "gui/widgets/screen_fit.h"
#include "panels/views.h"

namespace marlinset {
namespace {

/// The parameter list is one table: its rows have no widgets of their own.
bool IsOfParameterList(const FrmStart& form, const Control& control) {
  const std::array names = {&form.udVal.Name(), &form.lClass.Name(), &form.lParam.Name(), &form.lDesc.Name()};
  return std::ranges::any_of(names, [&](const std::string* name) { return *name == control.Name(); });
}

/// The view whose panel holds a widget; nothing for a widget beside the panels.
std::optional<std::size_t> ViewOf(const QWidget& widget, const QWidget& window, FrmStart& form) {
  std::size_t view = 0;
  for (const Frame* frame : PanelsByView(form)) {
    const auto* panel = window.findChild<QWidget*>(Shown(frame->FullName()));
    if (panel && panel->isAncestorOf(&widget)) return view;
    ++view;
  }
  return std::nullopt;
}

void ShowParameter(QTableView& table, int row) {
  const auto* model = qobject_cast<const ParameterModel*>(table.model());
  if (model && model->RowOf(row) < 0) {
    if (auto* filter = table.window()->findChild<QLineEdit*>(kParameterFilter)) filter->clear();
  }
  const int place = model ? model->RowOf(row) : -1;
  if (place >= 0) {
    table.setCurrentIndex(model->index(place, ParameterModel::kValue));
    table.scrollTo(table.currentIndex());
  }
  table.setFocus();
}

}  // namespace

void ShowControl(QWidget& window, FrmStart& form, const std::string& name) {
  const Control* control = form.Find(name);
  if (!control) return;
  const bool ofList = IsOfParameterList(form, *control);
  const QPointer<QWidget> widget =
      window.findChild<QWidget*>(Shown(ofList ? form.pParIn.FullName() : control->FullName()));
  if (!widget) return;
  const auto arrive = [widget, ofList, row = control->Index()] {
    if (!widget) return;
    if (auto* table = qobject_cast<QTableView*>(widget); table && ofList) return ShowParameter(*table, row);
    widget->setFocus();
    // A panel that has just come to the front finds its places first.
    QTimer::singleShot(0, widget, [target = widget.data()] { BringIntoView(*target); });
  };
  const std::optional<std::size_t> view = ViewOf(*widget, window, form);
  if (!view) return;
  if (PanelsByView(form)[*view]->Visible()) return arrive();
  // As the view buttons themselves: it sends nothing.
  OperatorQueue::OfProgram().Take(form.oView(static_cast<int>(*view)), {OperatorAction::Kind::kClick},
                                  Turn::kAtOnce, &window, arrive);
}

}  // namespace marlinset

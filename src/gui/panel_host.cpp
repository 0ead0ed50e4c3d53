// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/panel_host.h"

#include <QAbstractButton>
#include <QScrollArea>
#include <QVBoxLayout>
#include <algorithm>

#include "gui/panel_views.h"
#include "gui/widgets/look.h"
#include "gui/widgets/scroll_keeper.h"
#include "gui/widgets/widget_bindings.h"

namespace marlinset {

PanelHost::PanelHost(FrmStart& form, TableCommands* tables, std::shared_ptr<WindowSelection> selection,
                     QWidget* parent)
    : QStackedWidget(parent), form_(form) {
  Add(form.fCodes, MakeInputsPanel(form, this));
  Add(form.fOutputs, MakeOutputsPanel(form, this));
  Add(form.fWindows, MakeWindowsPanel(form, std::move(selection), this));
  Add(form.fParameters, MakeParametersPanel(form, tables, this));
  Add(form.fDownConverter, MakeDownConverterPanel(form, this));
  ShowVisible();
}

void PanelHost::Add(Frame& frame, QWidget* panel) {
  auto* area = new QScrollArea(this);
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  area->setFocusPolicy(Qt::NoFocus);
  auto* margin = new QWidget;
  auto* box = new QVBoxLayout(margin);
  SetSpaces(*box, *this, 2);
  box->addWidget(panel);
  area->setWidget(margin);
  new ScrollKeeper(*area, form_.bSConfig);
  addWidget(area);
  pages_.emplace_back(&frame, area);
  listening_.emplace_back(frame.Changed, [this] { ShowVisible(); });
}

/// A panel that goes while the operator is in it hands the focus on. The toolkit would give it to the video
/// standard, where the next arrow key or turn of the wheel goes on air.
bool PanelHost::focusNextPrevChild(bool next) {
  const bool changes = std::ranges::none_of(pages_, [](const auto& page) { return page.first->Visible(); });
  return (changes && LeadToViews()) || QStackedWidget::focusNextPrevChild(next);
}

bool PanelHost::LeadToViews() {
  const auto* views = window()->findChild<QWidget*>(Shown(form_.fView.FullName()));
  QAbstractButton* chosen = views ? ChosenOption(*views) : nullptr;
  if (!chosen || !chosen->isVisible()) return false;
  chosen->setFocus(Qt::OtherFocusReason);
  return true;
}

void PanelHost::ShowVisible() {
  for (const auto& [frame, page] : pages_) {
    if (!frame->Visible()) continue;
    // Behind another window the panel that went has kept the focus.
    if (page != currentWidget() && isAncestorOf(window()->focusWidget())) LeadToViews();
    setCurrentWidget(page);
    return;
  }
}

}  // namespace marlinset

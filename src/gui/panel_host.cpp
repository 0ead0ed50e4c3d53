// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/panel_host.h"

#include <QScrollArea>
#include <QVBoxLayout>

#include "gui/panel_views.h"
#include "gui/widgets/look.h"
#include "gui/widgets/scroll_keeper.h"

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

void PanelHost::ShowVisible() {
  for (const auto& [frame, page] : pages_) {
    if (!frame->Visible()) continue;
    setCurrentWidget(page);
    return;
  }
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later

#include "gui/panel_views.h"
#include "gui/widgets/fields.h"
#include "gui/widgets/group.h"

namespace marlinset {

QWidget* MakeInputsPanel(FrmStart& form, QWidget* parent) {
  auto* page = new QWidget(parent);
  auto* group = new Group(form.fCodes, page);
  group->AddRow(MakeLabel(form.ltimeBits(0), group, 'T'),
                new ComboField(form.comTB(0), kSourceCharacters, group));
  group->AddRow(MakeLabel(form.lUserBits(0), group, 'U'),
                new ComboField(form.ComUB(0), kSourceCharacters, group));
  FillPage(*page, group, Qt::AlignLeft | Qt::AlignTop);
  return page;
}

}  // namespace marlinset

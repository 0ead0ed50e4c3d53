// SPDX-License-Identifier: GPL-3.0-or-later
#include <QGridLayout>
#include <QVBoxLayout>

#include "gui/bindings.h"
#include "gui/fields.h"
#include "gui/group.h"
#include "gui/look.h"
#include "gui/panel_views.h"

namespace marlinset {
namespace {

constexpr int kModeCharacters = 28;

/// A group whose title is the name of its only field.
Group* MakeSingle(Frame& frame, ComboBox& combo, QWidget* parent) {
  auto* group = new Group(frame, parent);
  group->Grid().addWidget(new ComboField(combo, kModeCharacters, group), 1, 0, 1, 2);
  return group;
}

}  // namespace

QWidget* MakeDownConverterPanel(FrmStart& form, QWidget* parent) {
  auto* page = new QWidget(parent);
  auto* filters = new Group(form.fFilters, page);
  for (const int i : {1, 2}) {
    ComboBox& combo = form.ComDownConv(i);
    filters->AddRow(MakeLabel(Shown(combo.Caption()) + QLatin1Char(':'), filters),
                    new ComboField(combo, kModeCharacters, filters));
  }
  QWidget* column = MakeColumn(
      {MakeSingle(form.fDownConv, form.ComWin(FrmStart::kAspectRatio), page),
       MakeSingle(form.fProcessingMode, form.ComDownConv(FrmStart::kProcessingMode), page), filters},
      page);
  auto* rows = new QVBoxLayout(page);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->addWidget(column, 0, Qt::AlignLeft | Qt::AlignTop);
  rows->addStretch(1);
  Bind(*page, form.fDownConverter);
  return page;
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later

#include "gui/panel_views.h"
#include "gui/widgets/fields.h"
#include "gui/widgets/group.h"
#include "gui/widgets/look.h"
#include "gui/widgets/widget_bindings.h"

namespace marlinset {
namespace {

constexpr int kModeCharacters = 28;

/// A group whose title is the name of its only field.
Group* MakeSingle(Frame& frame, char mnemonic, ComboBox& combo, QWidget* parent) {
  auto* group = new Group(frame, parent);
  auto* field = new ComboField(combo, kModeCharacters, group);
  field->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);  // as wide as the labelled fields below
  group->AddTitled(field, mnemonic, 3);
  return group;
}

}  // namespace

QWidget* MakeDownConverterPanel(FrmStart& form, QWidget* parent) {
  auto* page = new QWidget(parent);
  auto* filters = new Group(form.fFilters, page);
  for (const auto& [i, mnemonic] :
       {std::pair{FrmStart::kVerticalFilter, 't'}, std::pair{FrmStart::kHorizontalFilter, 'z'}}) {
    ComboBox& combo = form.ComDownConv(i);
    filters->AddRow(MakeLabelFor(combo, filters, mnemonic), new ComboField(combo, kModeCharacters, filters));
  }
  QWidget* column = MakeColumn(
      {MakeSingle(form.fDownConv, 'a', form.ComWin(FrmStart::kAspectRatio), page),
       MakeSingle(form.fProcessingMode, 'd', form.ComDownConv(FrmStart::kProcessingMode), page), filters},
      page);
  FillPage(*page, column, Qt::AlignLeft | Qt::AlignTop);
  Bind(*page, form.fDownConverter);
  return page;
}

}  // namespace marlinset

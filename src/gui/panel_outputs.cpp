// SPDX-License-Identifier: GPL-3.0-or-later
#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>

#include "gui/panel_views.h"
#include "gui/widgets/fields.h"
#include "gui/widgets/group.h"
#include "gui/widgets/look.h"
#include "gui/widgets/widget_bindings.h"

namespace marlinset {
namespace {

constexpr int kDuplicateOffset = 4;  // upVitc1(5) is the duplicate of upVitc1(1)

QCheckBox* MakeCheck(CheckBox& control, QWidget* parent, char mnemonic) {
  auto* box = new QCheckBox(parent);
  Bind(*box, control, mnemonic);
  box->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  return box;
}

/// Time bits and user bits occur four times here: only the first pair has mnemonics.
void AddRouting(Group& group, FrmStart& form, int output) {
  group.AddRow(MakeLabel(form.ltimeBits(output), &group, output == 1 ? 'T' : '\0'),
               new ComboField(form.comTB(output), kSourceCharacters, &group));
  group.AddRow(MakeLabel(form.lUserBits(output), &group, output == 1 ? 'U' : '\0'),
               new ComboField(form.ComUB(output), kSourceCharacters, &group));
}

SpinField* MakeLine(FrmStart& form, int index, QWidget* parent) {
  auto* line = new SpinField(form.upVitc1(index), form.tLineNumber(index), parent);
  QSizePolicy keeps = line->sizePolicy();
  keeps.setRetainSizeWhenHidden(true);  // ticking the duplicates moves nothing
  line->setSizePolicy(keeps);
  return line;
}

/// One VITC line: its routing, its number and, when duplicates are on, that of its duplicate.
Group* MakeVitcLine(Frame& frame, FrmStart& form, int line, QWidget* parent) {
  auto* group = new Group(frame, parent);
  AddRouting(*group, form, line + 1);
  auto* numbers = new QWidget(group);
  auto* row = new QHBoxLayout(numbers);
  SetSpaces(*row, *numbers);
  SpinField* first = MakeLine(form, line, numbers);
  SpinField* duplicate = MakeLine(form, line + kDuplicateOffset, numbers);
  group->Name(*first, QStringLiteral("Line"));
  group->Name(*duplicate, QStringLiteral("Duplicate line"));
  QLabel* second = MakeLabel(QStringLiteral("Duplicate:"), numbers);
  second->setBuddy(duplicate);
  ShowWith(*second, form.upVitc1(line + kDuplicateOffset));
  row->addWidget(first);
  row->addSpacing(3 * SpaceUnit(*numbers));
  row->addWidget(second);
  row->addWidget(duplicate);
  row->addStretch(1);
  QLabel* label = MakeLabel(QStringLiteral("Line:"), group);
  group->AddRow(label, numbers);
  label->setBuddy(first);
  return group;
}

Group* MakeWhiteFlag(FrmStart& form, QWidget* parent) {
  auto* group = new Group(form.fWhite, parent);
  QCheckBox* enable = MakeCheck(form.chEnable, group, 'd');
  group->Name(*enable, enable->text());
  group->Grid().addWidget(enable, 1, 0, 1, 2);
  group->AddRow(MakeLabelFor(form.UpDown1, group, 'r'),
                new SpinField(form.UpDown1, form.tLineNumber(FrmStart::kWhiteFlagEcho), group));
  return group;
}

}  // namespace

QWidget* MakeOutputsPanel(FrmStart& form, QWidget* parent) {
  auto* page = new QWidget(parent);
  auto* checks = new QWidget(page);
  auto* rows = new QVBoxLayout(checks);
  SetSpaces(*rows, *checks);
  rows->setContentsMargins(2 * SpaceUnit(*checks), 0, 0, 0);  // in line with the fields in the groups
  rows->addWidget(MakeCheck(form.chVITC, checks, 'a'));
  rows->addWidget(MakeCheck(form.chDups, checks, 'i'));
  rows->addWidget(MakeCheck(form.chSync, checks, 'y'));
  auto* ltc = new Group(form.fLTCOut, page);
  AddRouting(*ltc, form, 1);
  Group* white = MakeWhiteFlag(form, page);
  AlignLabels({ltc, white});
  QWidget* left = MakeColumn({checks, ltc, white}, page);
  QWidget* right =
      MakeColumn({MakeVitcLine(form.fVITC1, form, 1, page), MakeVitcLine(form.fVITC2, form, 2, page),
                  MakeVitcLine(form.fVITC3, form, 3, page)},
                 page);
  FillPage(*page, new SideBySide(left, right, page));
  Bind(*page, form.fOutputs);
  return page;
}

}  // namespace marlinset

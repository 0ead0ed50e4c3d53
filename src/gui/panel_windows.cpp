// SPDX-License-Identifier: GPL-3.0-or-later
#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

#include "base/text.h"
#include "gui/panel_views.h"
#include "gui/widgets/fields.h"
#include "gui/widgets/group.h"
#include "gui/widgets/look.h"
#include "gui/widgets/widget_bindings.h"
#include "gui/window_table.h"
#include "link/command_table.h"

namespace marlinset {
namespace {

constexpr int kChoiceCharacters = 20;

void AddCombo(Group& group, ComboBox& combo, char mnemonic) {
  group.AddRow(MakeLabelFor(combo, &group, mnemonic), new ComboField(combo, kChoiceCharacters, &group));
}

Group* MakeAttributes(FrmStart& form, QWidget* parent) {
  auto* group = new Group(form.fAttribs, parent);
  AddCombo(*group, form.ComWin(FrmStart::kCharStyle), 'y');
  AddCombo(*group, form.ComWin(FrmStart::kFontSize), 'i');
  return group;
}

Group* MakeSlate(FrmStart& form, QWidget* parent) {
  auto* group = new Group(form.fVirtual, parent);
  AddCombo(*group, form.ComWin(FrmStart::kSlateMode), 'd');
  group->AddRow(MakeLabelFor(form.UDDur, group, 'r'),
                new SpinField(form.UDDur, form.tLineNumber(FrmStart::kSlateDurationEcho), group));
  auto* preview = new QCheckBox(group);
  Bind(*preview, form.chPrev, 'w');
  group->Name(*preview, preview->text());
  group->Grid().addWidget(preview, group->Grid().rowCount(), 1);
  return group;
}

/// How many of the 32 characters are used, and whether there are too many.
class CharacterCount : public QLabel {
 public:
  CharacterCount(const QLineEdit& line, QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignRight);
    connect(&line, &QLineEdit::textChanged, this, &CharacterCount::Count);
    Count(line.text());
  }

 private:
  void Count(const QString& text) {
    const std::size_t used = LengthOf(Typed(text));
    QString shown = QStringLiteral("%1 of %2 characters").arg(used).arg(kMessageCharacters);
    if (used > kMessageCharacters) shown += QStringLiteral(", the rest is cut");
    if (shown != this->text()) setText(shown);
  }
};

Group* MakeMessage(FrmStart& form, QWidget* parent) {
  auto* group = new Group(form.fWinMess, parent);
  auto* line = new QLineEdit(group);
  Bind(*line, form.tWinMess);
  group->AddTitled(line, 'T', 3);
  group->Grid().addWidget(new CharacterCount(*line, group), 2, 0, 1, 3);
  return group;
}

Group* MakeProgramOut(FrmStart& form, QWidget* parent) {
  auto* group = new Group(form.fSDIProgramOut, parent);
  group->AddTitled(new ComboField(form.ComWin(FrmStart::kSdiProgramOut), kChoiceCharacters, group), 'a', 2);
  return group;
}

}  // namespace

QWidget* MakeWindowsPanel(FrmStart& form, std::shared_ptr<WindowSelection> selection, QWidget* parent) {
  auto* page = new QWidget(parent);
  auto* position = new Group(form.fPosition, page);
  auto* table = new WindowTable(form, std::move(selection), position);
  position->Grid().addWidget(table, 1, 0, 1, 3);
  position->Grid().setRowStretch(1, 1);
  Group* attributes = MakeAttributes(form, page);
  Group* slate = MakeSlate(form, page);
  AlignLabels({attributes, slate});
  QWidget* right = MakeColumn({attributes, slate, MakeMessage(form, page), MakeProgramOut(form, page)}, page);
  auto* both = new SideBySide(position, right, page);
  both->LetFirstGrow(position->minimumSizeHint().width() + table->RoomForNames());
  FillPage(*page, both);
  Bind(*page, form.fWindows);
  return page;
}

}  // namespace marlinset

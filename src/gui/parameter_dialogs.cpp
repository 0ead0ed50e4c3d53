// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/parameter_dialogs.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "core/parameter_forms.h"
#include "gui/qt_dialogs.h"
#include "gui/widgets/group.h"
#include "gui/widgets/look.h"
#include "gui/widgets/widget_bindings.h"

namespace marlinset {
namespace {

constexpr int kNumberFigures = 8;
constexpr int kDescriptionFigures = 36;
constexpr int kRowsInView = 10;
constexpr int kDescriptionColumn = 2;

std::unique_ptr<QDialog> MakeWindow(const Form& form, QWidget* parent) {
  auto window = std::make_unique<QDialog>(parent);
  window->setObjectName(Shown(form.Name()));
  window->setWindowTitle(Shown(form.Caption()));
  return window;
}

QPushButton* AddBoundButton(QDialogButtonBox& box, QDialogButtonBox::ButtonRole role, Button& control,
                            char mnemonic) {
  auto* button = new QPushButton(&box);
  box.addButton(button, role);
  Bind(*button, control, mnemonic);
  return button;
}

void AddField(QFormLayout& rows, QDialog& window, TextBox& control, char mnemonic, int figures) {
  auto* field = new QLineEdit(&window);
  field->setMinimumWidth(FiguresWidth(window, figures));
  field->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  Bind(*field, control);
  rows.addRow(ShownWithMnemonic(control.Caption(), mnemonic), field);
}

std::unique_ptr<QDialog> MakeEditWindow(FrmEditParameters& form, QWidget* parent) {
  std::unique_ptr<QDialog> window = MakeWindow(form, parent);
  auto* all = new QVBoxLayout(window.get());
  SetSpaces(*all, *window, 2);
  auto* rows = new QFormLayout;
  rows->setLabelAlignment(Qt::AlignLeft);
  SetSpaces(*rows, *window);
  AddField(*rows, *window, form.txtClass, 'l', kNumberFigures);
  AddField(*rows, *window, form.txtParameter, 'P', kNumberFigures);
  AddField(*rows, *window, form.txtDescription, 'D', kDescriptionFigures);
  AddField(*rows, *window, form.txtValue, 'V', kNumberFigures);
  all->addLayout(rows);
  all->addWidget(MakeLabel(QStringLiteral("A number that is left empty becomes 0."), window.get()));
  auto* buttons = new QDialogButtonBox(window.get());
  AddBoundButton(*buttons, QDialogButtonBox::ApplyRole, form.cmdUpdate, 'U')->setDefault(true);
  AddBoundButton(*buttons, QDialogButtonBox::RejectRole, form.cmdDone, 'C');
  all->addSpacing(SpaceUnit(*window));
  all->addWidget(buttons);
  all->setSizeConstraint(QLayout::SetFixedSize);
  return window;
}

void ShowRows(QTreeWidget& view, const ListView& list) {
  const QSignalBlocker silent(&view);
  view.clear();
  for (const ListView::Row& row : list.Rows()) {
    auto* item = new QTreeWidgetItem(&view);
    for (int column = 0; column < static_cast<int>(row.size()); ++column) {
      item->setText(column, Shown(row[static_cast<std::size_t>(column)]));
      if (column != kDescriptionColumn) item->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    }
  }
  view.setCurrentItem(list.Selected() < 0 ? nullptr : view.topLevelItem(list.Selected()));
  for (int column = 0; column < view.columnCount(); ++column) {
    if (column != kDescriptionColumn) view.resizeColumnToContents(column);
  }
}

QTreeWidget* MakeList(ListView& list, QWidget* parent) {
  auto* view = new QTreeWidget(parent);
  QStringList heads;
  for (const std::string& column : list.Columns()) heads << Shown(column);
  view->setHeaderLabels(heads);
  view->setRootIsDecorated(false);
  view->setUniformRowHeights(true);
  view->setAlternatingRowColors(true);
  view->setAllColumnsShowFocus(true);
  view->header()->setStretchLastSection(false);
  view->header()->setSectionResizeMode(kDescriptionColumn, QHeaderView::Stretch);
  view->setMinimumSize(FiguresWidth(*view, kDescriptionFigures + 4 * kNumberFigures),
                       view->fontMetrics().lineSpacing() * (kRowsInView + 2));
  auto* binding = new Binding(*view, list, [view, &list] { ShowRows(*view, list); });
  binding->Show();
  // The selection, not the current item: the list sets that by itself when it gets the focus.
  QObject::connect(view, &QTreeWidget::itemSelectionChanged, binding, [view, binding] {
    for (QTreeWidgetItem* item : view->selectedItems()) {
      binding->Act({OperatorAction::Kind::kSelect, view->indexOfTopLevelItem(item), Typed(item->text(0))});
    }
  });
  return view;
}

std::unique_ptr<QDialog> MakeDeleteWindow(FrmDeleteParameter& form, QWidget* parent) {
  std::unique_ptr<QDialog> window = MakeWindow(form, parent);
  auto* all = new QVBoxLayout(window.get());
  SetSpaces(*all, *window, 2);
  QTreeWidget* list = MakeList(form.lstParameter, window.get());
  QLabel* label = MakeLabel(form.Label1, window.get(), 'h');
  label->setBuddy(list);
  list->setAccessibleName(Shown(form.Label1.Caption()));
  all->addWidget(label);
  all->addWidget(list, 1);
  auto* buttons = new QDialogButtonBox(window.get());
  AddBoundButton(*buttons, QDialogButtonBox::DestructiveRole, form.Command2, 'D')->setAutoDefault(false);
  AddBoundButton(*buttons, QDialogButtonBox::RejectRole, form.Command1, 'C')->setDefault(true);
  all->addWidget(buttons);
  return window;
}

}  // namespace

void AddParameterWindows(QtDialogs& dialogs, FrmEditParameters& edit, FrmDeleteParameter& remove) {
  dialogs.AddWindow(edit, [&edit](QWidget* parent) { return MakeEditWindow(edit, parent); });
  dialogs.AddWindow(remove, [&remove](QWidget* parent) { return MakeDeleteWindow(remove, parent); });
}

}  // namespace marlinset

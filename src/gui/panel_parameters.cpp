// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "exchange/table_commands.h"
#include "gui/panel_views.h"
#include "gui/parameter_table.h"
#include "gui/widgets/filter_field.h"
#include "gui/widgets/group.h"
#include "gui/widgets/look.h"
#include "gui/widgets/widget_bindings.h"

namespace marlinset {
namespace {

constexpr int kWidestFigures = 160;
constexpr int kFilterFigures = 36;

void ShowCount(QLabel& count, const ParameterModel& model) {
  const int shown = model.rowCount();
  const int all = model.AllRows();
  const QString text = shown == all ? QStringLiteral("%1 parameters").arg(all)
                                    : QStringLiteral("%1 of %2 parameters").arg(shown).arg(all);
  if (text != count.text()) count.setText(text);
}

/// The filter, which Ctrl+F leads to, and how many rows it leaves.
void AddFilter(QBoxLayout& row, ParameterTable& table, QWidget* page) {
  auto* filter = new FilterField(kParameterFilter, QStringLiteral("Filter of the parameter list"), page);
  filter->setToolTip(
      QStringLiteral("Class, number (2.7), words of the description, or the value as shown (Ctrl+F)"));
  filter->setMinimumWidth(FiguresWidth(*filter, kFilterFigures));
  filter->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  filter->ReachBy(QKeySequence::Find, *page);
  QObject::connect(filter, &FilterField::textChanged, &table,
                   [&table](const QString& text) { table.Model().SetFilter(ParameterFilter(text)); });
  QObject::connect(filter, &FilterField::Left, &table, [&table] {
    if (!table.selectionModel()->hasSelection()) table.selectRow(0);
    table.setFocus(Qt::OtherFocusReason);
  });
  auto* label = MakeLabel(QStringLiteral("Filter:"), page);
  label->setBuddy(filter);
  row.addWidget(label);
  row.addWidget(filter);
  auto* count = new QLabel(page);
  QObject::connect(&table.Model(), &ParameterModel::Arranged, count,
                   [count, &table] { ShowCount(*count, table.Model()); });
  ShowCount(*count, table.Model());
  row.addWidget(count);
}

QAction* AddAction(ParameterTable& table, const char* text, const QKeySequence& keys) {
  auto* action = new QAction(QString::fromLatin1(text), &table);
  action->setShortcut(keys);
  // An open editor has the focus, and keeps its own copy and paste.
  action->setShortcutContext(Qt::WidgetShortcut);
  table.addAction(action);
  return action;
}

/// What can be done with the selected rows, by keys, menu and button. The clipboard is read at once, the
/// parameters change in their turn.
QPushButton* AddCommands(ParameterTable& table, FrmStart& form, TableCommands& commands, QWidget* page) {
  const auto inTurn = [&table, &form](std::function<void()> action) {
    OperatorQueue::OfProgram().Take(form, table, std::move(action));
  };
  table.setContextMenuPolicy(Qt::ActionsContextMenu);
  QAction* copy = AddAction(table, "&Copy", QKeySequence::Copy);
  QAction* paste = AddAction(table, "&Paste", QKeySequence::Paste);
  QAction* reset = AddAction(table, "&Reset to Reference", {});
  QObject::connect(copy, &QAction::triggered, &table, [&table, &commands] {
    const std::vector<ParameterKey> keys = table.SelectedKeys();
    if (!keys.empty()) QGuiApplication::clipboard()->setText(Shown(commands.CopyOf(keys)));
  });
  QObject::connect(paste, &QAction::triggered, &table, [&table, &commands, inTurn] {
    inTurn([&commands, text = Typed(QGuiApplication::clipboard()->text()), keys = table.SelectedKeys()] {
      commands.Paste(text, keys);
    });
  });
  QObject::connect(reset, &QAction::triggered, &table, [&table, &commands, inTurn] {
    inTurn([&commands, keys = table.SelectedKeys()] { commands.Reset(keys); });
  });
  auto* button = new QPushButton(QStringLiteral("Reset to Reference"), page);
  button->setObjectName(QStringLiteral("resetToReference"));
  button->setToolTip(QStringLiteral("Give the selected parameters the values of the reference database"));
  button->setAutoDefault(false);
  button->setFocusPolicy(Qt::TabFocus);  // a click leaves the hands in the list
  QObject::connect(button, &QPushButton::clicked, reset, &QAction::trigger);
  const auto enable = [=, &table] {
    const bool any = table.selectionModel()->hasSelection();
    copy->setEnabled(any);
    reset->setEnabled(any && !table.SelectedDifferences().empty());
    button->setEnabled(reset->isEnabled() && table.isEnabled());
  };
  QObject::connect(&table, &ParameterTable::SelectionMayDiffer, button, enable);
  enable();
  return button;
}

}  // namespace

QWidget* MakeParametersPanel(FrmStart& form, TableCommands* commands, QWidget* parent) {
  auto* page = new QWidget(parent);
  ReferenceValue reference;
  if (commands) reference = [commands](const ParameterKey& key) { return commands->ReferenceOf(key); };
  auto* table = new ParameterTable(form, std::move(reference), page);
  BindFlags(*table, form.pParIn);
  auto* above = new QHBoxLayout;
  SetSpaces(*above, *page);
  AddFilter(*above, *table, page);
  above->addStretch(1);
  if (commands) above->addWidget(AddCommands(*table, form, *commands, page));
  auto* sheet = new QWidget(page);
  auto* rows = new QVBoxLayout(sheet);
  SetSpaces(*rows, *page);
  rows->addLayout(above);
  rows->addWidget(table, 1);
  // On a wide screen a value stays beside its description.
  sheet->setMaximumWidth(FiguresWidth(*table, kWidestFigures));
  auto* row = new QHBoxLayout(page);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(sheet, kNearlyAll);
  row->addStretch(1);
  Bind(*page, form.fParameters);
  return page;
}

}  // namespace marlinset

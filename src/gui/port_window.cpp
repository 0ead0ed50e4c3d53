// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/port_window.h"

#include <QComboBox>
#include <QCompleter>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>

#include "gui/widgets/group.h"
#include "gui/widgets/look.h"
#include "gui/widgets/widget_bindings.h"

namespace marlinset {
namespace {

constexpr int kDeviceFigures = 62;
constexpr int kNoteLines = 3;

/// Shows the list and the text of a box into which the operator may type.
void ShowDevices(QComboBox& field, const ComboBox& control) {
  const QSignalBlocker silent(&field);
  QStringList entries;
  for (const std::string& entry : control.List()) entries << Shown(entry);
  QStringList present;
  for (int i = 0; i < field.count(); ++i) present << field.itemText(i);
  const QString text = Shown(control.Text());
  const int cursor = field.lineEdit()->cursorPosition();
  if (entries != present) {
    field.clear();
    field.addItems(entries);
  }
  field.setCurrentIndex(static_cast<int>(entries.indexOf(text)));
  if (field.currentText() == text && entries == present) return;
  field.setEditText(text);
  field.lineEdit()->setCursorPosition(cursor);
}

QComboBox* MakeDeviceField(ComboBox& control, QDialog& window) {
  auto* field = new QComboBox(&window);
  field->setEditable(true);
  field->setInsertPolicy(QComboBox::NoInsert);
  field->setCompleter(nullptr);  // it would type what the operator did not
  field->setMinimumWidth(FiguresWidth(window, kDeviceFigures));
  field->lineEdit()->setAcceptDrops(false);  // see Bind of a text box
  auto* binding = new Binding(*field, control, [field, &control] { ShowDevices(*field, control); });
  binding->Show();
  QObject::connect(field, &QComboBox::activated, binding, [field, binding](int index) {
    binding->Act({OperatorAction::Kind::kSelect, index, Typed(field->itemText(index))});
  });
  QObject::connect(field->lineEdit(), &QLineEdit::textEdited, binding, [binding](const QString& text) {
    binding->Act({.kind = OperatorAction::Kind::kType, .text = Typed(text)});
  });
  return field;
}

/// What is said about a device below it: with room for a failure and its remedy, so that the window keeps its
/// size.
QLabel* MakeNote(Label& control, QDialog& window) {
  QLabel* note = MakeLabel(control, &window);
  note->setWordWrap(true);
  note->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  note->setMinimumHeight(window.fontMetrics().lineSpacing() * kNoteLines);
  note->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return note;
}

void AddRow(QGridLayout& grid, FrmPorts& form, int port, QDialog& window) {
  const int row = 2 * (port - 1);
  const char digit = static_cast<char>('0' + port);
  QLabel* label = MakeLabel(form.lblPort(port), &window, digit);
  QComboBox* field = MakeDeviceField(form.comDevice(port), window);
  const QString name = Shown(form.lblPort(port).Caption());
  field->setAccessibleName(name);
  label->setBuddy(field);
  auto* test = new QPushButton(&window);
  test->setAutoDefault(false);
  Bind(*test, form.cmdTest(port));
  test->setAccessibleName(Shown(form.cmdTest(port).Caption()) + QLatin1Char(' ') + name);
  grid.addWidget(label, row, 0);
  grid.addWidget(field, row, 1);
  grid.addWidget(test, row, 2);
  grid.addWidget(MakeNote(form.lblNote(port), window), row + 1, 1, 1, 2);
}

QPushButton* AddButton(QDialogButtonBox& box, QDialogButtonBox::ButtonRole role, Button& control,
                       char mnemonic, Turn turn = Turn::kInOrder) {
  auto* button = new QPushButton(&box);
  button->setAutoDefault(false);
  box.addButton(button, role);
  Bind(*button, control, mnemonic, turn);
  return button;
}

}  // namespace

std::unique_ptr<QDialog> MakePortWindow(FrmPorts& form, QWidget* parent) {
  auto window = std::make_unique<QDialog>(parent);
  window->setObjectName(Shown(form.Name()));
  window->setWindowTitle(Shown(form.Caption()));
  auto* all = new QVBoxLayout(window.get());
  SetSpaces(*all, *window, 2);
  QLabel* hint =
      MakeLabel(QStringLiteral("A device that is found, the path of a device, or the address of a device "
                               "server: tcp://HOST:PORT or rfc2217://HOST:PORT."),
                window.get());
  hint->setWordWrap(true);
  all->addWidget(hint);
  all->addSpacing(SpaceUnit(*window));
  auto* grid = new QGridLayout;
  SetSpaces(*grid, *window);
  grid->setColumnStretch(1, 1);
  for (const int port : form.lblPort.Indices()) AddRow(*grid, form, port, *window);
  all->addLayout(grid, 1);
  auto* buttons = new QDialogButtonBox(window.get());
  AddButton(*buttons, QDialogButtonBox::ResetRole, form.cmdLook, 'S');
  AddButton(*buttons, QDialogButtonBox::ResetRole, form.cmdStop, 'p', Turn::kAtOnce);
  QPushButton* ok = AddButton(*buttons, QDialogButtonBox::AcceptRole, form.cmdOK, 'O');
  ok->setDefault(true);
  AddButton(*buttons, QDialogButtonBox::RejectRole, form.cmdCancel, 'C', Turn::kAtOnce);
  all->addWidget(buttons);
  // What is typed during a test counts, too: OK waits for its turn behind that, but not for the test.
  const auto endTest = [&form] {
    OperatorQueue::OfProgram().Take(form.cmdStop, {OperatorAction::Kind::kClick}, Turn::kAtOnce);
  };
  QObject::connect(ok, &QPushButton::clicked, buttons, endTest);
  QObject::connect(window.get(), &QDialog::finished, buttons, endTest);
  return window;
}

}  // namespace marlinset

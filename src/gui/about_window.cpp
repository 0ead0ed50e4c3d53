// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/about_window.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include "gui/widgets/group.h"
#include "gui/widgets/icons.h"
#include "gui/widgets/look.h"
#include "gui/widgets/widget_bindings.h"

namespace marlinset {
namespace {

constexpr int kIconLines = 3;     ///< height of the icon in lines of text
constexpr int kTextFigures = 48;  ///< width of the texts in digits

QLabel* AddText(QGridLayout& grid, Label& control, QWidget& window) {
  auto* label = new QLabel(&window);
  label->setWordWrap(true);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  label->setMinimumWidth(FiguresWidth(window, kTextFigures));
  Bind(*label, control);
  grid.addWidget(label, grid.rowCount(), 1);
  return label;
}

QLabel* MakeIcon(PictureBox& control, QWidget& window) {
  auto* icon = new QLabel(&window);
  const int side = window.fontMetrics().lineSpacing() * kIconLines;
  icon->setPixmap(ProgramIcon().pixmap(QSize(side, side), window.devicePixelRatioF()));
  BindFlags(*icon, control);
  icon->setAccessibleName(QStringLiteral("Program icon"));
  return icon;
}

/// A button whose caption marks its own mnemonic.
QPushButton* MakeButton(Button& control, Turn turn, QWidget& window) {
  auto* button = new QPushButton(&window);
  auto* binding =
      new Binding(*button, control, [button, &control] { button->setText(Shown(control.Caption())); });
  binding->Show();
  button->setAccessibleName(SpokenName(Shown(control.Caption())));
  QObject::connect(button, &QPushButton::clicked, binding,
                   [binding, turn] { binding->Act({OperatorAction::Kind::kClick}, turn); });
  return button;
}

}  // namespace

std::unique_ptr<QDialog> MakeAboutWindow(FrmAbout& form, QWidget* parent) {
  auto window = std::make_unique<QDialog>(parent);
  window->setObjectName(Shown(form.Name()));
  window->setWindowTitle(Shown(form.Caption()));
  auto* grid = new QGridLayout(window.get());
  SetSpaces(*grid, *window, 3);
  grid->setHorizontalSpacing(3 * SpaceUnit(*window));
  QLabel* title = AddText(*grid, form.lblTitle, *window);
  QFont bold = title->font();
  bold.setBold(true);
  title->setFont(bold);
  for (Label* label : {&form.lblVersion, &form.lblDatabase, &form.lblFirmWare})
    AddText(*grid, *label, *window);
  grid->addWidget(MakeIcon(form.Picture1, *window), 1, 0, grid->rowCount() - 1, 1, Qt::AlignTop);
  grid->addWidget(MakeRule(window.get()), grid->rowCount(), 1);
  AddText(*grid, form.lblDescription, *window);
  AddText(*grid, form.lblDisclaimer, *window);
  auto* buttons = new QHBoxLayout;
  SetSpaces(*buttons, *window);
  buttons->addStretch(1);
  QPushButton* info = MakeButton(form.cmdSysInfo, Turn::kInOrder, *window);
  QPushButton* close = MakeButton(form.cmdOK, Turn::kAtOnce, *window);
  close->setDefault(true);
  buttons->addWidget(info);
  buttons->addWidget(close);
  grid->addLayout(buttons, grid->rowCount(), 0, 1, 2);
  close->setFocus();
  return window;
}

}  // namespace marlinset

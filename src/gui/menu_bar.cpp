// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/menu_bar.h"

#include <QMenu>
#include <QMenuBar>
#include <vector>

#include "gui/bindings.h"
#include "gui/look.h"
#include "gui/main_window.h"
#include "platform/ms_comm.h"

namespace marlinset {
namespace {

/// One line of a menu; no item at all is a separator.
struct MenuLine {
  MenuItem* item = nullptr;
  char mnemonic = 0;
  bool ticks = false;
  QKeySequence keys = {};
  Turn turn = Turn::kInOrder;
};

void AddLines(QMenu& menu, const std::vector<MenuLine>& lines) {
  for (const MenuLine& line : lines) {
    if (!line.item) {
      menu.addSeparator();
      continue;
    }
    QAction* action = menu.addAction(QString());
    action->setCheckable(line.ticks);
    action->setShortcut(line.keys);
    Bind(*action, *line.item, line.mnemonic, line.turn);
  }
}

/// A menu that is itself an item of the panel model.
QMenu& AddSubMenu(QMenu& menu, MenuItem& item, char mnemonic, const std::vector<MenuLine>& lines) {
  QMenu* sub = menu.addMenu(QString());
  Bind(*sub->menuAction(), item, mnemonic);
  AddLines(*sub, lines);
  return *sub;
}

/// "Com 1" with the device behind it.
QString PortSuffix(const std::function<std::string(int)>& deviceName, int port) {
  const std::string device = deviceName ? deviceName(port) : std::string();
  return QStringLiteral("   ") + (device.empty() ? QStringLiteral("(no device)") : ShownLiteral(device));
}

void AddPorts(QMenu& menu, FrmStart& form, const WindowHooks& hooks) {
  // Before the entries are bound, so that they tell what was found.
  if (hooks.lookForDevices) QObject::connect(&menu, &QMenu::aboutToShow, &menu, hooks.lookForDevices);
  for (int port = kLowestPort; port <= kHighestPort; ++port) {
    QAction* action = menu.addAction(QString());
    action->setCheckable(true);
    Bind(*action, form.ComMenu(port),
         [deviceName = hooks.deviceName, port](const MenuItem& shown, QAction& entry) {
           entry.setText(ShownWithMnemonic(shown.Caption(), static_cast<char>('0' + port)) +
                         PortSuffix(deviceName, port));
         });
  }
}

/// The files last in use, each with its number as mnemonic and cut in the middle: folder and name tell most.
void AddRecent(QMenu& menu, ControlArray<MenuItem>& items) {
  constexpr int kLetters = 50;
  QAction* end = menu.addSeparator();  // separators that have nothing between them are not drawn
  menu.setToolTipsVisible(true);
  for (const int i : items.Indices()) {
    MenuItem& item = items(i);
    auto* action = new QAction(&menu);
    menu.insertAction(end, action);
    Bind(*action, item, [&menu, i](const MenuItem& recent, QAction& shown) {
      const int width = menu.fontMetrics().averageCharWidth() * kLetters;
      const QString name = menu.fontMetrics().elidedText(Shown(recent.Caption()), Qt::ElideMiddle, width);
      shown.setText(QStringLiteral("&%1  ").arg(i) + ShownLiteral(Typed(name)));
      shown.setToolTip(Shown(recent.Caption()));
    });
  }
}

void AddGuide(QMenu& menu, MenuItem& item, const WindowHooks& hooks) {
  QAction* action = menu.addAction(QString());
  action->setShortcut(QKeySequence::HelpContents);
  Bind(*action, item, 'U');
  if (hooks.showGuide) QObject::connect(action, &QAction::triggered, action, hooks.showGuide);
}

void FillOptions(QMenu& menu, FrmStart& form, const WindowHooks& hooks) {
  AddPorts(menu, form, hooks);
  menu.addSeparator();
  AddSubMenu(menu, form.mnuHardwareType, 'H', {{&form.mnuHD7340, 'H', true}, {&form.mnuHD7340Q, 'Q', true}});
  AddLines(menu, {{}, {&form.mnuAuto, 'A', true}, {&form.mnuMan, 'M', true}, {}});
  AddSubMenu(menu, form.mnuChar, 'I', {{&form.mnuCharOn, 'n', true}, {&form.mnuCharOff, 'f', true}});
  AddSubMenu(menu, form.mnuStat, 'S',
             {{&form.mnu10, '1', true},
              {&form.mnu20, '2', true},
              {&form.mnu30, '3', true},
              {&form.mnu60, '6', true},
              {&form.mnuNever, 'N', true}});
  AddLines(menu, {{}, {&form.mnuCommD, 'D', true}});
}

}  // namespace

void FillMenuBar(QMenuBar& bar, FrmStart& form, const WindowHooks& hooks) {
  QMenu& file = *bar.addMenu(QStringLiteral("&File"));
  AddLines(file, {{&form.mnuNew, 'N', false, QKeySequence::New},
                  {&form.mnuOpen, 'O', false, QKeySequence::Open},
                  {&form.mnuSav, 'S', false, QKeySequence::Save},
                  {&form.mnuSave, 'A', false, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S)},
                  {}});
  if (hooks.recentFiles) AddRecent(file, *hooks.recentFiles);
  AddLines(file, {{&form.mnuPrint, 'P', false, QKeySequence::Print},
                  {&form.mnuPreview, 'v'},
                  {&form.mnuExport, 'E'},
                  {},
                  {&form.mnuExit, 'x', false, QKeySequence(Qt::CTRL | Qt::Key_Q), Turn::kClosing}});
  QMenu* mode = bar.addMenu(QString());
  Bind(*mode->menuAction(), form.mnuMode, 'M');
  AddLines(*mode, {{&form.mnuInter, 'I', true}, {&form.mnuOff, 'O', true, {}, Turn::kAtOnce}});
  FillOptions(*bar.addMenu(QStringLiteral("&Options")), form, hooks);
  AddLines(*bar.addMenu(QStringLiteral("&Parameters")),
           {{&form.mnuAddParameter, 'A'}, {&form.mnuRemoveParameter, 'R'}});
  QMenu& help = *bar.addMenu(QStringLiteral("&Help"));
  AddLines(help, {{&form.mnuContents, 'C'}});
  AddGuide(help, form.mnuGuide, hooks);
  AddLines(help, {{&form.mnuAbout, 'A'}});
}

}  // namespace marlinset

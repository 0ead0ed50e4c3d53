// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/menu_bar.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QStyleOptionMenuItem>
#include <vector>

#include "gui/widgets/look.h"
#include "gui/widgets/widget_bindings.h"
#include "gui/window_hooks.h"
#include "platform/device_address.h"
#include "platform/ms_comm.h"

namespace marlinset {
namespace {

/// What an entry shows before its text: nothing, a tick, or which one of a choice is
/// on.
enum class Mark { kNone, kTick, kChoice };

/// One line of a menu; without an item it is a separator.
struct MenuLine {
  MenuItem* item = nullptr;
  char mnemonic = 0;
  Mark mark = Mark::kNone;
  QKeySequence keys = {};
  Turn turn = Turn::kInOrder;
};

/// A menu whose choices look like choices. The toolkit's own groups would move the ticks by themselves, but
/// here it is possible that none of a choice is on.
class Menu : public QMenu {
 public:
  using QMenu::QMenu;
  QAction* AddEntry(Mark mark) {
    QAction* action = addAction(QString());
    action->setCheckable(mark != Mark::kNone);
    action->setProperty(kChoice, mark == Mark::kChoice);
    return action;
  }

 protected:
  void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override {
    QMenu::initStyleOption(option, action);
    if (action->property(kChoice).toBool()) option->checkType = QStyleOptionMenuItem::Exclusive;
  }

 private:
  static constexpr const char* kChoice = "choice";
};

/// A field that is being edited takes Undo and Redo back from the menu only while it has something to undo or
/// redo itself. The toolkit's fields keep the keys in any case.
class UndoKeys : public QObject {
 public:
  explicit UndoKeys(QObject* parent) : QObject(parent) { qApp->installEventFilter(this); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::ShortcutOverride) return false;
    const auto* field = qobject_cast<QLineEdit*>(watched);
    if (!field && watched->inherits("QAbstractSpinBox")) field = watched->findChild<QLineEdit*>();
    if (!field) return false;
    const auto& key = *static_cast<QKeyEvent*>(event);
    return (key.matches(QKeySequence::Undo) && !field->isUndoAvailable()) ||
           (key.matches(QKeySequence::Redo) && !field->isRedoAvailable());
  }
};

Menu& AddMenu(QMenuBar& bar, const QString& title = {}) {
  auto* menu = new Menu(title, &bar);
  bar.addMenu(menu);
  return *menu;
}

void AddLines(Menu& menu, const std::vector<MenuLine>& lines) {
  for (const MenuLine& line : lines) {
    if (!line.item) {
      menu.addSeparator();
      continue;
    }
    QAction* action = menu.AddEntry(line.mark);
    action->setShortcut(line.keys);
    Bind(*action, *line.item, line.mnemonic, line.turn);
  }
}

/// A menu that is itself an item of the panel model.
void AddSubMenu(QMenu& menu, MenuItem& item, char mnemonic, const std::vector<MenuLine>& lines) {
  auto* sub = new Menu(&menu);
  menu.addMenu(sub);
  Bind(*sub->menuAction(), item, mnemonic);
  AddLines(*sub, lines);
}

/// "Com 1" with the device behind it, and whether it is open.
QString PortSuffix(const WindowHooks& hooks, int port, bool chosen) {
  const std::string device = hooks.deviceName ? ShownDevice(hooks.deviceName(port)) : std::string();
  QString suffix =
      QStringLiteral("   ") + (device.empty() ? QStringLiteral("(no device)") : ShownLiteral(device));
  if (chosen && hooks.portOpen && hooks.portOpen()) suffix += QStringLiteral("   (open)");
  return suffix;
}

void AddPorts(Menu& menu, FrmStart& form, const WindowHooks& hooks) {
  // Before the entries are bound, so that they show what was found.
  if (hooks.lookForDevices) QObject::connect(&menu, &QMenu::aboutToShow, &menu, hooks.lookForDevices);
  for (int port = kLowestPort; port <= kHighestPort; ++port) {
    Bind(*menu.AddEntry(Mark::kChoice), form.ComMenu(port),
         [hooks, port](const MenuItem& shown, QAction& entry) {
           entry.setText(ShownWithMnemonic(shown.Caption(), static_cast<char>('0' + port)) +
                         PortSuffix(hooks, port, shown.Checked()));
         });
  }
}

/// The files last in use, each with its number as mnemonic and cut in the middle: folder and name tell most.
void AddRecent(QMenu& menu, ControlArray<MenuItem>& items) {
  constexpr int kLetters = 50;
  QAction* end = menu.addSeparator();  // separators with nothing between them are not drawn
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

void AddGuide(Menu& menu, MenuItem& item, const WindowHooks& hooks) {
  QAction* action = menu.addAction(QString());
  action->setShortcut(QKeySequence::HelpContents);
  Bind(*action, item, 'U');
  if (hooks.showGuide) QObject::connect(action, &QAction::triggered, action, hooks.showGuide);
}

void FillOptions(Menu& menu, FrmStart& form, const WindowHooks& hooks) {
  AddPorts(menu, form, hooks);
  AddLines(menu, {{&form.mnuPorts, 'P'}, {}});
  AddSubMenu(menu, form.mnuHardwareType, 'H',
             {{&form.mnuHD7340, 'H', Mark::kChoice}, {&form.mnuHD7340Q, 'Q', Mark::kChoice}});
  AddLines(menu, {{}, {&form.mnuAuto, 'A', Mark::kChoice}, {&form.mnuMan, 'M', Mark::kChoice}, {}});
  AddSubMenu(menu, form.mnuChar, 'I',
             {{&form.mnuCharOn, 'n', Mark::kChoice}, {&form.mnuCharOff, 'f', Mark::kChoice}});
  AddSubMenu(menu, form.mnuStat, 'S',
             {{&form.mnu10, '1', Mark::kChoice},
              {&form.mnu20, '2', Mark::kChoice},
              {&form.mnu30, '3', Mark::kChoice},
              {&form.mnu60, '6', Mark::kChoice},
              {&form.mnuNever, 'N', Mark::kChoice}});
  AddLines(menu, {{}, {&form.mnuCommD, 'D', Mark::kTick}});
}

}  // namespace

void FillMenuBar(QMenuBar& bar, FrmStart& form, const WindowHooks& hooks) {
  Menu& file = AddMenu(bar, QStringLiteral("&File"));
  AddLines(file, {{&form.mnuNew, 'N', Mark::kNone, QKeySequence::New},
                  {&form.mnuOpen, 'O', Mark::kNone, QKeySequence::Open},
                  {&form.mnuSav, 'S', Mark::kNone, QKeySequence::Save},
                  {&form.mnuSave, 'A', Mark::kNone, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S)},
                  {&form.mnuCompare, 'C', Mark::kNone, QKeySequence(Qt::CTRL | Qt::Key_D)},
                  {}});
  if (hooks.recentFiles) AddRecent(file, *hooks.recentFiles);
  AddLines(file, {{&form.mnuPrint, 'P', Mark::kNone, QKeySequence::Print},
                  {&form.mnuPreview, 'v'},
                  {&form.mnuExport, 'E'},
                  {}});
  AddSubMenu(file, form.mnuImport, 'I', {{&form.mnuImportPar, 'P'}, {&form.mnuImportWin, 'W'}});
  AddSubMenu(file, form.mnuExportCsv, 't', {{&form.mnuExportPar, 'P'}, {&form.mnuExportWin, 'W'}});
  AddLines(file, {{}, {&form.mnuExit, 'x', Mark::kNone, QKeySequence(Qt::CTRL | Qt::Key_Q), Turn::kClosing}});
  AddLines(AddMenu(bar, QStringLiteral("&Edit")),
           {{&form.mnuUndo, 'U', Mark::kNone, QKeySequence(Qt::CTRL | Qt::Key_Z)},
            {&form.mnuRedo, 'R', Mark::kNone, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)}});
  new UndoKeys(&bar);
  Menu& mode = AddMenu(bar);
  Bind(*mode.menuAction(), form.mnuMode, 'M');
  AddLines(mode,
           {{&form.mnuInter, 'I', Mark::kChoice}, {&form.mnuOff, 'O', Mark::kChoice, {}, Turn::kAtOnce}});
  // Each letter of its name leads to something else already.
  AddLines(AddMenu(bar, QStringLiteral("View")),
           {{&form.mnuPicture, 'P', Mark::kTick, QKeySequence(Qt::Key_F9), Turn::kAtOnce},
            {&form.mnuTraffic, 'T', Mark::kTick, QKeySequence(Qt::Key_F8), Turn::kAtOnce},
            {},
            {&form.mnuStill, 'B'},
            {&form.mnuNoStill, 'N'},
            {&form.mnuSafe, 'S', Mark::kTick, {}, Turn::kAtOnce},
            {&form.mnuSlate, 'l', Mark::kTick, {}, Turn::kAtOnce}});
  FillOptions(AddMenu(bar, QStringLiteral("&Options")), form, hooks);
  AddLines(AddMenu(bar, QStringLiteral("&Parameters")),
           {{&form.mnuAddParameter, 'A'}, {&form.mnuRemoveParameter, 'R'}});
  Menu& help = AddMenu(bar, QStringLiteral("&Help"));
  AddLines(help, {{&form.mnuContents, 'C'}});
  AddGuide(help, form.mnuGuide, hooks);
  AddLines(help, {{&form.mnuAbout, 'A'}});
}

}  // namespace marlinset

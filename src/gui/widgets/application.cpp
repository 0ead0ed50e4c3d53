// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/widgets/application.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QShortcutEvent>

#include "base/finally.h"

namespace marlinset {
namespace {

/// The button whose mnemonic this event presses, if any.
QAbstractButton* ButtonOfMnemonic(QObject* receiver, QEvent* event) {
  if (event->type() != QEvent::Shortcut || static_cast<QShortcutEvent*>(event)->isAmbiguous()) return nullptr;
  return qobject_cast<QAbstractButton*>(receiver);
}

}  // namespace

bool Application::notify(QObject* receiver, QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) keyRepeats_ = static_cast<QKeyEvent*>(event)->isAutoRepeat();
  if (!receiver->isWidgetType()) return QApplication::notify(receiver, event);
  bool taken = false;
  operator_.HandlerBegins();
  Finally([&] { taken = Deliver(receiver, event); }, [this] { operator_.HandlerEnds(); });
  return taken;
}

/// For a mnemonic the toolkit holds the button down for a moment, then clicks. It would lose a second press
/// in that time, and the click if the window closes. A key held down is one press.
bool Application::Deliver(QObject* receiver, QEvent* event) {
  QAbstractButton* const button = ButtonOfMnemonic(receiver, event);
  if (!button) return QApplication::notify(receiver, event);
  if (keyRepeats_ || !button->isEnabled()) return true;
  if (button->isCheckable() && (button->focusPolicy() & Qt::ClickFocus)) {
    button->setFocus(Qt::ShortcutFocusReason);
  }
  button->click();
  return true;
}

}  // namespace marlinset

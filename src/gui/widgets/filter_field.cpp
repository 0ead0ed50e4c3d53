// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/widgets/filter_field.h"

#include <QDialog>
#include <QKeyEvent>
#include <QShortcut>

namespace marlinset {

FilterField::FilterField(const QString& name, const QString& spokenName, QWidget* parent)
    : QLineEdit(parent) {
  setObjectName(name);
  setAccessibleName(spokenName);
  setClearButtonEnabled(true);
  setAcceptDrops(false);  // a dropped file is for the window, its name no filter
}

void FilterField::ReachBy(const QKeySequence& keys, QWidget& scope) {
  connect(new QShortcut(keys, &scope), &QShortcut::activated, this, [this] {
    setFocus(Qt::ShortcutFocusReason);
    selectAll();
  });
}

void FilterField::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Escape:
      if (!text().isEmpty()) return clear();
      if (qobject_cast<QDialog*>(window())) return event->ignore();
      [[fallthrough]];
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Down:
      emit Left();
      break;
    default:
      QLineEdit::keyPressEvent(event);
  }
}

}  // namespace marlinset

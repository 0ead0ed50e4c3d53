// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QKeySequence>
#include <QLineEdit>

namespace marlinset {

/// A field above a list that hides the rows without what is typed. Enter and the down arrow lead to the list.
/// Esc empties it, and once more leads to the list; in a dialog it closes that.
class FilterField : public QLineEdit {
  Q_OBJECT
 public:
  /// `spokenName` is what a screen reader calls it.
  FilterField(const QString& name, const QString& spokenName, QWidget* parent);

  /// These keys lead here from anywhere in the window of `scope`, while that can be seen.
  void ReachBy(const QKeySequence& keys, QWidget& scope);

 signals:
  /// The operator goes on to the list.
  void Left();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace marlinset

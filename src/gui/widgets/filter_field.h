// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QKeySequence>
#include <QLineEdit>

namespace marlinset {

/// A field above a list that hides the rows without what is typed. Enter and the down arrow lead to the list.
/// Esc empties the field; in an empty one it leads to the list, or closes the dialog.
class FilterField : public QLineEdit {
  Q_OBJECT
 public:
  /// `name` is the object's, `spokenName` what a screen reader says.
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

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>
#include <vector>

#include "picture/remarks.h"

class QListWidget;
class QListWidgetItem;

namespace marlinset {

class FrmStart;

/// The remarks on the setup as a list, until one is chosen, Esc is pressed or the operator clicks elsewhere.
/// A choice leads to the first control that the remark names. Deletes itself when it closes.
class RemarkPopup : public QFrame {
 public:
  RemarkPopup(const std::vector<Remark>& remarks, FrmStart& form, QWidget* parent);

  /// Below `place` and within its screen.
  void OpenAt(const QWidget& place);

 private:
  int Width() const;
  int TextMargin() const;
  void AddItem(const Remark& remark);
  void Choose(const QListWidgetItem& item, FrmStart& form);

  QListWidget* list_;
};

}  // namespace marlinset

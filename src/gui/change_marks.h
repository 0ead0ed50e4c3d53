// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSet>
#include <QString>
#include <vector>

class QWidget;

namespace marlinset {

struct UnheldMessage;

/// Marks the fields of the window whose values the unit does not hold.
class ChangeMarks {
 public:
  explicit ChangeMarks(QWidget& window) : window_(window) {}
  /// Marks the fields of these changes, and no others. Fields may have come and gone since the last call.
  void Show(const std::vector<UnheldMessage>& changes);

 private:
  QWidget& window_;
  QSet<QString> marked_;  ///< names of the controls
};

}  // namespace marlinset

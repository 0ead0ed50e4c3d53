// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QUrl>
#include <string>

namespace marlinset {

class DocumentView;
class FrmStart;

/// The user guide beside the main window. It takes no part in what the tool does, so it can be read during a
/// send as well. Closing it hides it.
class GuideWindow : public QDialog {
  Q_OBJECT
 public:
  /// `folder` holds the documents as they are installed: docs/user-guide.md and what it leads to.
  explicit GuideWindow(const std::string& folder);

  /// Comes to the front with the section about the panel in view, or the guide's beginning where a panel has
  /// none.
  void ShowFor(const FrmStart& form);

 private:
  QUrl guide_;
  DocumentView* view_;
};

}  // namespace marlinset

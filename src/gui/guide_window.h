// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QUrl>
#include <string>

namespace marlinset {

class DocumentView;
class FrmStart;

/// The user guide beside the main window. It does not affect the tool, so it can be read even during a send.
/// Closing it hides it.
class GuideWindow : public QDialog {
  Q_OBJECT
 public:
  /// `folder` holds the documents as installed: docs/user-guide.md and those to which it links.
  explicit GuideWindow(const std::string& folder);

  /// Comes to the front with the section about the panel in view, or the guide's beginning if the panel has
  /// none.
  void ShowFor(const FrmStart& form);

 private:
  QUrl guide_;
  DocumentView* view_;
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDockWidget>
#include <QList>
#include <memory>

#include "controls/signal.h"

class QAction;
class QLabel;
class QMenu;

namespace marlinset {

class FrmStart;
class PictureRules;
class PictureView;
class WindowSelection;

/// The panel with the picture of the windows: the picture, below it what it is and which window is selected,
/// and the entries of the menu that concern it, which `entries` holds. Like the main window it comes and goes
/// with its control: its close button is a click on the menu's entry.
class PictureDock : public QDockWidget {
  Q_OBJECT
 public:
  PictureDock(FrmStart& form, PictureRules& rules, std::shared_ptr<WindowSelection> selection,
              const QList<QAction*>& entries, QWidget* parent);
  ~PictureDock() override;

  /// Is shown or hidden as the form says.
  void FollowForm();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void ShowStill(const std::string& file);
  void TakeRememberedStill();
  void ShowWords();

  FrmStart& form_;
  PictureRules& rules_;
  PictureView* view_;
  QLabel* caption_;   ///< what the picture is
  QLabel* selected_;  ///< which window is selected, and its place
  QMenu* menu_;
  QString stillFailure_;     ///< why the still of the last run is not there
  bool stillTried_ = false;  ///< the still of the last run need not be tried any more
  Listening<> viewListening_;
  Listening<> itemListening_;
  Listening<> formListening_;
};

}  // namespace marlinset

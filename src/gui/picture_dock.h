// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <memory>

#include "controls/signal.h"
#include "gui/form_dock.h"

class QAction;
class QLabel;
class QMenu;

namespace marlinset {

class PictureRules;
class PictureView;
class WindowSelection;

/// The panel with the picture of the windows: the picture, below it what it is and which window is selected,
/// and the entries of the menu that concern it, which `entries` holds.
class PictureDock : public FormDock {
  Q_OBJECT
 public:
  PictureDock(FrmStart& form, PictureRules& rules, std::shared_ptr<WindowSelection> selection,
              const QList<QAction*>& entries, QWidget* parent);
  ~PictureDock() override;

 protected:
  void contextMenuEvent(QContextMenuEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void ShowStill(const std::string& file);
  void TakeRememberedStill();
  void ShowWords();

  PictureRules& rules_;
  PictureView* view_;
  QLabel* caption_;   ///< what the picture is
  QLabel* selected_;  ///< which window is selected, and its place
  QMenu* menu_;
  QString stillFailure_;     ///< why the still of the last run is not there
  bool stillTried_ = false;  ///< the still of the last run need not be tried any more
  Listening<> viewListening_;
};

}  // namespace marlinset

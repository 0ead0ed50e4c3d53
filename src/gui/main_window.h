// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMainWindow>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "core/frm_start.h"
#include "gui/byte_log.h"
#include "gui/change_marks.h"
#include "gui/widgets/binding.h"
#include "gui/window_hooks.h"
#include "gui/window_selection.h"

namespace marlinset {

class ComparisonWindow;
class FormDock;
class ToolArea;
struct Offer;

/// The main window: shows FrmStart and passes every action of the operator to it. It opens and closes with
/// the form's Visible flag, at the place that the form says, but never beyond the screen, its frame included.
/// Its close box is the form's Exit. The form must outlive it.
class MainWindow : public QMainWindow {
  Q_OBJECT
 public:
  explicit MainWindow(FrmStart& form, WindowHooks hooks = {});

 protected:
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ShowForm();
  void ShowModified();
  void Measure();
  void TakePlace();
  /// Whether it can be moved and sized: it is visible, and the operator has not maximised it.
  bool Stands() const;
  void NotePlace();
  void AddPicture();
  void ShowComparison(const Offer& offer);
  void AddDock(FormDock& dock, Qt::DockWidgetArea area);
  void MakeRoomBeside(FormDock& dock);
  void TakeDocks();
  void NoteDocks();
  void FitFrame();

  FrmStart& form_;
  WindowHooks hooks_;
  std::shared_ptr<WindowSelection> selection_ = std::make_shared<WindowSelection>();
  ToolArea* tools_ = nullptr;
  ChangeMarks marks_{*this};
  ComparisonWindow* comparison_ = nullptr;  ///< made on first use
  QList<FormDock*> panels_;                 ///< that dock
  bool formVisible_ = false;
  bool frameFits_ = false;  ///< the window manager's frame is known and allowed for
  WindowPlace place_;       ///< the form's, as last applied
  std::string docks_;       ///< the same
  Listening<> listening_;
  Listening<> toolAtRest_;
  std::optional<Listening<>> changesListening_;
};

}  // namespace marlinset

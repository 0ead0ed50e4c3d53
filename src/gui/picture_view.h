// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "controls/signal.h"
#include "gui/picture_canvas.h"
#include "gui/widgets/soon.h"

namespace marlinset {

class FrmStart;
class PictureRules;
class WindowSelection;

/// The picture of the windows under the operator's hands. A click selects a window; dragging and the arrow
/// keys move it, Delete switches it off; the wheel enlarges. It follows every change of the panels, once in a
/// turn of the event loop, and only while it can be seen. A window in the operator's hand, or whose move
/// still waits for the unit, shows its new place as a ghost.
class PictureView : public PictureCanvas {
  Q_OBJECT
 public:
  PictureView(FrmStart& form, PictureRules& rules, std::shared_ptr<WindowSelection> selection,
              QWidget* parent);
  ~PictureView() override;

  /// The selected window in words, with the place that it has or will have; empty if none is selected.
  QString SelectedInWords() const;

  /// What the picture shows, or which window is selected, has changed.
  Signal<> Changed;

 protected:
  bool event(QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  /// A window in the operator's hand.
  struct Drag {
    int row;
    QPointF press;       ///< where the button went down
    CellRect from;       ///< the window's place at that time
    CellRect to;         ///< its place if it were dropped now
    bool begun = false;  ///< the pointer went further than a hand trembles
  };
  /// Moves of a window that are still to be carried out.
  struct AwaitedMoves {
    int moves = 0;
    CellRect place;  ///< where they lead
  };

  void Replan();
  void ShowSelection();
  void ShowGhosts();
  CellRect PlaceOf(const PlannedWindow& window) const;
  void Hover(int row);
  void DragTo(QPointF point);
  void EndDrag(bool drop);
  bool PressKey(int key, bool repeats);
  void Step(int columns, int rows);
  void SelectNext(int way);
  void Move(const PlannedWindow& window, const CellRect& to);
  void Landed(int row);

  FrmStart& form_;
  PictureRules& rules_;
  std::shared_ptr<WindowSelection> selection_;
  Soon replan_{[this] { Replan(); }};
  std::optional<Drag> drag_;
  std::optional<QPointF> pulled_;        ///< last point of the pointer while it pulls an enlarged picture
  std::map<int, AwaitedMoves> awaited_;  ///< by rows
  Listening<> selectionListening_;
  std::optional<Listening<>> listening_;  ///< while it can be seen
};

}  // namespace marlinset

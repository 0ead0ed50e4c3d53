// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QPixmap>
#include <QWidget>
#include <array>
#include <map>
#include <set>

#include "controls/control.h"
#include "picture/geometry.h"
#include "picture/qt/plan_painter.h"

namespace marlinset {

/// Paints a picture as large as there is room for, or a part of it, with marks on the windows: which one is
/// selected, which one the pointer is over, which ones cover each other or leave the picture, and ghosts
/// where windows are about to be. Only what a change touches is painted again.
class PictureCanvas : public QWidget {
  Q_OBJECT
 public:
  explicit PictureCanvas(QWidget* parent);

  const PicturePlan& Plan() const { return plan_; }
  void SetPlan(PicturePlan plan);
  /// What lies behind the windows; a null image for nothing.
  void SetStill(QImage still);
  /// Whether the safe frames and the windows of the slate are shown.
  void SetExtras(bool safe, bool slate);
  /// Rows of the panel, kNoIndex for none.
  void SetSelected(int row);
  int Selected() const { return selected_; }
  void SetHovered(int row);
  /// Where windows are about to be, by their rows.
  void SetGhosts(std::map<int, CellRect> ghosts);

  /// The window of a row if it is to be seen, otherwise null.
  const PlannedWindow* Seen(int row) const;
  /// The window at this point: a ghost before all others, then the selected one, and those in front before
  /// those behind; kNoIndex for none.
  int RowAt(QPointF point) const;
  /// Where a place lies on the widget; an empty rectangle while there is no picture.
  QRectF RectOf(const CellRect& place) const;
  /// A column and a unit, in pixels; 1 by 1 while there is no picture.
  QSizeF Cell() const;
  /// Whether the picture, and not only the widget, is at this point.
  bool Covers(QPointF point) const { return plan_.area && frame_.contains(point); }

  /// Enlarges or reduces the picture by `factor`; what is at `around` stays there. Stops at eight times the
  /// size that just fits into the widget, and at that size.
  void Zoom(double factor, QPointF around);
  /// How many times larger the picture is than it just fits.
  double ZoomFactor() const { return zoom_; }
  /// Shifts an enlarged picture, by pixels and no further than its edge.
  void Shift(QPointF by);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void changeEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Settle(QPointF corner);
  void Reveal(int row);
  void Redo();
  void PaintBehind();
  void PaintWindow(QPainter& painter, const PlannedWindow& window, const QRectF& area);
  void PaintWindows(QPainter& painter, const CellGrid& grid, const QRect& dirty);
  void PaintMarks(QPainter& painter) const;
  void PaintGhosts(QPainter& painter, const CellGrid& grid);
  CellGrid Grid() const;
  void Update(const CellRect& place);
  void UpdateRow(int row);
  void UpdateDifferences(const PicturePlan& before);
  void FindFaulty();

  /// A window as it was painted last: on its way across the picture only its place changes.
  struct Painted {
    std::string sample;
    int columns = 0;
    LetterLook look;
    QPixmap pixels;
  };

  PicturePlan plan_;
  std::set<int> faulty_;            ///< rows of windows that cover each other or leave the picture
  std::map<int, CellRect> ghosts_;  ///< by rows
  bool safe_ = false;
  bool slate_ = false;
  int selected_ = kNoIndex;
  int hovered_ = kNoIndex;
  QImage still_;
  QPixmap behind_;  ///< what lies behind the windows, as large as the widget; null until it is needed
  QRectF frame_;    ///< of the picture
  /// By row, width and height: from place to place the rounding to pixels changes the size by one.
  std::map<std::array<int, 3>, Painted> painted_;
  double zoom_ = 1;
};

}  // namespace marlinset

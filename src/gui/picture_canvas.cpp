// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/picture_canvas.h"

#include <QEvent>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

#include "gui/widgets/look.h"

namespace marlinset {
namespace {

constexpr double kMostZoom = 8;  // times the picture that just fits
constexpr double kGhostOpacity = 0.7;
/// No mark reaches further out of its window, in pixels.
constexpr int kMarkReach = 6;

/// A frame around a window. Marks lie on any still, so their colours do not follow the desktop's: a bright
/// line inside a black one.
struct WindowMark {
  double distance;  ///< from the window to the middle of the line, in pixels
  QRgb color;
  double width;  ///< of the bright line, in pixels
  Qt::PenStyle style;
};
constexpr QRgb kSelectedColor = 0xFFFFD83D;
constexpr WindowMark kFaultyMark{0.5, 0xFFFF5A50, 2, Qt::DashLine};
constexpr WindowMark kHoverMark{2, 0xFFFFFFFF, 1, Qt::SolidLine};
constexpr WindowMark kSelectedMark{3, kSelectedColor, 1, Qt::SolidLine};
constexpr WindowMark kFocusMark{3, kSelectedColor, 2, Qt::SolidLine};
constexpr WindowMark kGhostMark{1.5, kSelectedColor, 1, Qt::DashLine};
/// Black on both sides of the bright line, in pixels.
constexpr double kMarkEdge = 1;

QRectF Grown(const QRectF& area, double by) {
  return area.adjusted(-by, -by, by, by);
}

/// A frame of this width around a rectangle, of filled pieces: the strokes of a wide dashed pen would cost
/// more than all windows together.
void FillFrame(QPainter& painter, const QRectF& around, const QColor& color, double width, bool dashed) {
  constexpr double kDash = 8;
  constexpr double kGap = 5;
  const QRectF outer = around.adjusted(-width / 2, -width / 2, width / 2, width / 2);
  const auto fill = [&](const QRectF& side, bool across) {
    const double length = across ? side.width() : side.height();
    const int pieces = dashed ? static_cast<int>(std::ceil(length / (kDash + kGap))) : 1;
    for (int i = 0; i < pieces; ++i) {
      const double at = i * (kDash + kGap);
      const double piece = dashed ? std::min(kDash, length - at) : length;
      painter.fillRect(across ? QRectF(side.left() + at, side.top(), piece, width)
                              : QRectF(side.left(), side.top() + at, width, piece),
                       color);
    }
  };
  fill({outer.left(), outer.top(), outer.width(), width}, true);
  fill({outer.left(), outer.bottom() - width, outer.width(), width}, true);
  fill({outer.left(), outer.top(), width, outer.height()}, false);
  fill({outer.right() - width, outer.top(), width, outer.height()}, false);
}

void PaintMark(QPainter& painter, const QRectF& area, const WindowMark& mark) {
  const QRectF around = Grown(area, mark.distance);
  FillFrame(painter, around, Qt::black, mark.width + 2 * kMarkEdge, false);
  FillFrame(painter, around, QColor(mark.color), mark.width, mark.style == Qt::DashLine);
}

}  // namespace

PictureCanvas::PictureCanvas(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void PictureCanvas::SetPlan(PicturePlan plan) {
  if (plan == plan_) return;
  const PicturePlan before = std::exchange(plan_, std::move(plan));
  const std::set<int> faultyBefore = faulty_;
  FindFaulty();
  if (before.area != plan_.area || before.wide != plan_.wide || before.look != plan_.look ||
      before.trouble != plan_.trouble) {
    Settle(frame_.topLeft());
    return;
  }
  UpdateDifferences(before);
  for (const PlannedWindow& window : plan_.windows) {
    if (faulty_.contains(window.row) != faultyBefore.contains(window.row)) UpdateRow(window.row);
  }
}

void PictureCanvas::UpdateDifferences(const PicturePlan& before) {
  for (const PlannedWindow& old : before.windows) {
    const PlannedWindow* now = plan_.Find(old.row);
    if (IsShown(old, slate_) && (!now || *now != old)) Update(old.place);
  }
  for (const PlannedWindow& now : plan_.windows) {
    const PlannedWindow* old = before.Find(now.row);
    if (IsShown(now, slate_) && (!old || *old != now)) Update(now.place);
  }
}

/// Only among windows that the picture shows.
void PictureCanvas::FindFaulty() {
  faulty_.clear();
  if (!plan_.area) return;
  for (const PlannedWindow& one : plan_.windows) {
    if (!IsShown(one, slate_)) continue;
    if (!plan_.area->Contains(one.place)) faulty_.insert(one.row);
    for (const PlannedWindow& other : plan_.windows) {
      if (other.row > one.row && CoverEachOther(one, other)) faulty_.insert({one.row, other.row});
    }
  }
}

void PictureCanvas::SetStill(QImage still) {
  still_ = std::move(still);
  Redo();
}

void PictureCanvas::SetExtras(bool safe, bool slate) {
  if (safe == safe_ && slate == slate_) return;
  safe_ = safe;
  slate_ = slate;
  FindFaulty();
  update();
}

void PictureCanvas::SetSelected(int row) {
  if (row == selected_) return;
  UpdateRow(std::exchange(selected_, row));
  UpdateRow(row);
  Reveal(row);
}

/// Shifts an enlarged picture so that the window of a row can be seen.
void PictureCanvas::Reveal(int row) {
  const PlannedWindow* window = Seen(row);
  if (!window) return;
  const QRectF place = RectOf(window->place);
  const auto way = [](double begin, double end, double room) {
    return begin < 0 ? -begin : std::min(room - end, 0.0);
  };
  Shift({way(place.left(), place.right(), width()), way(place.top(), place.bottom(), height())});
}

void PictureCanvas::SetHovered(int row) {
  if (row == hovered_) return;
  UpdateRow(std::exchange(hovered_, row));
  UpdateRow(row);
}

void PictureCanvas::SetGhosts(std::map<int, CellRect> ghosts) {
  if (ghosts == ghosts_) return;
  for (const auto& [row, place] : ghosts_) Update(place);
  ghosts_ = std::move(ghosts);
  for (const auto& [row, place] : ghosts_) Update(place);
}

const PlannedWindow* PictureCanvas::Seen(int row) const {
  const PlannedWindow* window = plan_.area ? plan_.Find(row) : nullptr;
  return window && IsShown(*window, slate_) ? window : nullptr;
}

int PictureCanvas::RowAt(QPointF point) const {
  if (!Covers(point)) return kNoIndex;
  for (const auto& [row, place] : ghosts_) {
    if (Seen(row) && RectOf(place).contains(point)) return row;
  }
  const auto isAt = [&](const PlannedWindow& window) {
    return Seen(window.row) && RectOf(window.place).contains(point);
  };
  const PlannedWindow* selected = Seen(selected_);
  if (selected && isAt(*selected)) return selected_;
  const auto found = std::find_if(plan_.windows.rbegin(), plan_.windows.rend(), isAt);
  return found == plan_.windows.rend() ? kNoIndex : found->row;
}

CellGrid PictureCanvas::Grid() const {
  return {*plan_.area, frame_, 1 / devicePixelRatioF()};
}

QRectF PictureCanvas::RectOf(const CellRect& place) const {
  return plan_.area ? Grid().RectOf(place) : QRectF();
}

QSizeF PictureCanvas::Cell() const {
  return plan_.area ? Grid().Cell() : QSizeF(1, 1);
}

/// Gives the picture its size, and its left upper corner as near to `corner` as it fills the widget.
void PictureCanvas::Settle(QPointF corner) {
  // No taller than the picture, so that what is said about it stays close.
  setMaximumHeight(
      std::max(minimumSizeHint().height(), static_cast<int>(std::ceil(width() / plan_.Shape()))));
  const QRectF room(rect());
  const QRectF whole = FrameInside(Grown(room, -kMarkReach), plan_.Shape());
  const QSizeF size = whole.size() * zoom_;
  const auto place = [](double at, double length, double roomLength) {
    return length <= roomLength ? (roomLength - length) / 2 : std::clamp(at, roomLength - length, 0.0);
  };
  frame_ = QRectF(QPointF(std::floor(place(corner.x(), size.width(), room.width())),
                          std::floor(place(corner.y(), size.height(), room.height()))),
                  size);
  painted_.clear();
  Redo();
}

void PictureCanvas::Zoom(double factor, QPointF around) {
  const double zoom = std::clamp(zoom_ * factor, 1.0, kMostZoom);
  const double change = zoom / std::exchange(zoom_, zoom);
  if (change != 1) Settle(around - (around - frame_.topLeft()) * change);
}

void PictureCanvas::Shift(QPointF by) {
  if (zoom_ > 1) Settle(frame_.topLeft() + by);
}

void PictureCanvas::Redo() {
  behind_ = QPixmap();
  update();
}

void PictureCanvas::Update(const CellRect& place) {
  if (plan_.area) update(Grown(RectOf(place), kMarkReach).toAlignedRect());
}

void PictureCanvas::UpdateRow(int row) {
  if (const PlannedWindow* window = Seen(row)) Update(window->place);
}

/// A still takes time to scale, so it is scaled once.
void PictureCanvas::PaintBehind() {
  const double ratio = devicePixelRatioF();
  behind_ = QPixmap((QSizeF(size()) * ratio).toSize().expandedTo({1, 1}));
  behind_.setDevicePixelRatio(ratio);
  behind_.fill(palette().color(QPalette::Window));
  if (!plan_.area) return;
  QPainter painter(&behind_);
  const QSize pixels = (frame_.size() * ratio).toSize();
  const bool smaller = pixels.width() < still_.width() && !pixels.isEmpty();
  PaintGround(painter, frame_,
              smaller ? still_.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation) : still_);
}

void PictureCanvas::PaintWindow(QPainter& painter, const PlannedWindow& window, const QRectF& area) {
  if (area.isEmpty()) return;
  const double ratio = devicePixelRatioF();
  const QSize size = (area.size() * ratio).toSize();
  Painted& painted = painted_[{window.row, size.width(), size.height()}];
  if (painted.pixels.size() != size || painted.pixels.devicePixelRatio() != ratio ||
      painted.sample != window.sample || painted.columns != window.place.columns ||
      painted.look != plan_.look) {
    painted = {window.sample, window.place.columns, plan_.look, QPixmap(size)};
    painted.pixels.setDevicePixelRatio(ratio);
    painted.pixels.fill(Qt::transparent);
    QPainter inside(&painted.pixels);
    PaintPlannedWindow(inside, QRectF(QPointF(0, 0), area.size()), plan_.look, window);
  }
  painter.drawPixmap(area.topLeft(), painted.pixels);
}

/// The selected window lies in front, where a press takes it.
void PictureCanvas::PaintWindows(QPainter& painter, const CellGrid& grid, const QRect& dirty) {
  const auto paint = [&](const PlannedWindow& window) {
    const QRectF area = grid.RectOf(window.place);
    if (IsShown(window, slate_) && area.intersects(dirty)) PaintWindow(painter, window, area);
  };
  for (const PlannedWindow& window : plan_.windows) {
    if (window.row != selected_) paint(window);
  }
  if (const PlannedWindow* selected = plan_.Find(selected_)) paint(*selected);
}

void PictureCanvas::PaintMarks(QPainter& painter) const {
  const auto paint = [&](int row, const WindowMark& mark) {
    if (const PlannedWindow* window = Seen(row)) PaintMark(painter, RectOf(window->place), mark);
  };
  for (const int row : faulty_) paint(row, kFaultyMark);
  if (hovered_ != selected_) paint(hovered_, kHoverMark);
  paint(selected_, hasFocus() ? kFocusMark : kSelectedMark);
  for (const auto& [row, place] : ghosts_) {
    if (Seen(row)) PaintMark(painter, RectOf(place), kGhostMark);
  }
}

void PictureCanvas::PaintGhosts(QPainter& painter, const CellGrid& grid) {
  for (const auto& [row, place] : ghosts_) {
    const PlannedWindow* window = Seen(row);
    if (!window) continue;
    painter.setOpacity(kGhostOpacity);
    PaintWindow(painter, *window, grid.RectOf(place));
    painter.setOpacity(1);
  }
}

void PictureCanvas::paintEvent(QPaintEvent* event) {
  if (behind_.isNull() || behind_.devicePixelRatio() != devicePixelRatioF()) PaintBehind();
  QPainter painter(this);
  painter.drawPixmap(0, 0, behind_);  // no more of it than the event asks for
  if (!plan_.area) {
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, Shown(plan_.trouble));
    return;
  }
  const CellGrid grid = Grid();
  painter.setClipRect(frame_);
  PaintWindows(painter, grid, event->rect());
  if (safe_) PaintSafeFrames(painter, frame_);
  PaintGhosts(painter, grid);
  painter.setClipping(false);
  painter.setBrush(Qt::NoBrush);
  PaintMarks(painter);
}

void PictureCanvas::resizeEvent(QResizeEvent* /*event*/) {
  Settle(frame_.topLeft());
}

void PictureCanvas::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) Redo();
  QWidget::changeEvent(event);
}

/// The mark of the selected window says whether keys go there.
void PictureCanvas::focusInEvent(QFocusEvent* event) {
  UpdateRow(selected_);
  QWidget::focusInEvent(event);
}

void PictureCanvas::focusOutEvent(QFocusEvent* event) {
  UpdateRow(selected_);
  QWidget::focusOutEvent(event);
}

QSize PictureCanvas::sizeHint() const {
  constexpr int kLetters = 60;
  const int width = fontMetrics().averageCharWidth() * kLetters;
  return {width, width * 9 / 16};
}

QSize PictureCanvas::minimumSizeHint() const {
  return sizeHint() / 3;
}

}  // namespace marlinset

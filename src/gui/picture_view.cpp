// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/picture_view.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <algorithm>
#include <cmath>
#include <utility>

#include "core/frm_start.h"
#include "gui/widgets/look.h"
#include "gui/widgets/operator_queue.h"
#include "gui/window_selection.h"
#include "panels/picture_rules.h"

namespace marlinset {
namespace {

constexpr double kZoomStep = 1.25;
/// What one notch of a wheel reports, in eighths of a degree.
constexpr double kWheelStep = 120;

/// A key that moves the selected window, by columns and character rows.
struct StepKey {
  int key;
  int columns;
  int rows;
};
constexpr StepKey kStepKeys[] = {
    {Qt::Key_Left, -1, 0}, {Qt::Key_Right, 1, 0}, {Qt::Key_Up, 0, -1}, {Qt::Key_Down, 0, 1}};

int Rounded(double number) {
  return static_cast<int>(std::lround(number));
}

CellRect Within(CellRect place, const MoveLimits& limits) {
  place.left = std::clamp(place.left, limits.left, limits.right);
  place.top = std::clamp(place.top, limits.top, limits.bottom);
  return place;
}

}  // namespace

PictureView::PictureView(FrmStart& form, PictureRules& rules, std::shared_ptr<WindowSelection> selection,
                         QWidget* parent)
    : PictureCanvas(parent),
      form_(form),
      rules_(rules),
      selection_(std::move(selection)),
      selectionListening_(selection_->Changed, [this] { ShowSelection(); }) {
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setAccessibleName(QStringLiteral("Picture of the windows"));
}

PictureView::~PictureView() = default;

void PictureView::Replan() {
  SetExtras(form_.mnuSafe.Checked(), form_.mnuSlate.Checked());
  SetPlan(rules_.Plan());
  if (drag_ && !Seen(drag_->row)) EndDrag(false);
  ShowSelection();
  ShowGhosts();
}

void PictureView::ShowSelection() {
  SetSelected(selection_->Row());
  Changed.Emit();
}

void PictureView::ShowGhosts() {
  std::map<int, CellRect> ghosts;
  for (const auto& [row, awaited] : awaited_) {
    const PlannedWindow* window = Seen(row);
    if (window && window->place != awaited.place) ghosts[row] = awaited.place;
  }
  if (drag_ && drag_->begun) ghosts[drag_->row] = drag_->to;
  SetGhosts(std::move(ghosts));
  Changed.Emit();
}

/// Where a window will be when all that the operator did is carried out.
CellRect PictureView::PlaceOf(const PlannedWindow& window) const {
  CellRect place = window.place;
  const auto awaited = awaited_.find(window.row);
  const bool dragged = drag_ && drag_->begun && drag_->row == window.row;
  if (!dragged && awaited == awaited_.end()) return place;
  const CellRect& to = dragged ? drag_->to : awaited->second.place;
  place.left = to.left;
  place.top = to.top;
  return place;
}

QString PictureView::SelectedInWords() const {
  const PlannedWindow* window = Seen(Selected());
  if (!window) return {};
  const CellRect place = PlaceOf(*window);
  return QStringLiteral("%1: Vertical %2, Horizontal %3")
      .arg(Shown(window->name))
      .arg(place.top)
      .arg(place.left);
}

bool PictureView::event(QEvent* event) {
  // Its own keys, whatever shortcuts the window around it has for them.
  if (event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Delete)
    event->accept();
  return PictureCanvas::event(event);
}

void PictureView::showEvent(QShowEvent* event) {
  PictureCanvas::showEvent(event);
  listening_.emplace(form_.Altered, [this] { replan_.Ask(); });
  Replan();
}

void PictureView::hideEvent(QHideEvent* event) {
  listening_.reset();
  EndDrag(false);
  PictureCanvas::hideEvent(event);
}

/// As over the window's name in the table, or between the rows.
void PictureView::Hover(int row) {
  SetHovered(row);
  Control& surface =
      row == kNoIndex || !form_.HasWindowRow(row) ? static_cast<Control&>(form_.pWinIn) : form_.lName(row);
  OperatorQueue::OfProgram().Take(surface, {OperatorAction::Kind::kHover}, Turn::kHover);
}

void PictureView::mousePressEvent(QMouseEvent* event) {
  event->accept();
  if (drag_ && event->button() != Qt::LeftButton) return EndDrag(false);
  if (event->button() != Qt::LeftButton) return;
  replan_.Hurry();
  const int row = RowAt(event->position());
  selection_->Select(row);
  const PlannedWindow* window = Seen(row);
  if (!window) {
    pulled_ = event->position();
  } else if (rules_.LimitsOf(row)) {
    const CellRect place = PlaceOf(*window);
    drag_ = Drag{.row = row, .press = event->position(), .from = place, .to = place};
  }
}

void PictureView::mouseMoveEvent(QMouseEvent* event) {
  if (event->buttons() == Qt::NoButton) return Hover(RowAt(event->position()));
  if (drag_) return DragTo(event->position());
  if (pulled_) Shift(event->position() - *std::exchange(pulled_, event->position()));
}

void PictureView::DragTo(QPointF point) {
  replan_.Hurry();
  const auto limits = drag_ ? rules_.LimitsOf(drag_->row) : std::nullopt;
  if (!limits) return EndDrag(false);
  const QPointF way = point - drag_->press;
  drag_->begun = drag_->begun || way.manhattanLength() >= QApplication::startDragDistance();
  if (!drag_->begun) return;
  CellRect to = drag_->from;
  to.left += Rounded(way.x() / Cell().width());
  to.top += Rounded(way.y() / (Cell().height() * limits->step)) * limits->step;
  drag_->to = Within(to, *limits);
  ShowGhosts();
}

void PictureView::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  pulled_.reset();
  EndDrag(true);
}

/// The press before it has selected already; there is nothing more to it.
void PictureView::mouseDoubleClickEvent(QMouseEvent* event) {
  event->accept();
}

void PictureView::EndDrag(bool drop) {
  const std::optional<Drag> drag = std::exchange(drag_, std::nullopt);
  if (!drag) return;
  replan_.Hurry();
  const PlannedWindow* window = Seen(drag->row);
  if (drop && drag->begun && window && drag->to != drag->from) Move(*window, drag->to);
  ShowGhosts();
}

void PictureView::leaveEvent(QEvent* event) {
  Hover(kNoIndex);
  PictureCanvas::leaveEvent(event);
}

void PictureView::focusOutEvent(QFocusEvent* event) {
  EndDrag(false);
  PictureCanvas::focusOutEvent(event);
}

void PictureView::keyPressEvent(QKeyEvent* event) {
  event->setAccepted(PressKey(event->key(), event->isAutoRepeat()));
}

/// A key held down goes on when the unit has its last step, as an arrow of a field does.
bool PictureView::PressKey(int key, bool repeats) {
  if (key == Qt::Key_Escape && drag_) {
    EndDrag(false);
    return true;
  }
  if (drag_) return false;
  if (key == Qt::Key_PageDown || key == Qt::Key_PageUp) {
    SelectNext(key == Qt::Key_PageDown ? 1 : -1);
    return true;
  }
  replan_.Hurry();
  if (!Seen(Selected())) return false;
  if (key == Qt::Key_Delete) {
    OperatorQueue::OfProgram().Take(form_.chOnOff(Selected()), {OperatorAction::Kind::kCheck, 0},
                                    Turn::kInOrder);
    return true;
  }
  for (const StepKey& step : kStepKeys) {
    if (step.key != key) continue;
    if (!repeats || !awaited_.contains(Selected())) Step(step.columns, step.rows);
    return true;
  }
  return false;
}

void PictureView::Step(int columns, int rows) {
  const PlannedWindow* window = Seen(Selected());
  const auto limits = rules_.LimitsOf(Selected());
  if (!window || !limits) return;
  CellRect to = PlaceOf(*window);
  to.left += columns;
  to.top += rows * limits->step;
  to = Within(to, *limits);
  if (to == PlaceOf(*window)) return;
  Move(*window, to);
  ShowGhosts();
}

void PictureView::SelectNext(int way) {
  std::vector<int> rows;
  for (const PlannedWindow& window : Plan().windows) {
    if (Seen(window.row)) rows.push_back(window.row);
  }
  if (rows.empty()) return;
  const int count = static_cast<int>(rows.size());
  const auto found = std::find(rows.begin(), rows.end(), Selected());
  int from = way > 0 ? -1 : 0;  // with none selected, on to the first or the last
  if (found != rows.end()) from = static_cast<int>(found - rows.begin());
  selection_->Select(rows[static_cast<std::size_t>((from + way + count) % count)]);
}

void PictureView::Move(const PlannedWindow& window, const CellRect& to) {
  const int row = window.row;
  AwaitedMoves& awaited = awaited_[row];
  ++awaited.moves;
  awaited.place = to;
  // Another file may have other windows in these rows by then.
  const std::weak_ptr<const void> life = form_.udVer(row).Life();
  OperatorQueue::OfProgram().Take(
      form_, *this,
      [self = QPointer<PictureView>(this), &rules = rules_, life, row, to] {
        if (!life.expired()) rules.Move(row, to.left, to.top);
        if (self) self->Landed(row);
      },
      [&form = form_, life, row, to] {
        if (life.expired()) return PendingEdits();
        return PendingEdits{{&form.udVer(row), to.top}, {&form.udHor(row), to.left}};
      });
}

void PictureView::Landed(int row) {
  const auto awaited = awaited_.find(row);
  if (awaited != awaited_.end() && --awaited->second.moves == 0) awaited_.erase(awaited);
  Replan();
}

void PictureView::wheelEvent(QWheelEvent* event) {
  const double steps = event->angleDelta().y() / kWheelStep;
  event->setAccepted(Covers(event->position()) && steps != 0);
  if (event->isAccepted()) Zoom(std::pow(kZoomStep, steps), event->position());
}

}  // namespace marlinset

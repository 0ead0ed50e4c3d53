// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/main_window.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QMouseEvent>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>

#include "controls/guard.h"
#include "gui/byte_log.h"
#include "gui/change_counter.h"
#include "gui/comparison_window.h"
#include "gui/dragged_file.h"
#include "gui/menu_bar.h"
#include "gui/panel_host.h"
#include "gui/picture_dock.h"
#include "gui/status_bar.h"
#include "gui/tool_area.h"
#include "gui/traffic_dock.h"
#include "gui/widgets/group.h"
#include "gui/widgets/icons.h"
#include "gui/widgets/look.h"
#include "gui/widgets/screen_fit.h"
#include "gui/widgets/widget_bindings.h"
#include "panels/unsaved_changes.h"

namespace marlinset {
namespace {

QSize FirstSize(const QWidget& window) {
  return RoomForText(window, 170, 42);
}

constexpr int kTwipsPerPixel = 15;
int Twips(int pixels) {
  return pixels * kTwipsPerPixel;
}
int Pixels(int twips) {
  return twips / kTwipsPerPixel;
}

/// Where the desktop puts its mark into a title; doubled it means itself.
constexpr QLatin1String kModifiedPlace("[*]");
constexpr QLatin1String kTheSameAsText("[*][*]");

}  // namespace

MainWindow::MainWindow(FrmStart& form, WindowHooks hooks)
    : form_(form),
      hooks_(std::move(hooks)),
      listening_(form.Changed, [this] { ShowForm(); }),
      toolAtRest_(form.GetGuard().Ended, [] { OperatorQueue::OfProgram().Wake(); }) {
  // The program ends when the form goes, and not with a box over the splash.
  QGuiApplication::setQuitOnLastWindowClosed(false);
  setObjectName(Shown(form.Name()));
  setWindowIcon(ProgramIcon());
  FillMenuBar(*menuBar(), form, hooks_);
  auto* middle = new QWidget(this);
  auto* rows = new QVBoxLayout(middle);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  tools_ = new ToolArea(form, hooks_, middle);
  if (auto* counter = tools_->findChild<ChangeCounter*>()) {
    counter->Counted.Connect([this](const auto& changes) { marks_.Show(changes); });
  }
  rows->addWidget(tools_);
  rows->addWidget(MakeRule(middle));
  rows->addWidget(new PanelHost(form, hooks_.tables, selection_, middle), 1);
  rows->addWidget(new ByteLog(form, hooks_.frameSent, middle));
  setCentralWidget(middle);
  setStatusBar(new StatusBarView(form, this));
  if (hooks_.picture) AddPicture();
  if (hooks_.compare) hooks_.compare->show = [this](const Offer& offer) { ShowComparison(offer); };
  if (hooks_.traffic) AddDock(*new TrafficDock(form_, *hooks_.traffic, this), Qt::BottomDockWidgetArea);
  resize(FirstSize(*this));
  // Everything between the controls passes the mouse on, up to the form itself.
  for (QWidget* widget : findChildren<QWidget*>()) widget->setMouseTracking(true);
  setMouseTracking(true);
  setAcceptDrops(true);
  Measure();
  if (hooks_.changes) changesListening_.emplace(hooks_.changes->Changed, [this] { ShowModified(); });
  ShowForm();
  ShowModified();
}

void MainWindow::ShowComparison(const Offer& offer) {
  if (!comparison_) comparison_ = new ComparisonWindow(form_, *hooks_.compare, this);
  comparison_->Show(offer);
}

void MainWindow::AddPicture() {
  QList<QAction*> entries;
  for (const MenuItem* item : {&form_.mnuStill, &form_.mnuNoStill, &form_.mnuSafe, &form_.mnuSlate}) {
    entries << menuBar()->findChild<QAction*>(Shown(item->FullName()));
  }
  AddDock(*new PictureDock(form_, *hooks_.picture, selection_, entries, this), Qt::RightDockWidgetArea);
}

void MainWindow::AddDock(FormDock& dock, Qt::DockWidgetArea area) {
  panels_ << &dock;
  addDockWidget(area, &dock);
  dock.installEventFilter(this);
  connect(&dock, &QDockWidget::visibilityChanged, this, [this, &dock](bool visible) {
    if (visible) QTimer::singleShot(0, this, [this, &dock] { MakeRoomBeside(dock); });
  });
}

/// The tool bar stays in its two lines beside a dock, as far as the screen is wide enough.
void MainWindow::MakeRoomBeside(FormDock& dock) {
  const Qt::DockWidgetArea area = dockWidgetArea(&dock);
  const bool beside = area == Qt::LeftDockWidgetArea || area == Qt::RightDockWidgetArea;
  const int missing = tools_->sizeHint().width() - tools_->width();
  if (!beside || missing <= 0 || !Stands() || dock.isHidden() || dock.isFloating()) return;
  StandOnScreen(*this, pos(), {width() + missing, height()}, windowHandle()->frameMargins());
}

/// Docks that the form's text does not know stay where they are.
void MainWindow::TakeDocks() {
  docks_ = form_.Docks();
  restoreState(QByteArray::fromBase64(QByteArray::fromStdString(docks_)));
  for (FormDock* dock : panels_) dock->FollowForm();
}

void MainWindow::NoteDocks() {
  docks_ = saveState().toBase64().toStdString();
  form_.NoteDocks(docks_);
}

/// The operator moves a dock or its edge.
bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
  const bool moved = event->type() == QEvent::Resize || event->type() == QEvent::Move;
  const bool ofDock = moved && qobject_cast<FormDock*>(watched);
  if (ofDock && static_cast<FormDock*>(watched)->isVisible())
    QTimer::singleShot(0, this, &MainWindow::NoteDocks);
  return QMainWindow::eventFilter(watched, event);
}

/// Depends on what is stored, not on ConfigSaved, which only says whether a command would ask.
void MainWindow::ShowModified() {
  setWindowModified(hooks_.changes && hooks_.changes->Modified());
}

void MainWindow::Measure() {
  const QRect desk = screen()->availableGeometry();
  const QSize first = FirstSize(*this);
  form_.measures = {.menuBarHeight = Twips(menuBar()->sizeHint().height()),
                    .statusBarHeight = Twips(statusBar()->sizeHint().height()),
                    .windowsWidth = Twips(first.width()),
                    .windowsHeight = Twips(first.height()),
                    .screenWidth = Twips(desk.width()),
                    .screenHeight = Twips(desk.height())};
}

/// The desktop's text may have grown since the place was kept: the tool bar stays in its two lines.
void MainWindow::TakePlace() {
  place_ = form_.Place();
  const QSize kept(Pixels(place_.width), Pixels(place_.height));
  const QMargins frame = windowHandle() ? windowHandle()->frameMargins() : QMargins();
  StandOnScreen(*this, {Pixels(place_.left), Pixels(place_.top)},
                kept.expandedTo({tools_->sizeHint().width(), 0}), frame);
}

/// The size of the window manager's frame is known only some time after the window is shown, if ever.
void MainWindow::FitFrame() {
  if (frameFits_ || !Stands() || windowHandle()->frameMargins().isNull()) return;
  frameFits_ = true;
  StandOnScreen(*this, pos(), size(), windowHandle()->frameMargins());
  NotePlace();
}

bool MainWindow::Stands() const {
  return isVisible() && !isMinimized() && !isMaximized() && !isFullScreen();
}

void MainWindow::NotePlace() {
  if (!Stands()) return;
  place_ = {Twips(pos().x()), Twips(pos().y()), Twips(width()), Twips(height())};
  form_.NotePlace(place_);
}

void MainWindow::moveEvent(QMoveEvent* event) {
  QMainWindow::moveEvent(event);
  NotePlace();
  if (!frameFits_) QTimer::singleShot(0, this, &MainWindow::FitFrame);
}

void MainWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  NotePlace();
  if (!frameFits_) QTimer::singleShot(0, this, &MainWindow::FitFrame);
}

void MainWindow::ShowForm() {
  setWindowTitle(Shown(form_.Caption()).replace(kModifiedPlace, kTheSameAsText) + kModifiedPlace);
  if (form_.Place() != place_) TakePlace();
  if (form_.Docks() != docks_) TakeDocks();
  if (form_.Visible() == formVisible_) return;
  formVisible_ = form_.Visible();
  // There the wheel and the arrows do no harm before anybody has chosen a field.
  QAbstractButton* view = ChosenOption(*findChild<QWidget*>(Shown(form_.fView.FullName())));
  if (formVisible_ && view) view->setFocus();
  setVisible(formVisible_);
  QTimer::singleShot(0, this, &MainWindow::FitFrame);
  if (form_.Place() == WindowPlace{}) NotePlace();  // a start that failed has not placed it
  if (!formVisible_) QTimer::singleShot(0, qApp, &QCoreApplication::quit);
}

void MainWindow::mouseMoveEvent(QMouseEvent* event) {
  if (event->buttons() == Qt::NoButton) OperatorQueue::OfProgram().TakeHover(form_, *this);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  const bool busy = QApplication::activeModalWidget() || !form_.mnuOpen.Enabled();
  if (hooks_.openFile && !busy && !DraggedConfiguration(*event->mimeData()).isEmpty()) {
    event->acceptProposedAction();
  }
}

void MainWindow::dropEvent(QDropEvent* event) {
  event->acceptProposedAction();
  OperatorQueue::OfProgram().Take(form_, *this, [this, name = DraggedConfiguration(*event->mimeData())] {
    hooks_.openFile(Typed(name));
  });
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (!form_.Visible()) return;
  event->ignore();  // the window closes with the form
  OperatorQueue::OfProgram().Take(form_.mnuExit, {OperatorAction::Kind::kClick}, Turn::kClosing);
}

}  // namespace marlinset

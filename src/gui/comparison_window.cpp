// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/comparison_window.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTreeView>
#include <QVBoxLayout>

#include "base/program_title.h"
#include "base/runtime_error.h"
#include "core/frm_start.h"
#include "gui/comparison_model.h"
#include "gui/dragged_file.h"
#include "gui/widgets/filter_field.h"
#include "gui/widgets/look.h"
#include "gui/widgets/operator_queue.h"
#include "gui/widgets/screen_fit.h"
#include "gui/widgets/window_keys.h"

namespace marlinset {
namespace {

/// Rows of the list that the smallest window shows.
constexpr int kLeastValues = 8;
// First widths of the columns.
constexpr int kNameLetters = 56;
constexpr int kValueLetters = 32;
/// How long the panels rest before they are compared again.
constexpr int kLookMs = 100;

QString Number(int count, const char* one, const char* more) {
  return QString::number(count) + QLatin1Char(' ') + QLatin1String(count == 1 ? one : more);
}

QPushButton* AddButton(QBoxLayout& row, const char* caption, QWidget* parent) {
  auto* button = new QPushButton(QLatin1String(caption), parent);
  button->setAutoDefault(false);  // Enter takes nothing over
  row.addWidget(button);
  return button;
}

}  // namespace

ComparisonWindow::ComparisonWindow(FrmStart& form, CompareCommand& command, QWidget* parent)
    : QDialog(parent),
      form_(form),
      command_(command),
      model_(new ComparisonModel(this)),
      filter_(new FilterField(QStringLiteral("filter"), QStringLiteral("Filter of the differences"), this)),
      listening_(form.Altered, [this] { LookSoon(); }) {
  setObjectName(QStringLiteral("Comparison"));
  setAcceptDrops(true);
  // What was taken over can be undone, sent or saved at once.
  addActions(WindowKeys(*parent));
  auto* rows = new QVBoxLayout(this);
  SetSpaces(*rows, *this, 2);
  rows->addLayout(MakeTop());
  rows->addWidget(tree_ = MakeTree(), 1);
  rows->addLayout(MakeBottom());
  connect(model_, &ComparisonModel::Changed, this, &ComparisonWindow::ShowState);
  resize(RoomForText(*this, 130, 36));
  new ScreenFit(*this);
}

/// The filter, and what ticks all rows that it shows.
QLayout* ComparisonWindow::MakeTop() {
  auto* top = new QHBoxLayout;
  SetSpaces(*top, *this);
  auto* label = new QLabel(QStringLiteral("&Filter:"), this);
  label->setBuddy(filter_);
  filter_->setToolTip(QStringLiteral("Shows the rows that contain each of these words (Ctrl+F)"));
  filter_->ReachBy(QKeySequence::Find, *this);
  top->addWidget(label);
  top->addWidget(filter_, 1);
  all_ = AddButton(*top, "Tick &All", this);
  none_ = AddButton(*top, "Tick &None", this);
  connect(filter_, &FilterField::textChanged, model_, &ComparisonModel::SetFilter);
  connect(filter_, &FilterField::Left, this, &ComparisonWindow::FocusRows);
  connect(all_, &QPushButton::clicked, model_, [this] { model_->TickAll(true); });
  connect(none_, &QPushButton::clicked, model_, [this] { model_->TickAll(false); });
  return top;
}

/// How many rows there are, and what happens to the ticked ones.
QLayout* ComparisonWindow::MakeBottom() {
  auto* bottom = new QHBoxLayout;
  SetSpaces(*bottom, *this);
  bottom->addWidget(count_ = new QLabel(this), 1);
  takeOver_ = AddButton(*bottom, "&Take Over", this);
  QPushButton* closing = AddButton(*bottom, "&Close", this);
  connect(takeOver_, &QPushButton::clicked, this, &ComparisonWindow::TakeOver);
  connect(closing, &QPushButton::clicked, this, &QDialog::reject);
  return bottom;
}

QTreeView* ComparisonWindow::MakeTree() {
  auto* tree = new QTreeView(this);
  tree->setObjectName(QStringLiteral("values"));
  tree->setAccessibleName(QStringLiteral("Values that differ"));
  tree->setModel(model_);
  tree->setUniformRowHeights(true);
  tree->setAlternatingRowColors(true);
  tree->setAllColumnsShowFocus(true);
  tree->setEditTriggers(QAbstractItemView::NoEditTriggers);
  tree->header()->setStretchLastSection(true);
  tree->setMinimumHeight(tree->header()->sizeHint().height() + kLeastValues * ComparisonModel::RowHeight());
  connect(model_, &QAbstractItemModel::modelAboutToBeReset, this, &ComparisonWindow::NotePlace);
  connect(model_, &QAbstractItemModel::modelReset, this, &ComparisonWindow::FindPlace);
  const auto note = [this](const QModelIndex& group) {
    if (tree_->isExpanded(group)) {
      closedGroups_.remove(model_->NameOf(group));
    } else {
      closedGroups_.insert(model_->NameOf(group));
    }
  };
  connect(tree, &QTreeView::expanded, this, note);
  connect(tree, &QTreeView::collapsed, this, note);
  return tree;
}

void ComparisonWindow::NotePlace() {
  if (!tree_->currentIndex().isValid()) return;
  current_ = model_->NameOf(tree_->currentIndex());
  scrolled_ = tree_->verticalScrollBar()->value();
}

/// A row that has gone, since both sides are equal now, leaves the operator at the top of what is shown.
void ComparisonWindow::FindPlace() {
  for (int row = 0; row < model_->rowCount(); ++row) {
    const QModelIndex group = model_->index(row, 0);
    tree_->setExpanded(group, !closedGroups_.contains(model_->NameOf(group)));
  }
  const QModelIndex place = model_->Find(current_);
  tree_->setCurrentIndex(place.isValid() ? place : model_->index(0, 0, model_->index(0, 0)));
  if (place.isValid()) tree_->verticalScrollBar()->setValue(scrolled_);
}

void ComparisonWindow::Show(const Offer& offer) {
  offer_ = offer;
  setWindowTitle(Shown(offer.title) + QStringLiteral(" - ") + Shown(std::string(kProgramTitle)));
  filter_->clear();
  trouble_.clear();
  closedGroups_.clear();
  model_->Begin(offer_.differences(), offer.ticked);
  const int letter = fontMetrics().averageCharWidth();
  tree_->setColumnWidth(ComparisonModel::kName, letter * kNameLetters);
  tree_->setColumnWidth(ComparisonModel::kHere, letter * kValueLetters);
  tree_->setCurrentIndex(model_->index(0, 0, model_->index(0, 0)));
  tree_->scrollToTop();
  FocusRows();
  show();
  raise();
  activateWindow();
}

void ComparisonWindow::FocusRows() {
  if (!tree_->selectionModel()->hasSelection()) {
    tree_->setCurrentIndex(model_->index(0, 0, model_->index(0, 0)));
  }
  tree_->setFocus();
}

void ComparisonWindow::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  LookSoon();
}

void ComparisonWindow::LookSoon() {
  if (isVisible()) soon_.Ask(kLookMs);
}

/// While a file is being loaded the panels are between two configurations; its end is a change again.
void ComparisonWindow::Look() {
  if (!isVisible() || !offer_.differences) return;
  try {
    model_->Refresh(offer_.differences());
    trouble_.clear();
  } catch (const RuntimeError& failure) {
    trouble_ = failure.Description();
    ShowState();
  }
}

void ComparisonWindow::ShowState() {
  const ComparisonModel::Counts counts = model_->Count();
  QString text = Number(counts.all, "difference", "differences");
  if (counts.shown != counts.all) text += QStringLiteral(", %1 shown").arg(counts.shown);
  text += QStringLiteral(", %1 ticked").arg(counts.ticked);
  if (counts.oneSided > 0) text += QStringLiteral("; %1 on one side only").arg(counts.oneSided);
  if (counts.all + counts.oneSided == 0) text = QStringLiteral("No differences");
  count_->setText(trouble_.empty() ? text : Shown(trouble_));
  all_->setEnabled(counts.ticked < counts.shown);
  none_->setEnabled(counts.ticked > 0);
  takeOver_->setEnabled(counts.ticked > 0 && trouble_.empty());
}

void ComparisonWindow::TakeOver() {
  OperatorQueue::OfProgram().Take(
      form_, *this, [this, offer = offer_, values = model_->Ticked()] { command_.Take(offer, values); });
  FocusRows();  // the button has nothing to do until something else is ticked
}

void ComparisonWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (!QApplication::activeModalWidget() && !DraggedConfiguration(*event->mimeData()).isEmpty()) {
    event->acceptProposedAction();
  }
}

void ComparisonWindow::dropEvent(QDropEvent* event) {
  event->acceptProposedAction();
  OperatorQueue::OfProgram().Take(
      form_, *this, [this, name = DraggedConfiguration(*event->mimeData())] { command_.Open(Typed(name)); });
}

}  // namespace marlinset

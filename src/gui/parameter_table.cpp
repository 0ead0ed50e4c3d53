// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/parameter_table.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QStyledItemDelegate>
#include <algorithm>

#include "gui/widgets/corner_mark.h"
#include "gui/widgets/fields.h"
#include "gui/widgets/look.h"
#include "gui/widgets/scroll_keeper.h"

namespace marlinset {
namespace {

constexpr int kDecimal = 10;
constexpr int kHexadecimal = 16;
constexpr int kValueFigures = 14;
constexpr double kQuiet = 0.8;  ///< of a text that is as expected

/// Edits a value with the row's own spin, which needs no copying to and fro, and marks what differs from the
/// reference database.
class CellDelegate : public QStyledItemDelegate {
 public:
  CellDelegate(FrmStart& form, ParameterModel& model, QObject* parent)
      : QStyledItemDelegate(parent), form_(form), model_(model) {}

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                        const QModelIndex& cell) const override {
    const std::shared_ptr<ParameterRecord>& record = model_.RecordOf(cell.row());
    if (record->gone) return nullptr;
    auto* field = new SpinField(form_.udVal(record->row), form_.tVal(record->row), parent, record);
    field->SetRadix(
        [this] { return form_.bValue.Caption() == FrmStart::kHexadecimalHead ? kHexadecimal : kDecimal; });
    field->setAccessibleName(record->names.at(ParameterModel::kDescription));
    field->selectAll();  // typing replaces the value
    connect(&model_, &ParameterModel::Arranged, field, [this, field, record] {
      if (record->Find()) field->Follow(form_.udVal(record->row), form_.tVal(record->row));
    });
    connect(&model_, &ParameterModel::Going, field, [field] { Binding::Retire(*field); });
    return field;
  }
  void setEditorData(QWidget* /*editor*/, const QModelIndex& /*cell*/) const override {}
  void setModelData(QWidget* /*editor*/, QAbstractItemModel* /*model*/,
                    const QModelIndex& /*cell*/) const override {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& cell) const override {
    QStyledItemDelegate::paint(painter, option, cell);
    if (cell.column() == ParameterModel::kReference && cell.data(ParameterModel::kDiffersRole).toBool())
      PaintDiffers(*painter, option);
    if (cell.data(ParameterModel::kUnheldRole).toBool())
      PaintCornerMark(*painter, FieldOf(option, cell), MarkInk(option, LinkColor(option.palette)));
  }

 protected:
  /// A row that is being sent shows its mark even if it is selected.
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& cell) const override {
    QStyledItemDelegate::initStyleOption(option, cell);
    if (option->backgroundBrush.style() != Qt::NoBrush) option->state &= ~QStyle::State_Selected;
    if (cell.column() == ParameterModel::kReference && !cell.data(ParameterModel::kDiffersRole).toBool()) {
      const QColor ink =
          Blend(option->palette.color(QPalette::Base), option->palette.color(QPalette::Text), kQuiet);
      option->palette.setColor(QPalette::Text, ink);
    }
  }
  /// The view closes the editor on Esc, and a closed editor counts as left.
  bool eventFilter(QObject* editor, QEvent* event) override {
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
      static_cast<SpinField*>(editor)->TakeBack();
    }
    // A menu is opened: what is typed stays, and goes before what is chosen there.
    if (event->type() == QEvent::FocusOut && !GoesForGood(*static_cast<QFocusEvent*>(event))) return false;
    return QStyledItemDelegate::eventFilter(editor, event);
  }

 private:
  static QColor MarkInk(const QStyleOptionViewItem& option, const QColor& ink) {
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    return selected ? option.palette.color(QPalette::HighlightedText) : ink;
  }
  /// The part of a wide cell that holds the value, as narrow as a field of its own would be.
  static QRect FieldOf(const QStyleOptionViewItem& option, const QModelIndex& cell) {
    const int value = QFontMetrics(FixedFont()).horizontalAdvance(cell.data().toString());
    QRect field = option.rect;
    field.setLeft(std::max(field.left(), field.right() - value - 2 * option.fontMetrics.height()));
    return field;
  }
  /// A filled diamond at the left of the cell, beside the value: a mark that needs no colour.
  static void PaintDiffers(QPainter& painter, const QStyleOptionViewItem& option) {
    const double half = option.fontMetrics.height() * 0.32;
    const QPointF middle(option.rect.left() + 3 * half, QRectF(option.rect).center().y());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(MarkInk(option, FocusColor(option.palette)));
    painter.drawPolygon(QPolygonF({middle + QPointF(0, -half), middle + QPointF(half, 0),
                                   middle + QPointF(0, half), middle + QPointF(-half, 0)}));
    painter.restore();
  }

  FrmStart& form_;
  ParameterModel& model_;
};

}  // namespace

ParameterTable::ParameterTable(FrmStart& form, ReferenceValue reference, QWidget* parent)
    : QTableView(parent), model_(new ParameterModel(form, std::move(reference), this)) {
  setModel(model_);
  setItemDelegate(new CellDelegate(form, *model_, this));
  SetLooks();
  SetColumns();
  FollowModel(form);
}

void ParameterTable::SetLooks() {
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  // Not by a click on the selected row: the toolkit then waits for a second one and loses keys meanwhile.
  setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
  setAlternatingRowColors(true);
  setShowGrid(false);
  setWordWrap(false);
  setTabKeyNavigation(false);  // Tab goes on to the next field, as everywhere
  setCornerButtonEnabled(false);
  verticalHeader()->hide();
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 2 * SpaceUnit(*this));
  setAccessibleName(QStringLiteral("Parameter list"));
}

void ParameterTable::SetColumns() {
  QHeaderView& header = *horizontalHeader();
  for (const int column : {ParameterModel::kClass, ParameterModel::kParameter}) {
    header.setSectionResizeMode(column, QHeaderView::ResizeToContents);
  }
  header.setSectionResizeMode(ParameterModel::kDescription, QHeaderView::Stretch);
  for (const int column : {ParameterModel::kValue, ParameterModel::kReference}) {
    header.setSectionResizeMode(column, QHeaderView::Fixed);
    header.resizeSection(column, FiguresWidth(*this, kValueFigures) + 4 * SpaceUnit(*this));
  }
  header.setHighlightSections(false);
  header.setSectionsClickable(true);
}

/// An arrow on the head by which the list is sorted.
void ParameterTable::ShowSort() {
  QHeaderView& header = *horizontalHeader();
  for (int column = 0; column < ParameterModel::kHeads; ++column) {
    const SortArrow arrow = model_->Head(column).Arrow();
    if (arrow == SortArrow::kNone) continue;
    // A head points as a column of rising values does elsewhere on the desktop.
    header.setSortIndicator(column, arrow == SortArrow::kRising ? Qt::AscendingOrder : Qt::DescendingOrder);
    return;
  }
  header.setSortIndicator(-1, Qt::AscendingOrder);
}

/// Heads, arrow and scrolling follow the list.
void ParameterTable::FollowModel(FrmStart& form) {
  QHeaderView& header = *horizontalHeader();
  connect(&header, &QHeaderView::sectionClicked, this, [this](int column) {
    if (column >= ParameterModel::kHeads) return ShowSort();  // the click moved the arrow by itself
    OperatorQueue::OfProgram().Take(model_->Head(column), {OperatorAction::Kind::kClick}, Turn::kInOrder,
                                    this, [this] { ShowSort(); });
  });
  connect(model_, &QAbstractItemModel::headerDataChanged, this, [this] { ShowSort(); });
  header.setSortIndicatorShown(true);
  ShowSort();
  connect(model_, &ParameterModel::Arranged, this, [this, &form] {
    if (IsEdited()) {
      scrollTo(currentIndex());
    } else if (form.bClass.Arrow() == SortArrow::kRising) {
      scrollToTop();
    }
  });
  auto* keeper = new ScrollKeeper(*this, form.bSConfig);
  connect(model_, &ParameterModel::Marked, this, [this, keeper](const QModelIndex& cell) {
    if (IsEdited()) keeper->LeaveToHands();
    if (isVisible() && ScrollKeeper::MayScroll(*this)) scrollTo(cell);
  });
  connect(model_, &ParameterModel::Arranged, this, &ParameterTable::SelectionMayDiffer);
  connect(model_, &QAbstractItemModel::dataChanged, this, &ParameterTable::SelectionMayDiffer);
  connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &ParameterTable::SelectionMayDiffer);
}

QModelIndexList ParameterTable::SelectedInOrder() const {
  QModelIndexList rows = selectionModel()->selectedRows();
  std::ranges::sort(rows, {}, &QModelIndex::row);
  return rows;
}

std::vector<ParameterKey> ParameterTable::SelectedKeys() const {
  std::vector<ParameterKey> keys;
  for (const QModelIndex& cell : SelectedInOrder()) keys.push_back(model_->RecordOf(cell.row())->Key());
  return keys;
}

std::vector<ParameterKey> ParameterTable::SelectedDifferences() const {
  std::vector<ParameterKey> keys;
  for (const QModelIndex& cell : SelectedInOrder()) {
    if (cell.data(ParameterModel::kDiffersRole).toBool()) keys.push_back(model_->RecordOf(cell.row())->Key());
  }
  return keys;
}

bool ParameterTable::edit(const QModelIndex& cell, EditTrigger trigger, QEvent* event) {
  const QModelIndex value = cell.siblingAtColumn(ParameterModel::kValue);
  if (!QTableView::edit(value, trigger, event)) return false;
  if (trigger == DoubleClicked && indexWidget(value)) {
    opened_ = static_cast<QMouseEvent*>(event)->timestamp();
    WatchFurtherClicks(*indexWidget(value));
  }
  return true;
}

/// The press has taken the focus from the editor, which closed.
void ParameterTable::mousePressEvent(QMouseEvent* event) {
  const QModelIndex cell = indexAt(event->position().toPoint());
  if (IsFurtherClick(*event) && cell.row() == currentIndex().row()) {
    QTableView::edit(cell.siblingAtColumn(ParameterModel::kValue));
  } else {
    QTableView::mousePressEvent(event);
  }
}

bool ParameterTable::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  const bool mouse =
      type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick || type == QEvent::MouseMove;
  auto* field = mouse ? indexWidget(currentIndex().siblingAtColumn(ParameterModel::kValue)) : nullptr;
  const bool inEditor = field && (watched == field || watched->parent() == field);
  if (!inEditor || !IsFurtherClick(*static_cast<QMouseEvent*>(event))) {
    return QTableView::eventFilter(watched, event);
  }
  static_cast<SpinField*>(field)->selectAll();
  return true;
}

void ParameterTable::WatchFurtherClicks(QWidget& field) {
  field.installEventFilter(this);
  for (auto* part : field.findChildren<QLineEdit*>()) part->installEventFilter(this);
}

bool ParameterTable::IsFurtherClick(const QMouseEvent& event) const {
  const auto interval = static_cast<quint64>(QApplication::doubleClickInterval());
  return event.buttons() != Qt::NoButton && opened_ && event.timestamp() - *opened_ < interval;
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStyledItemDelegate>
#include <QTableView>
#include <optional>

#include "gui/panel_views.h"
#include "gui/parameter_model.h"
#include "gui/widgets/corner_mark.h"
#include "gui/widgets/fields.h"
#include "gui/widgets/look.h"
#include "gui/widgets/scroll_keeper.h"
#include "gui/widgets/widget_bindings.h"

namespace marlinset {
namespace {

constexpr int kDecimal = 10;
constexpr int kHexadecimal = 16;
constexpr int kWidestFigures = 160;

/// Edits a value with the row's own spin, which needs no copying to and fro.
class ValueDelegate : public QStyledItemDelegate {
 public:
  ValueDelegate(FrmStart& form, ParameterModel& model, QObject* parent)
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
    if (!cell.data(ParameterModel::kUnheldRole).toBool()) return;
    const bool selected = option.state & QStyle::State_Selected;
    PaintCornerMark(*painter, option.rect,
                    selected ? option.palette.color(QPalette::HighlightedText) : LinkColor(option.palette));
  }

 protected:
  /// A row that is being sent shows its mark even if it is selected.
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& cell) const override {
    QStyledItemDelegate::initStyleOption(option, cell);
    if (option->backgroundBrush.style() != Qt::NoBrush) option->state &= ~QStyle::State_Selected;
  }
  /// The view closes the editor on Esc, and a closed editor counts as left.
  bool eventFilter(QObject* editor, QEvent* event) override {
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
      static_cast<SpinField*>(editor)->TakeBack();
    }
    return QStyledItemDelegate::eventFilter(editor, event);
  }

 private:
  FrmStart& form_;
  ParameterModel& model_;
};

/// Edits a row at its value, whichever of its cells is current. A double click opens the editor with all of
/// the number selected; a hand that clicks once more wants that as well.
class ParameterTable : public QTableView {
 public:
  using QTableView::QTableView;
  bool IsEdited() const { return state() == EditingState; }

 protected:
  bool edit(const QModelIndex& cell, EditTrigger trigger, QEvent* event) override {
    const QModelIndex value = cell.siblingAtColumn(ParameterModel::kValue);
    if (!QTableView::edit(value, trigger, event)) return false;
    if (trigger == DoubleClicked && indexWidget(value)) {
      opened_ = static_cast<QMouseEvent*>(event)->timestamp();
      WatchFurtherClicks(*indexWidget(value));
    }
    return true;
  }

  /// The press has taken the focus from the editor, which closed.
  void mousePressEvent(QMouseEvent* event) override {
    const QModelIndex cell = indexAt(event->position().toPoint());
    if (IsFurtherClick(*event) && cell.row() == currentIndex().row()) {
      QTableView::edit(cell.siblingAtColumn(ParameterModel::kValue));
    } else {
      QTableView::mousePressEvent(event);
    }
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
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

 private:
  void WatchFurtherClicks(QWidget& field) {
    field.installEventFilter(this);
    for (auto* part : field.findChildren<QLineEdit*>()) part->installEventFilter(this);
  }
  bool IsFurtherClick(const QMouseEvent& event) const {
    const auto interval = static_cast<quint64>(QApplication::doubleClickInterval());
    return event.buttons() != Qt::NoButton && opened_ && event.timestamp() - *opened_ < interval;
  }

  std::optional<quint64> opened_;  ///< by a double click at this time of the desktop
};

/// An arrow on the head by which the list is sorted.
void ShowSort(QHeaderView& header, const ParameterModel& model) {
  for (int column = 0; column < ParameterModel::kColumns; ++column) {
    const SortArrow arrow = model.Head(column).Arrow();
    if (arrow == SortArrow::kNone) continue;
    // A head points as a column of rising values does elsewhere on the desktop.
    header.setSortIndicator(column, arrow == SortArrow::kRising ? Qt::AscendingOrder : Qt::DescendingOrder);
    return;
  }
  header.setSortIndicator(-1, Qt::AscendingOrder);
}

void SetColumns(QTableView& table) {
  QHeaderView& header = *table.horizontalHeader();
  const int unit = SpaceUnit(table);
  for (const int column : {ParameterModel::kClass, ParameterModel::kParameter}) {
    header.setSectionResizeMode(column, QHeaderView::ResizeToContents);
  }
  header.setSectionResizeMode(ParameterModel::kDescription, QHeaderView::Stretch);
  header.setSectionResizeMode(ParameterModel::kValue, QHeaderView::Fixed);
  const int figures = FiguresWidth(table, 14);
  header.resizeSection(ParameterModel::kValue, figures + 4 * unit);
  header.setHighlightSections(false);
  header.setSectionsClickable(true);
}

void SetUpTable(QTableView* table) {
  table->setSelectionBehavior(QAbstractItemView::SelectRows);
  table->setSelectionMode(QAbstractItemView::SingleSelection);
  // Not by a click on the selected row: the toolkit then waits for a second one and loses keys meanwhile.
  table->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
  table->setAlternatingRowColors(true);
  table->setShowGrid(false);
  table->setWordWrap(false);
  table->setTabKeyNavigation(false);  // Tab goes on to the next field, as everywhere
  table->verticalHeader()->hide();
  table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + 2 * SpaceUnit(*table));
  table->setAccessibleName(QStringLiteral("Parameter list"));
  SetColumns(*table);
}

/// Heads, arrow and scrolling follow the list.
void FollowModel(ParameterTable* table, ParameterModel* model, FrmStart& form) {
  QObject::connect(
      table->horizontalHeader(), &QHeaderView::sectionClicked, model, [model, table](int column) {
        OperatorQueue::OfProgram().Take(model->Head(column), {OperatorAction::Kind::kClick}, Turn::kInOrder,
                                        table,
                                        // The click moved the arrow by itself.
                                        [model, table] { ShowSort(*table->horizontalHeader(), *model); });
      });
  QObject::connect(model, &QAbstractItemModel::headerDataChanged, table,
                   [model, table] { ShowSort(*table->horizontalHeader(), *model); });
  table->horizontalHeader()->setSortIndicatorShown(true);
  ShowSort(*table->horizontalHeader(), *model);
  QObject::connect(model, &ParameterModel::Arranged, table, [table, &form] {
    if (table->IsEdited()) {
      table->scrollTo(table->currentIndex());
    } else if (form.bClass.Arrow() == SortArrow::kRising) {
      table->scrollToTop();
    }
  });
  auto* keeper = new ScrollKeeper(*table, form.bSConfig);
  QObject::connect(model, &ParameterModel::Marked, table, [table, keeper](const QModelIndex& cell) {
    if (table->IsEdited()) keeper->LeaveToHands();
    if (table->isVisible() && ScrollKeeper::MayScroll(*table)) table->scrollTo(cell);
  });
}

}  // namespace

QWidget* MakeParametersPanel(FrmStart& form, QWidget* parent) {
  auto* page = new QWidget(parent);
  auto* table = new ParameterTable(page);
  auto* model = new ParameterModel(form, table);
  table->setModel(model);
  table->setItemDelegate(new ValueDelegate(form, *model, table));
  SetUpTable(table);
  FollowModel(table, model, form);
  BindFlags(*table, form.pParIn);
  // On a wide screen a value stays beside its description.
  table->setMaximumWidth(FiguresWidth(*table, kWidestFigures));
  auto* row = new QHBoxLayout(page);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(table, kNearlyAll);
  row->addStretch(1);
  Bind(*page, form.fParameters);
  return page;
}

}  // namespace marlinset

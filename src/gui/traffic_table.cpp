// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/traffic_table.h"

#include <QHeaderView>
#include <QScrollBar>
#include <algorithm>
#include <set>

#include "base/finally.h"
#include "gui/widgets/look.h"

namespace marlinset {
namespace {

struct WidthRule {
  const char* least;  ///< the column has room for this in any case
  bool figures;       ///< in the font of figures
  int share;          ///< of the width that is left
};
/// The bytes of a window's message, and of a parameter's nearly all, can be read on a small screen.
constexpr WidthRule kWidthRules[kTrafficColumns] = {{"00:00:00.000", true, 0},
                                                    {"From unit", false, 0},
                                                    {"Window 10 'Sound Timec", false, 3},
                                                    {"15 0 192", true, 2},
                                                    {"02 08 02 08 21 03 40 14 04 0B 67", true, 2},
                                                    {"Acknowledged", false, 0}};

/// In few ranges: thousands of single rows would take the selection seconds.
QItemSelection SelectionOf(const std::set<Traffic::Row>& wanted, const TrafficModel& model) {
  const std::vector<Traffic::Row> rows = model.Rows();
  const auto isWanted = [&wanted](const Traffic::Row& row) { return wanted.contains(row); };
  QItemSelection selection;
  for (auto end = rows.begin(); !wanted.empty() && end != rows.end();) {
    const auto begin = std::find_if(end, rows.end(), isWanted);
    end = std::find_if_not(begin, rows.end(), isWanted);
    if (begin == end) break;
    selection.select(model.index(static_cast<int>(begin - rows.begin()), 0),
                     model.index(static_cast<int>(end - rows.begin()) - 1, 0));
  }
  return selection;
}

}  // namespace

TrafficTable::TrafficTable(TrafficModel& model, QWidget* parent) : QTableView(parent), model_(model) {
  setModel(&model);
  SetLooks();
  SetColumns();
  FollowNewest();
}

void TrafficTable::SetLooks() {
  setObjectName(QStringLiteral("TrafficTable"));
  setAccessibleName(QStringLiteral("Traffic on the line"));
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  setAlternatingRowColors(false);  // rows leave at the top: the stripes would change places
  setShowGrid(false);
  setWordWrap(false);
  setTabKeyNavigation(false);  // Tab goes on to the next field, as everywhere
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  QHeaderView& rows = *verticalHeader();
  rows.hide();
  rows.setMinimumSectionSize(1);
  rows.setSectionResizeMode(QHeaderView::Fixed);
  rows.setDefaultSectionSize(fontMetrics().height() + SpaceUnit(*this));
}

void TrafficTable::SetColumns() {
  QHeaderView& header = *horizontalHeader();
  header.setMinimumSectionSize(4 * SpaceUnit(*this));
  header.setHighlightSections(false);
  header.setSectionsClickable(false);
  FitColumns();
  connect(&header, &QHeaderView::sectionResized, this, [this] { drawn_ = drawn_ || !fitting_; });
}

void TrafficTable::FitColumns() {
  const QFontMetrics figures(FixedFont());
  const QFontMetrics texts = fontMetrics();
  int spare = viewport()->width();
  int shares = 0;
  int widths[kTrafficColumns];
  for (std::size_t i = 0; i < kTrafficColumns; ++i) {
    const QFontMetrics& letters = kWidthRules[i].figures ? figures : texts;
    widths[i] = letters.horizontalAdvance(QLatin1String(kWidthRules[i].least)) + SpaceUnit(*this) * 3 / 2;
    spare -= widths[i];
    shares += kWidthRules[i].share;
  }
  spare = std::max(spare, 0);
  fitting_ = true;
  Finally(
      [&] {
        for (std::size_t i = 0; i < kTrafficColumns; ++i) {
          const int part = shares == 0 ? 0 : spare * kWidthRules[i].share / shares;
          spare -= part;
          shares -= kWidthRules[i].share;
          setColumnWidth(static_cast<int>(i), widths[i] + part);
        }
      },
      [this] { fitting_ = false; });
}

void TrafficTable::resizeEvent(QResizeEvent* event) {
  if (!drawn_) FitColumns();
  QTableView::resizeEvent(event);
}

void TrafficTable::FollowNewest() {
  QScrollBar* bar = verticalScrollBar();
  connect(bar, &QScrollBar::valueChanged, this, [this, bar] { atFoot_ = bar->value() == bar->maximum(); });
  // The view extends the range some time after the rows have come.
  connect(bar, &QScrollBar::rangeChanged, this, [this, bar] {
    if (atFoot_) bar->setValue(bar->maximum());
  });
  connect(&model_, &QAbstractItemModel::rowsRemoved, this,
          [this, bar](const QModelIndex&, int first, int last) {
            if (first == 0 && !atFoot_) bar->setValue(bar->value() - (last + 1));
          });
  connect(&model_, &QAbstractItemModel::modelReset, this, [this, bar] {
    updateGeometries();
    bar->setValue(bar->maximum());
    atFoot_ = true;
  });
}

std::vector<Traffic::Row> TrafficTable::SelectedRows() const {
  QModelIndexList selected = selectionModel()->selectedRows();
  std::ranges::sort(selected, {}, &QModelIndex::row);
  const std::vector<Traffic::Row> rows = model_.Rows();
  std::vector<Traffic::Row> chosen;
  for (const QModelIndex& cell : selected) chosen.push_back(rows.at(static_cast<std::size_t>(cell.row())));
  return chosen;
}

void TrafficTable::SetFilter(const TrafficFilter& filter) {
  const std::vector<Traffic::Row> chosen = SelectedRows();
  const std::set<Traffic::Row> wanted(chosen.begin(), chosen.end());
  const int across = horizontalScrollBar()->value();
  model_.SetFilter(filter);
  const QItemSelection selection = SelectionOf(wanted, model_);
  if (selection.isEmpty()) return;
  const QModelIndex first = selection.first().topLeft();
  const int place = rowViewportPosition(first.row());
  if (place < 0 || place + rowHeight(first.row()) > viewport()->height()) scrollTo(first, PositionAtCenter);
  selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
  selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  horizontalScrollBar()->setValue(across);
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/traffic_model.h"

#include <algorithm>

#include "gui/widgets/look.h"

namespace marlinset {
namespace {

constexpr int kColumns = static_cast<int>(kTrafficColumns);

QString CellText(const TrafficRow& row, int column) {
  return Shown(TrafficText(row, static_cast<std::size_t>(column)));
}

bool HoldsText(const TrafficRow& row, const QString& text) {
  for (int column = 0; column < kColumns; ++column) {
    if (CellText(row, column).contains(text, Qt::CaseInsensitive)) return true;
  }
  return false;
}

bool Precedes(const Traffic::Row& row, std::int64_t number) {
  return row->number < number;
}

}  // namespace

TrafficModel::TrafficModel(QObject* parent) : QAbstractTableModel(parent), figures_(FixedFont()) {}

TrafficModel::~TrafficModel() = default;

int TrafficModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

int TrafficModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

QVariant TrafficModel::data(const QModelIndex& cell, int role) const {
  const TrafficRow& row = *shown_[static_cast<std::size_t>(cell.row())];
  constexpr int kTime = 0, kFields = 3, kBytes = 4;
  const int column = cell.column();
  switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
      return CellText(row, column);
    case Qt::FontRole:
      return column == kTime || column == kFields || column == kBytes ? figures_ : QVariant();
    default:
      return {};
  }
}

QVariant TrafficModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::DisplayRole) return Shown(TrafficHeads().at(static_cast<std::size_t>(section)));
  if (role == Qt::TextAlignmentRole) return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
  return {};
}

void TrafficModel::Show(std::unique_ptr<Traffic> traffic) {
  listening_.reset();
  traffic_ = std::move(traffic);
  newest_ = 0;
  firstChanged_.reset();
  if (paused_) paused_ = 0;
  if (traffic_) listening_.emplace(traffic_->Changed, [this](std::int64_t number) { Note(number); });
  Refill();
}

void TrafficModel::SetFilter(const TrafficFilter& filter) {
  if (filter == filter_) return;
  filter_ = filter;
  Refill();
}

void TrafficModel::SetPaused(bool paused) {
  Update();
  paused_ = paused ? std::optional(newest_) : std::nullopt;
  Update();
}

void TrafficModel::Clear() {
  if (traffic_) traffic_->Clear();
  if (paused_) paused_ = newest_;
  Refill();
}

/// Soon, but no batch follows the one before too closely.
void TrafficModel::Note(std::int64_t number) {
  firstChanged_ = std::min(firstChanged_.value_or(number), number);
  newest_ = std::max(newest_, number);
  const qint64 passed = sinceUpdate_.isValid() ? sinceUpdate_.elapsed() : kBatchMs;
  soon_.Ask(static_cast<int>(std::clamp<qint64>(kBatchMs - passed, 0, kBatchMs)));
}

bool TrafficModel::Passes(const TrafficRow& row) const {
  if (!(row.sent ? filter_.sent : filter_.received) || (row.poll && !filter_.polls)) return false;
  return filter_.text.isEmpty() || HoldsText(row, filter_.text);
}

/// The recorded rows from `number` on that pass the filter; in a pause none that came in it.
std::vector<Traffic::Row> TrafficModel::From(std::int64_t number) const {
  std::vector<Traffic::Row> rows;
  for (std::size_t i = traffic_ ? traffic_->Count() : 0; i > 0; --i) {
    Traffic::Row row = traffic_->At(i - 1);
    if (row->number < number) break;
    const bool later = paused_ && row->number > *paused_;
    if (!later && Passes(*row)) rows.push_back(std::move(row));
  }
  std::ranges::reverse(rows);
  return rows;
}

/// An answer completes the row of its message, which may change whether it passes the filter: the end of the
/// table is compared anew, from the earliest row concerned.
void TrafficModel::Update() {
  sinceUpdate_.start();
  if (firstChanged_ && !paused_) {
    const std::int64_t first = *firstChanged_;
    firstChanged_.reset();
    const std::vector<Traffic::Row> rows = From(first);
    const auto begin = std::lower_bound(shown_.begin(), shown_.end(), first, Precedes);
    ReplaceEnd(static_cast<std::size_t>(begin - shown_.begin()), rows);
    const auto oldest = traffic_->Count() > 0 ? traffic_->At(0)->number : newest_ + 1;
    const auto kept = std::lower_bound(shown_.begin(), shown_.end(), oldest, Precedes);
    Drop(static_cast<std::size_t>(kept - shown_.begin()));
  }
  emit Updated();
}

void TrafficModel::Drop(std::size_t count) {
  if (count == 0) return;
  beginRemoveRows({}, 0, static_cast<int>(count) - 1);
  shown_.erase(shown_.begin(), shown_.begin() + static_cast<std::ptrdiff_t>(count));
  endRemoveRows();
}

void TrafficModel::ReplaceEnd(std::size_t at, const std::vector<Traffic::Row>& rows) {
  const auto end = shown_.begin() + static_cast<std::ptrdiff_t>(at);
  const auto same = std::mismatch(end, shown_.end(), rows.begin(), rows.end());
  const auto common = static_cast<std::size_t>(same.second - rows.begin());
  const int first = static_cast<int>(at);
  const int differs = first + static_cast<int>(common);
  if (common > 0) emit dataChanged(index(first, 0), index(differs - 1, kColumns - 1));
  if (same.first != shown_.end()) {
    beginRemoveRows({}, differs, rowCount() - 1);
    shown_.erase(same.first, shown_.end());
    endRemoveRows();
  }
  if (common == rows.size()) return;
  beginInsertRows({}, differs, static_cast<int>(at + rows.size()) - 1);
  shown_.insert(shown_.end(), rows.begin() + static_cast<std::ptrdiff_t>(common), rows.end());
  endInsertRows();
}

void TrafficModel::Refill() {
  beginResetModel();
  const std::vector<Traffic::Row> rows = From(0);
  shown_.assign(rows.begin(), rows.end());
  if (!paused_) firstChanged_.reset();
  endResetModel();
  emit Updated();
}

QString TextOf(std::span<const Traffic::Row> rows) {
  QString text;
  for (const Traffic::Row& row : rows) {
    for (int column = 0; column < kColumns; ++column) {
      text += CellText(*row, column) + QLatin1Char(column + 1 < kColumns ? '\t' : '\n');
    }
  }
  return text;
}

}  // namespace marlinset

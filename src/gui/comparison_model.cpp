// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/comparison_model.h"

#include <QApplication>
#include <QFontMetrics>
#include <QPalette>
#include <algorithm>
#include <utility>

#include "gui/widgets/look.h"

namespace marlinset {
namespace {

/// A group's own cells have this id, those of its values the group's number above it.
constexpr quintptr kGroup = 0;

/// The name without the list, which the group's title names, and what a parameter is about.
QString LabelOf(const ComparedValue& row) {
  QString name = Shown(row.name);
  for (const char* list : {"character windows / ", "system parameters / "}) {
    if (name.startsWith(QLatin1String(list))) name.remove(0, QLatin1String(list).size());
  }
  return row.about.empty() ? name : name + QStringLiteral("   ") + Shown(row.about);
}

/// Grey that can still be read: the desktop's own for what is disabled is too faint for hundreds of rows.
QBrush Faint() {
  constexpr double kInk = 0.62;
  const QPalette palette = QApplication::palette();
  return Blend(palette.color(QPalette::Base), palette.color(QPalette::Text), kInk);
}

QString ValueText(const std::optional<SingleValue>& value) {
  return value ? Shown(TextOf(*value)) : QStringLiteral("none");
}

bool SameRows(const std::vector<ComparedValue>& a, const std::vector<ComparedValue>& b) {
  return std::ranges::equal(a, b, [](const ComparedValue& left, const ComparedValue& right) {
    return left.name == right.name && left.OneSided() == right.OneSided();
  });
}

}  // namespace

void ComparisonModel::Begin(std::vector<ComparedValue> rows, bool ticked) {
  ticked_.clear();
  for (const ComparedValue& row : rows) Tick(row, ticked);
  Arrange(std::move(rows));
}

void ComparisonModel::Refresh(std::vector<ComparedValue> rows) {
  if (!SameRows(rows, rows_) || !words_.isEmpty()) return Arrange(std::move(rows));
  rows_ = std::move(rows);
  for (int group = 0; group < rowCount(); ++group) {
    const QModelIndex head = index(group, 0);
    const int last = rowCount(head) - 1;
    emit dataChanged(index(0, kHere, head), index(last, kThere, head));
  }
  emit Changed();
}

void ComparisonModel::SetFilter(const QString& text) {
  words_ = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
  Arrange(std::vector(rows_));
}

void ComparisonModel::TickAll(bool on) {
  for (const Group& group : groups_) {
    for (const std::size_t row : group.rows) Tick(rows_[row], on);
  }
  for (int group = 0; group < rowCount(); ++group) {
    const QModelIndex head = index(group, 0);
    emit dataChanged(index(0, kName, head), index(rowCount(head) - 1, kName, head));
  }
  if (rowCount() > 0) emit dataChanged(index(0, kName), index(rowCount() - 1, kName));
  emit Changed();
}

std::vector<NewValue> ComparisonModel::Ticked() const {
  std::vector<NewValue> values;
  for (const Group& group : groups_) {
    for (const std::size_t number : group.rows) {
      const ComparedValue& row = rows_[number];
      if (IsTicked(row)) values.push_back({row.name, *row.there});
    }
  }
  return values;
}

ComparisonModel::Counts ComparisonModel::Count() const {
  Counts counts;
  for (const ComparedValue& row : rows_) ++(row.OneSided() ? counts.oneSided : counts.all);
  for (const Group& group : groups_) {
    for (const std::size_t row : group.rows) counts.shown += rows_[row].OneSided() ? 0 : 1;
  }
  counts.ticked = static_cast<int>(Ticked().size());
  return counts;
}

/// Whoever listens to the beginning of the reset still reads the rows before it.
void ComparisonModel::Arrange(std::vector<ComparedValue> rows) {
  beginResetModel();
  rows_ = std::move(rows);
  groups_.clear();
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    if (!Passes(rows_[i])) continue;
    const QString name = Shown(std::string(rows_[i].group));
    auto group = std::ranges::find(groups_, name, &Group::name);
    if (group == groups_.end()) group = groups_.insert(groups_.end(), Group{name, {}});
    group->rows.push_back(i);
  }
  endResetModel();
  emit Changed();
}

bool ComparisonModel::Passes(const ComparedValue& row) const {
  return std::ranges::all_of(words_, [&](const QString& word) {
    const auto has = [&](const QString& text) { return text.contains(word, Qt::CaseInsensitive); };
    return has(Shown(row.name)) || has(Shown(row.about)) || has(Shown(std::string(row.group))) ||
           (row.here && has(ValueText(row.here))) || (row.there && has(ValueText(row.there)));
  });
}

void ComparisonModel::Tick(const ComparedValue& row, bool on) {
  if (row.OneSided()) return;
  if (on) {
    ticked_.insert(row.name);
  } else {
    ticked_.erase(row.name);
  }
}

QString ComparisonModel::NameOf(const QModelIndex& cell) const {
  if (!cell.isValid()) return {};
  const ComparedValue* row = RowOf(cell);
  return row ? Shown(row->name) : GroupOf(cell).name;
}

QModelIndex ComparisonModel::Find(const QString& name) const {
  for (int group = 0; group < rowCount(); ++group) {
    const QModelIndex head = index(group, 0);
    if (NameOf(head) == name) return head;
    for (int row = 0; row < rowCount(head); ++row) {
      if (NameOf(index(row, 0, head)) == name) return index(row, 0, head);
    }
  }
  return {};
}

QModelIndex ComparisonModel::index(int row, int column, const QModelIndex& parent) const {
  if (!hasIndex(row, column, parent)) return {};
  return createIndex(row, column, parent.isValid() ? static_cast<quintptr>(parent.row()) + 1 : kGroup);
}

QModelIndex ComparisonModel::parent(const QModelIndex& cell) const {
  if (!cell.isValid() || cell.internalId() == kGroup) return {};
  return createIndex(static_cast<int>(cell.internalId()) - 1, 0, kGroup);
}

int ComparisonModel::rowCount(const QModelIndex& parent) const {
  if (!parent.isValid()) return static_cast<int>(groups_.size());
  if (parent.internalId() != kGroup || parent.column() != 0) return 0;
  return static_cast<int>(GroupOf(parent).rows.size());
}

const ComparisonModel::Group& ComparisonModel::GroupOf(const QModelIndex& cell) const {
  const bool isGroup = cell.internalId() == kGroup;
  return groups_.at(isGroup ? static_cast<std::size_t>(cell.row()) : cell.internalId() - 1);
}

const ComparedValue* ComparisonModel::RowOf(const QModelIndex& cell) const {
  if (cell.internalId() == kGroup) return nullptr;
  return &rows_.at(GroupOf(cell).rows.at(static_cast<std::size_t>(cell.row())));
}

Qt::CheckState ComparisonModel::StateOf(const Group& group) const {
  const auto ticked =
      std::ranges::count_if(group.rows, [this](std::size_t row) { return IsTicked(rows_[row]); });
  const auto all =
      std::ranges::count_if(group.rows, [this](std::size_t row) { return !rows_[row].OneSided(); });
  return ticked == 0 ? Qt::Unchecked : ticked == all ? Qt::Checked : Qt::PartiallyChecked;
}

int ComparisonModel::RowHeight() {
  return QFontMetrics(QApplication::font()).height() * 3 / 2;
}

QVariant ComparisonModel::GroupData(const Group& group, int column, int role) const {
  if (role == Qt::DisplayRole && column == kName) return group.name;
  if (role == Qt::FontRole) {
    QFont bold = QApplication::font();
    bold.setBold(true);
    return bold;
  }
  const auto takes = [this](std::size_t row) { return !rows_[row].OneSided(); };
  if (role == Qt::CheckStateRole && column == kName && std::ranges::any_of(group.rows, takes)) {
    return StateOf(group);
  }
  return {};
}

QVariant ComparisonModel::data(const QModelIndex& cell, int role) const {
  if (!cell.isValid()) return {};
  if (role == Qt::SizeHintRole) return QSize(0, RowHeight());
  const ComparedValue* row = RowOf(cell);
  if (!row) return GroupData(GroupOf(cell), cell.column(), role);
  switch (role) {
    case Qt::DisplayRole:
      if (cell.column() == kName) return LabelOf(*row);
      return ValueText(cell.column() == kHere ? row->here : row->there);
    case Qt::CheckStateRole:
      if (cell.column() != kName || row->OneSided()) return {};
      return IsTicked(*row) ? Qt::Checked : Qt::Unchecked;
    case Qt::ToolTipRole:
      if (!row->here) return QStringLiteral("The panels do not have this, so it cannot be taken over.");
      if (!row->there) return QStringLiteral("Only the panels have this.");
      return cell.column() == kName ? LabelOf(*row)
                                    : ValueText(cell.column() == kHere ? row->here : row->there);
    case Qt::ForegroundRole:
      if (!row->OneSided()) return {};
      return Faint();
    default:
      return {};
  }
}

bool ComparisonModel::setData(const QModelIndex& cell, const QVariant& value, int role) {
  if (role != Qt::CheckStateRole || !cell.isValid()) return false;
  const bool on = value.toInt() == Qt::Checked;
  if (const ComparedValue* row = RowOf(cell)) {
    Tick(*row, on);
    emit dataChanged(cell, cell);
    const QModelIndex head = cell.parent();
    emit dataChanged(head, head);
  } else {
    for (const std::size_t member : GroupOf(cell).rows) Tick(rows_[member], on);
    emit dataChanged(cell, cell);
    emit dataChanged(index(0, kName, cell), index(rowCount(cell) - 1, kName, cell));
  }
  emit Changed();
  return true;
}

QVariant ComparisonModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  constexpr const char* kHeads[kColumns] = {"Name", "Here", "There"};
  return QLatin1String(kHeads[section]);
}

Qt::ItemFlags ComparisonModel::flags(const QModelIndex& cell) const {
  Qt::ItemFlags flags = QAbstractItemModel::flags(cell);
  if (cell.column() == kName && data(cell, Qt::CheckStateRole).isValid()) flags |= Qt::ItemIsUserCheckable;
  return flags;
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/parameter_model.h"

#include <QGuiApplication>
#include <algorithm>
#include <utility>

#include "base/text.h"
#include "controls/guard.h"
#include "gui/widgets/look.h"

namespace marlinset {

namespace {

/// Numbers and their heads are aligned to the right.
Qt::Alignment AlignmentOf(int column) {
  return Qt::AlignVCenter | (column == ParameterModel::kDescription ? Qt::AlignLeft : Qt::AlignRight);
}

}  // namespace

ParameterRecord::ParameterRecord(FrmStart& form, int index)
    : names{Shown(form.lClass(index).Caption()), Shown(form.lParam(index).Caption()),
            Shown(form.lDesc(index).Caption())},
      row(index),
      form_(form) {
  Read();
}

bool ParameterRecord::StandsAt(int index) const {
  return form_.HasParameterRow(index) && form_.lClass(index).Visible() &&
         Shown(form_.lParam(index).Caption()) == names[ParameterModel::kParameter] &&
         Shown(form_.lClass(index).Caption()) == names[ParameterModel::kClass] &&
         Shown(form_.lDesc(index).Caption()) == names[ParameterModel::kDescription];
}

Control* ParameterRecord::Find() const {
  if (gone) return nullptr;
  if (StandsAt(row)) return &form_.udVal(row);
  for (const int index : form_.udVal.Indices()) {
    if (StandsAt(index)) return &form_.udVal(index);
  }
  return nullptr;
}

ParameterKey ParameterRecord::Key() const {
  return {names[ParameterModel::kClass].toInt(), names[ParameterModel::kParameter].toInt()};
}

void ParameterRecord::Read() {
  if (awaited.actions > 0 || gone || !StandsAt(row)) return;
  awaited.value = form_.udVal(row).Value();
  awaited.text = Shown(form_.tVal(row).Text());
}

ParameterModel::ParameterModel(FrmStart& form, ReferenceValue reference, QObject* parent)
    : QAbstractTableModel(parent),
      form_(form),
      reference_(std::move(reference)),
      rulesEnded_(form.GetGuard().Ended, [this] {
        if (putOff_) ArrangeSoon();
      }) {
  form.ForParameterRow([this](auto& array) { WatchArray(array); });
  for (int column = 0; column < kHeads; ++column) {
    heads_.emplace_back(Head(column).Changed,
                        [this, column] { emit headerDataChanged(Qt::Horizontal, column, column); });
  }
  // The radix counts for both values; most of one digit look the same in either.
  heads_.emplace_back(form.bValue.Changed, [this] {
    if (!rows_.empty()) emit dataChanged(createIndex(0, kReference), createIndex(rowCount() - 1, kReference));
  });
  for (const int i : form.lClass.Indices()) WatchRow(i);
  Arrange();
}

Button& ParameterModel::Head(int column) const {
  Button* const heads[] = {&form_.bClass, &form_.bParam, &form_.bDesc, &form_.bValue};
  return *heads[column];
}

template <class T>
void ParameterModel::WatchArray(ControlArray<T>& array) {
  arrays_.emplace_back(array.Loaded, [this](int index) { WatchRow(index); });
  arrays_.emplace_back(array.Unloading, [this](int index) { ForgetRow(index); });
}

void ParameterModel::WatchRow(int index) {
  if (!form_.HasParameterRow(index) || controls_.contains(index)) return;
  std::vector<Listening<>>& row = controls_[index];
  for (Control* control :
       {static_cast<Control*>(&form_.lClass(index)), static_cast<Control*>(&form_.lParam(index)),
        static_cast<Control*>(&form_.lDesc(index)), static_cast<Control*>(&form_.tVal(index))}) {
    row.emplace_back(control->Changed, [this, index] { RowChanged(index); });
  }
  row.emplace_back(form_.lDesc(index).Changed, [this, index] { MarkChanged(index); });
  ArrangeSoon();
}

/// Rows are removed only when another list is loaded.
void ParameterModel::ForgetRow(int index) {
  if (controls_.erase(index) == 0) return;
  for (const Row& row : rows_) row.record->gone = true;
  emit Going();
  ArrangeSoon();
}

int ParameterModel::RowOf(int index) const {
  const auto place = std::lower_bound(rows_.begin(), rows_.end(), index,
                                      [](const Row& row, int wanted) { return row.record->row < wanted; });
  return place != rows_.end() && place->record->row == index ? static_cast<int>(place - rows_.begin())
                                                             : kNoIndex;
}

void ParameterModel::RowChanged(int index) {
  const int row = RowOf(index);
  const bool shown = row != kNoIndex;
  if (shown && RecordOf(row)->StandsAt(index)) {
    RecordOf(row)->Read();
    emit dataChanged(createIndex(row, 0), createIndex(row, kColumns - 1));
  } else if (shown || (form_.lClass(index).Visible() && IsWanted(ParameterRecord(form_, index)))) {
    ArrangeSoon();
  }
}

void ParameterModel::MarkChanged(int index) {
  const bool marked = form_.lDesc(index).BackColor() == kYellow;
  if (marked == (index == underWay_)) return;
  const int before = std::exchange(underWay_, marked ? index : kNoIndex);
  for (const int changed : {before, index}) {
    const int row = RowOf(changed);
    if (row == kNoIndex) continue;
    const QModelIndex cell = createIndex(row, kDescription);
    emit dataChanged(cell, cell);
    if (changed == underWay_) emit Marked(cell);
  }
}

void ParameterModel::ShowUnheld(std::set<int> indices) {
  if (indices == unheld_) return;
  unheld_ = std::move(indices);
  if (!rows_.empty()) emit dataChanged(createIndex(0, kValue), createIndex(rowCount() - 1, kValue));
}

/// A new list changes hundreds of rows at once; the table is arranged once, when the rules are done.
void ParameterModel::ArrangeSoon() {
  if (arranging_) return;
  arranging_ = true;
  QMetaObject::invokeMethod(
      this, [this] { Arrange(); }, Qt::QueuedConnection);
}

/// The rules empty all names before they fill the rows, and may send the values one by one meanwhile.
bool ParameterModel::BeingFilled() const {
  if (form_.GetGuard().AtWork() == 0) return false;
  const std::vector<int> indices = form_.lClass.Indices();
  return std::any_of(indices.begin(), indices.end(), [this](int index) {
    return form_.lClass(index).Visible() && form_.lClass(index).Caption().empty();
  });
}

/// Selection and editor go with their parameter.
void ParameterModel::Arrange() {
  arranging_ = false;
  putOff_ = BeingFilled();
  if (putOff_) return;
  emit layoutAboutToBeChanged();
  const std::vector<Row> before = std::exchange(rows_, {});
  for (const auto& [index, listening] : controls_) {
    if (!form_.lClass(index).Visible()) continue;
    Row row = MakeRow(index, before);
    const bool stays = !filterChanged_ && std::ranges::find(before, row.record, &Row::record) != before.end();
    if (stays || IsWanted(*row.record)) rows_.push_back(std::move(row));
  }
  filterChanged_ = false;
  KeepPlaces(before);
  emit layoutChanged();
  emit Arranged();
}

/// The row of controls `index`, with the record that was known before where there is one.
ParameterModel::Row ParameterModel::MakeRow(int index, const std::vector<Row>& before) {
  auto record = std::make_shared<ParameterRecord>(form_, index);
  const auto known = std::find_if(before.begin(), before.end(), [&](const Row& row) {
    return row.record->names == record->names && row.record->Find() == &form_.udVal(index);
  });
  if (known != before.end()) {
    record = known->record;
    record->row = index;
    record->Read();
  }
  return {record, {record->awaited.Changed, [this, shown = record.get()] {
                     shown->Read();
                     const int place = RowOf(shown->row);
                     if (place != kNoIndex)
                       emit dataChanged(createIndex(place, kValue), createIndex(place, kReference));
                   }}};
}

void ParameterModel::KeepPlaces(const std::vector<Row>& before) {
  QModelIndexList places;
  const QModelIndexList old = persistentIndexList();
  for (const QModelIndex& cell : old) {
    const auto& record = before.at(static_cast<std::size_t>(cell.row())).record;
    const auto now =
        std::find_if(rows_.begin(), rows_.end(), [&](const Row& row) { return row.record == record; });
    places << (now == rows_.end() ? QModelIndex()
                                  : createIndex(static_cast<int>(now - rows_.begin()), cell.column()));
  }
  changePersistentIndexList(old, places);
}

int ParameterModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int ParameterModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

void ParameterModel::SetFilter(const ParameterFilter& filter) {
  if (filter == filter_) return;
  filter_ = filter;
  filterChanged_ = true;
  Arrange();
}

int ParameterModel::AllRows() const {
  return static_cast<int>(std::ranges::count_if(
      controls_, [this](const auto& row) { return form_.lClass(row.first).Visible(); }));
}

bool ParameterModel::IsWanted(const ParameterRecord& record) const {
  const auto& [parameterClass, parameter, description] = record.names;
  return filter_.Matches({parameterClass, parameter, description, record.awaited.text});
}

std::optional<int> ParameterModel::ReferenceOf(const ParameterRecord& record) const {
  return reference_ ? reference_(record.Key()) : std::nullopt;
}

bool ParameterModel::Differs(const ParameterRecord& record) const {
  const std::optional<int> reference = ReferenceOf(record);
  return reference && *reference != record.awaited.value;
}

/// In the radix of the values, so that the two can be compared at a glance.
QString ParameterModel::ReferenceText(const ParameterRecord& record) const {
  const std::optional<int> reference = ReferenceOf(record);
  if (!reference) return {};
  const bool decimal = form_.bValue.Caption() != FrmStart::kHexadecimalHead;
  return Shown(decimal ? std::to_string(*reference) : HexText(static_cast<std::uint32_t>(*reference)));
}

QString ParameterModel::TextOf(const ParameterRecord& record, int column) const {
  if (column == kReference) return ReferenceText(record);
  return column == kValue ? record.awaited.text : record.names.at(static_cast<std::size_t>(column));
}

QVariant ParameterModel::data(const QModelIndex& cell, int role) const {
  if (!cell.isValid()) return {};  // a list that the filter has emptied has no current row
  const ParameterRecord& record = *RecordOf(cell.row());
  const int index = record.row;
  const bool marked =
      cell.column() == kDescription && controls_.contains(index) && form_.lDesc(index).BackColor() == kYellow;
  switch (role) {
    case Qt::DisplayRole:
      return TextOf(record, cell.column());
    case Qt::TextAlignmentRole:
      return static_cast<int>(AlignmentOf(cell.column()));
    case Qt::FontRole:
      return cell.column() >= kValue ? QVariant(FixedFont()) : QVariant();
    case Qt::BackgroundRole:
      return !marked              ? QVariant()
             : index == underWay_ ? QVariant(MarkColor())
                                  : QVariant(SentColor(QGuiApplication::palette()));
    case Qt::ForegroundRole:
      return marked && index == underWay_ ? QVariant(MarkTextColor()) : QVariant();
    case kUnheldRole:
      return cell.column() == kValue && unheld_.contains(index);
    case Qt::ToolTipRole:
      if (cell.column() >= kValue && Differs(record)) {
        return QStringLiteral("The reference database has %1 here").arg(ReferenceText(record));
      }
      return cell.column() == kDescription ? QVariant(TextOf(record, kDescription)) : QVariant();
    case Qt::AccessibleTextRole:
      return cell.column() == kReference && Differs(record)
                 ? QVariant(ReferenceText(record) + QStringLiteral(", differs"))
                 : QVariant();
    case kDiffersRole:
      return Differs(record);
    default:
      return {};
  }
}

QVariant ParameterModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::TextAlignmentRole) return static_cast<int>(AlignmentOf(section));
  if (section >= kHeads) {
    if (role == Qt::DisplayRole) return QStringLiteral("Reference");
    if (role == Qt::ToolTipRole)
      return QStringLiteral("The value in the reference database, marked where the list has another");
    return {};
  }
  if (role == Qt::DisplayRole) return Shown(Head(section).Caption());
  if (role == Qt::ToolTipRole) return Shown(Head(section).ToolTip());
  return {};
}

Qt::ItemFlags ParameterModel::flags(const QModelIndex& cell) const {
  Qt::ItemFlags flags = QAbstractTableModel::flags(cell);
  if (cell.column() == kValue) flags |= Qt::ItemIsEditable;
  return flags;
}

}  // namespace marlinset

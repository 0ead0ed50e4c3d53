// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/parameter_model.h"

#include <QGuiApplication>
#include <algorithm>
#include <utility>

#include "gui/look.h"

namespace marlinset {

namespace {

/// Numbers and their heads stand at the right.
Qt::Alignment AlignmentOf(int column) {
  return Qt::AlignVCenter | (column == ParameterModel::kDescription ? Qt::AlignLeft : Qt::AlignRight);
}

}  // namespace

ParameterModel::ParameterModel(FrmStart& form, QObject* parent) : QAbstractTableModel(parent), form_(form) {
  form.ForParameterRow([this](auto& array) { WatchArray(array); });
  for (int column = 0; column < kColumns; ++column) {
    heads_.emplace_back(Head(column).Changed,
                        [this, column] { emit headerDataChanged(Qt::Horizontal, column, column); });
  }
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
  // A list that is filled anew, after a sort for example, begins with empty captions.
  row.emplace_back(form_.lClass(index).Changed, [this, index] {
    if (form_.lClass(index).Caption().empty()) ArrangeSoon();
  });
  ArrangeSoon();
}

void ParameterModel::ForgetRow(int index) {
  if (controls_.erase(index) != 0) ArrangeSoon();
}

void ParameterModel::RowChanged(int index) {
  const auto place = std::lower_bound(rows_.begin(), rows_.end(), index);
  const bool shown = place != rows_.end() && *place == index;
  if (shown != form_.lClass(index).Visible()) {
    ArrangeSoon();
  } else if (shown) {
    const int row = static_cast<int>(place - rows_.begin());
    emit dataChanged(createIndex(row, 0), createIndex(row, kColumns - 1));
  }
}

void ParameterModel::MarkChanged(int index) {
  const bool marked = form_.lDesc(index).BackColor() == kYellow;
  if (marked == (index == underWay_)) return;
  const int before = std::exchange(underWay_, marked ? index : kNoIndex);
  for (const int changed : {before, index}) {
    const auto place = std::lower_bound(rows_.begin(), rows_.end(), changed);
    if (place == rows_.end() || *place != changed) continue;
    const QModelIndex cell = createIndex(static_cast<int>(place - rows_.begin()), kDescription);
    emit dataChanged(cell, cell);
    if (changed == underWay_) emit Marked(cell);
  }
}

/// A new list changes hundreds of rows in one go; the table is put in order once, when the rules are done.
void ParameterModel::ArrangeSoon() {
  if (arranging_) return;
  arranging_ = true;
  QMetaObject::invokeMethod(
      this, [this] { Arrange(); }, Qt::QueuedConnection);
}

void ParameterModel::Arrange() {
  beginResetModel();
  arranging_ = false;
  rows_.clear();
  for (const auto& [index, listening] : controls_) {
    if (form_.lClass(index).Visible()) rows_.push_back(index);
  }
  endResetModel();
}

int ParameterModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int ParameterModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

QString ParameterModel::TextOf(int index, int column) const {
  switch (column) {
    case kClass:
      return Shown(form_.lClass(index).Caption());
    case kParameter:
      return Shown(form_.lParam(index).Caption());
    case kDescription:
      return Shown(form_.lDesc(index).Caption());
    default:
      return Shown(form_.tVal(index).Text());
  }
}

QVariant ParameterModel::data(const QModelIndex& cell, int role) const {
  const int index = ControlOf(cell.row());
  if (!controls_.contains(index)) return {};  // gone since the last arranging
  const bool marked = cell.column() == kDescription && form_.lDesc(index).BackColor() == kYellow;
  switch (role) {
    case Qt::DisplayRole:
      return TextOf(index, cell.column());
    case Qt::TextAlignmentRole:
      return static_cast<int>(AlignmentOf(cell.column()));
    case Qt::FontRole:
      return cell.column() == kValue ? QVariant(FixedFont()) : QVariant();
    case Qt::BackgroundRole:
      return !marked              ? QVariant()
             : index == underWay_ ? QVariant(MarkColor())
                                  : QVariant(SentColor(QGuiApplication::palette()));
    case Qt::ForegroundRole:
      return marked && index == underWay_ ? QVariant(MarkTextColor()) : QVariant();
    case Qt::ToolTipRole:
      return cell.column() == kDescription ? QVariant(TextOf(index, kDescription)) : QVariant();
    default:
      return {};
  }
}

QVariant ParameterModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::DisplayRole) return Shown(Head(section).Caption());
  if (role == Qt::ToolTipRole) return Shown(Head(section).ToolTip());
  if (role == Qt::TextAlignmentRole) return static_cast<int>(AlignmentOf(section));
  return {};
}

Qt::ItemFlags ParameterModel::flags(const QModelIndex& cell) const {
  Qt::ItemFlags flags = QAbstractTableModel::flags(cell);
  if (cell.column() == kValue) flags |= Qt::ItemIsEditable;
  return flags;
}

}  // namespace marlinset

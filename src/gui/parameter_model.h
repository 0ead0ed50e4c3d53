// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractTableModel>
#include <map>
#include <vector>

#include "core/frm_start.h"
#include "gui/binding.h"

namespace marlinset {

/// The rows of the parameter list that are visible, as a table of class, parameter, description and value.
/// Rows may number hundreds, so they are painted and have no widgets; a change repaints its own row.
class ParameterModel : public QAbstractTableModel {
  Q_OBJECT
 public:
  enum Column { kClass, kParameter, kDescription, kValue, kColumns };

  ParameterModel(FrmStart& form, QObject* parent);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& cell, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& cell) const override;

  /// The index of the controls that stand in a row.
  int ControlOf(int row) const { return rows_.at(static_cast<std::size_t>(row)); }
  /// The button whose caption heads a column.
  Button& Head(int column) const;

 signals:
  /// The parameter of this cell is being sent now.
  void Marked(const QModelIndex& cell);

 private:
  template <class T>
  void WatchArray(ControlArray<T>& array);
  void WatchRow(int index);
  void ForgetRow(int index);
  void RowChanged(int index);
  void MarkChanged(int index);
  void ArrangeSoon();
  void Arrange();
  QString TextOf(int index, int column) const;

  FrmStart& form_;
  std::vector<int> rows_;  ///< indices of the visible rows, ascending
  bool arranging_ = false;
  int underWay_ = kNoIndex;  ///< the row that was marked last; the send leaves marks behind it
  std::vector<Listening<int>> arrays_;
  std::vector<Listening<>> heads_;
  std::map<int, std::vector<Listening<>>> controls_;
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractTableModel>
#include <array>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <vector>

#include "core/frm_start.h"
#include "core/records.h"
#include "gui/parameter_filter.h"
#include "gui/widgets/binding.h"

namespace marlinset {

/// A parameter as the list shows it. After a sort other controls represent it: the operator's actions are
/// meant for the parameter, and lapse with it.
class ParameterRecord : public Subject {
 public:
  ParameterRecord(FrmStart& form, int row);
  /// The spin of the value.
  Control* Find() const override;
  bool StandsAt(int row) const;
  ParameterKey Key() const;
  /// Adopts the value of the controls, unless the operator sees a newer one.
  void Read();

  const std::array<QString, 3> names;  ///< class, parameter and description identify it
  int row;                             ///< the controls that represented it when the list was last arranged
  bool gone = false;                   ///< another list was loaded

 private:
  FrmStart& form_;
};

/// The value that the reference database has for a parameter; nothing if it lacks that.
using ReferenceValue = std::function<std::optional<int>(const ParameterKey& key)>;

/// The visible rows of the parameter list that the operator's filter leaves, as a table of class, parameter,
/// description, value and the reference database's value. There may be hundreds of rows, so they are painted
/// and have no widgets; a change repaints only its row. While the rules refill the list, which in
/// interactive mode takes a message for each row, the table stays as it is.
class ParameterModel : public QAbstractTableModel {
  Q_OBJECT
 public:
  enum Column { kClass, kParameter, kDescription, kValue, kReference, kColumns };
  /// Those with a button of the form as their head.
  static constexpr int kHeads = kReference;
  /// Whether the row's value is another one than the reference database has.
  static constexpr int kDiffersRole = Qt::UserRole;
  /// Whether the unit does not hold a value; of cells in the column kValue.
  static constexpr int kUnheldRole = Qt::UserRole + 1;

  ParameterModel(FrmStart& form, ReferenceValue reference, QObject* parent);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& cell, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& cell) const override;

  const std::shared_ptr<ParameterRecord>& RecordOf(int row) const {
    return rows_.at(static_cast<std::size_t>(row)).record;
  }
  /// The row in the table of the parameter whose controls have this index; -1 if it is not shown.
  int RowOf(int index) const;
  /// The values that the unit does not hold are those of the controls with these indices.
  void ShowUnheld(std::set<int> indices);
  /// The button whose caption heads a column below kHeads.
  Button& Head(int column) const;
  /// Leaves only the rows that match. A row stays while its value is changed, until another filter is set.
  void SetFilter(const ParameterFilter& filter);
  /// How many rows there are without a filter.
  int AllRows() const;

 signals:
  /// The parameter of this cell is being sent now.
  void Marked(const QModelIndex& cell);
  /// The list is in order: rows may have moved.
  void Arranged();
  /// The controls of the list are about to go.
  void Going();

 private:
  struct Row {
    std::shared_ptr<ParameterRecord> record;
    Listening<> listening;
  };

  template <class T>
  void WatchArray(ControlArray<T>& array);
  void WatchRow(int index);
  void ForgetRow(int index);
  void RowChanged(int index);
  void MarkChanged(int index);
  void ArrangeSoon();
  bool BeingFilled() const;
  void Arrange();
  Row MakeRow(int index, const std::vector<Row>& before);
  void KeepPlaces(const std::vector<Row>& before);
  QString TextOf(const ParameterRecord& record, int column) const;
  QString ReferenceText(const ParameterRecord& record) const;
  bool Differs(const ParameterRecord& record) const;
  bool IsWanted(const ParameterRecord& record) const;
  std::optional<int> ReferenceOf(const ParameterRecord& record) const;

  FrmStart& form_;
  ReferenceValue reference_;
  ParameterFilter filter_;
  bool filterChanged_ = false;
  std::vector<Row> rows_;  ///< by ascending index of their controls
  bool arranging_ = false;
  bool putOff_ = false;      ///< until the list is filled
  std::set<int> unheld_;     ///< indices of their controls
  int underWay_ = kNoIndex;  ///< the row marked last; the send leaves its marks on earlier rows
  std::vector<Listening<int>> arrays_;
  std::vector<Listening<>> heads_;
  Listening<> rulesEnded_;
  std::map<int, std::vector<Listening<>>> controls_;
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractTableModel>
#include <array>
#include <map>
#include <memory>
#include <vector>

#include "core/frm_start.h"
#include "gui/widgets/binding.h"

namespace marlinset {

/// A parameter as the list shows it. After a sort other controls stand for it: what the operator does is
/// meant for the parameter, and lapses with it.
class ParameterRecord : public Subject {
 public:
  ParameterRecord(FrmStart& form, int row);
  /// The spin of the value.
  Control* Find() const override;
  bool StandsAt(int row) const;
  /// Takes over the value that the controls hold, unless the operator sees a newer one.
  void Read();

  const std::array<QString, 3> names;  ///< class, parameter, description, by which it is known
  int row;                             ///< the controls that stood for it when the list was arranged last
  bool gone = false;                   ///< another list was loaded

 private:
  FrmStart& form_;
};

/// The rows of the parameter list that are visible, as a table of class, parameter, description and value.
/// Rows may number hundreds, so they are painted and have no widgets; a change repaints its own row. While
/// the rules fill the list anew, which in interactive mode takes a message for each row, the table stays as
/// it is.
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

  const std::shared_ptr<ParameterRecord>& RecordOf(int row) const {
    return rows_.at(static_cast<std::size_t>(row)).record;
  }
  /// The button whose caption heads a column.
  Button& Head(int column) const;

 signals:
  /// The parameter of this cell is being sent now.
  void Marked(const QModelIndex& cell);
  /// The list is in order: rows may stand elsewhere.
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
  int RowOf(int index) const;
  static QString TextOf(const ParameterRecord& record, int column);

  FrmStart& form_;
  std::vector<Row> rows_;  ///< by ascending index of their controls
  bool arranging_ = false;
  bool putOff_ = false;      ///< until the list has been filled
  int underWay_ = kNoIndex;  ///< the row that was marked last; the send leaves marks behind it
  std::vector<Listening<int>> arrays_;
  std::vector<Listening<>> heads_;
  Listening<> rulesEnded_;
  std::map<int, std::vector<Listening<>>> controls_;
};

}  // namespace marlinset

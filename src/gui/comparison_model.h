// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractItemModel>
#include <QString>
#include <set>
#include <string>
#include <vector>

#include "exchange/comparison.h"
#include "exchange/take_over.h"

namespace marlinset {

/// The values of an offer as a tree: groups, and below each its values with a tick. Shows those that the
/// filter lets pass. A value that only one side has is grey and takes no tick.
class ComparisonModel : public QAbstractItemModel {
  Q_OBJECT
 public:
  enum Column { kName, kHere, kThere, kColumns };

  explicit ComparisonModel(QObject* parent) : QAbstractItemModel(parent) {}
  /// Of each row, in pixels.
  static int RowHeight();

  /// Another offer: its ticks are all on or all off.
  void Begin(std::vector<ComparedValue> rows, bool ticked);
  /// The same offer after a change of the panels; ticks stay where they are.
  void Refresh(std::vector<ComparedValue> rows);
  /// Shows only rows in which each word of the text occurs, in name or values, in any case.
  void SetFilter(const QString& text);
  /// Ticks or unticks all rows that are shown.
  void TickAll(bool on);

  /// The ticked rows that are shown, with the values that they show.
  std::vector<NewValue> Ticked() const;
  /// How many rows can be taken over in all, how many of them are shown, and how many only one side has.
  struct Counts {
    int all = 0, shown = 0, ticked = 0, oneSided = 0;
  };
  Counts Count() const;

  /// The name of a value or group, and where it is shown now; not valid if it is not.
  QString NameOf(const QModelIndex& cell) const;
  QModelIndex Find(const QString& name) const;

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex& cell) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& /*parent*/ = {}) const override { return kColumns; }
  QVariant data(const QModelIndex& cell, int role) const override;
  bool setData(const QModelIndex& cell, const QVariant& value, int role) override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& cell) const override;

 signals:
  /// Rows, filter or ticks have changed.
  void Changed();

 private:
  struct Group {
    QString name;
    std::vector<std::size_t> rows;  ///< shown ones, in rows_
  };

  void Arrange(std::vector<ComparedValue> rows);
  bool Passes(const ComparedValue& row) const;
  bool IsTicked(const ComparedValue& row) const { return !row.OneSided() && ticked_.contains(row.name); }
  void Tick(const ComparedValue& row, bool on);
  QVariant GroupData(const Group& group, int column, int role) const;
  Qt::CheckState StateOf(const Group& group) const;
  /// Null for a group.
  const ComparedValue* RowOf(const QModelIndex& cell) const;
  const Group& GroupOf(const QModelIndex& cell) const;

  std::vector<ComparedValue> rows_;
  std::set<std::string> ticked_;
  QStringList words_;
  std::vector<Group> groups_;
};

}  // namespace marlinset

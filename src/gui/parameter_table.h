// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTableView>
#include <optional>
#include <vector>

#include "core/records.h"
#include "gui/parameter_model.h"

namespace marlinset {

/// The parameter list. Edits a row at its value, whichever of its cells is current. A double click opens the
/// editor with all of the number selected; a hand that clicks once more wants that as well.
class ParameterTable : public QTableView {
  Q_OBJECT
 public:
  ParameterTable(FrmStart& form, ReferenceValue reference, QWidget* parent);

  bool IsEdited() const { return state() == EditingState; }
  ParameterModel& Model() const { return *model_; }
  /// The selected parameters from top to bottom.
  std::vector<ParameterKey> SelectedKeys() const;
  /// The selected ones whose value is another one than the reference database has.
  std::vector<ParameterKey> SelectedDifferences() const;

 signals:
  /// Another selection, other values or other rows.
  void SelectionMayDiffer();

 protected:
  bool edit(const QModelIndex& cell, EditTrigger trigger, QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void SetLooks();
  void SetColumns();
  void FollowModel(FrmStart& form);
  void ShowSort();
  void WatchFurtherClicks(QWidget& field);
  bool IsFurtherClick(const QMouseEvent& event) const;
  QModelIndexList SelectedInOrder() const;

  ParameterModel* model_;
  std::optional<quint64> opened_;  ///< by a double click at this time of the desktop
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTableView>
#include <vector>

#include "gui/traffic_model.h"

namespace marlinset {

/// The rows of the traffic. It follows the newest one, at the foot, until the operator scrolls away from
/// there; then the rows that are being read stay where they are. Meaning, fields and bytes share the width
/// that the other columns leave; where that is too little, the table scrolls sideways. A column that the
/// operator has drawn to another width keeps it.
class TrafficTable : public QTableView {
  Q_OBJECT
 public:
  TrafficTable(TrafficModel& model, QWidget* parent);

  /// Lists what passes this filter. Selected rows that are still listed stay selected, and the current one in
  /// sight.
  void SetFilter(const TrafficFilter& filter);
  /// The selected rows, the oldest first.
  std::vector<Traffic::Row> SelectedRows() const;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void SetLooks();
  void SetColumns();
  void FitColumns();
  void FollowNewest();

  TrafficModel& model_;
  bool atFoot_ = true;
  bool fitting_ = false;  ///< a column is being resized by the table itself
  bool drawn_ = false;    ///< the operator has resized a column
};

}  // namespace marlinset

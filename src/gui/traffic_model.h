// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractTableModel>
#include <QElapsedTimer>
#include <QFont>
#include <deque>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "gui/widgets/soon.h"
#include "link/traffic.h"

namespace marlinset {

/// Which rows of the traffic are listed.
struct TrafficFilter {
  QString text = {};  ///< in any cell, whatever its case
  bool sent = true;
  bool received = true;
  bool polls = true;  ///< those of both directions
  bool operator==(const TrafficFilter&) const = default;
};

/// The traffic as a table. Rows come in batches, at most one in kBatchMs, so that a send is not slowed down
/// by painting each of its messages. Pause freezes the table, while the record goes on.
class TrafficModel : public QAbstractTableModel {
  Q_OBJECT
 public:
  static constexpr int kBatchMs = 200;

  explicit TrafficModel(QObject* parent);
  ~TrafficModel() override;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& cell, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  /// Shows this record from now on; null for none, which is empty.
  void Show(std::unique_ptr<Traffic> traffic);
  bool Recording() const { return traffic_ != nullptr; }
  void SetFilter(const TrafficFilter& filter);
  void SetPaused(bool paused);
  /// Forgets what has been recorded, and a pause goes on from there.
  void Clear();
  /// Takes over what is new; by itself it does so soon.
  void Update();

  std::vector<Traffic::Row> Rows() const { return {shown_.begin(), shown_.end()}; }
  /// How many rows there are with those that the filter hides, and how many came during the pause.
  std::size_t Recorded() const { return traffic_ ? traffic_->Count() : 0; }
  bool Paused() const { return paused_.has_value(); }
  std::int64_t Waiting() const { return paused_ ? newest_ - *paused_ : 0; }

 signals:
  /// Counts may have changed.
  void Updated();

 private:
  void Note(std::int64_t number);
  bool Passes(const TrafficRow& row) const;
  std::vector<Traffic::Row> From(std::int64_t number) const;
  void Drop(std::size_t count);
  void ReplaceEnd(std::size_t at, const std::vector<Traffic::Row>& rows);
  void Refill();

  std::unique_ptr<Traffic> traffic_;
  std::optional<Listening<std::int64_t>> listening_;
  std::deque<Traffic::Row> shown_;
  TrafficFilter filter_;
  std::optional<std::int64_t> firstChanged_;  ///< number of the earliest row that is new or has changed
  std::int64_t newest_ = 0;                   ///< number of the latest row
  std::optional<std::int64_t> paused_;        ///< number of the latest row when the pause began
  QElapsedTimer sinceUpdate_;
  QFont figures_;
  Soon soon_{[this] { Update(); }};
};

/// Rows as text: a line for each, with tabs between the cells.
QString TextOf(std::span<const Traffic::Row> rows);

}  // namespace marlinset

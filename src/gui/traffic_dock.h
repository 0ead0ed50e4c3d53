// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "gui/form_dock.h"
#include "gui/traffic_model.h"
#include "panels/traffic_rules.h"

class QCheckBox;
class QLabel;
class QPushButton;

namespace marlinset {

class FilterField;
class TrafficTable;

/// The panel with the traffic on the line: the table, and above it what to list, and what to do with it. It
/// records only while it is open, so it begins empty each time.
class TrafficDock : public FormDock {
  Q_OBJECT
 public:
  TrafficDock(FrmStart& form, TrafficRules& rules, QWidget* parent);
  ~TrafficDock() override;

  void FollowForm() override;
  TrafficModel& Model() { return *model_; }

 private:
  QWidget* MakeFilter(QWidget* parent);
  QWidget* MakeButtons(QWidget* parent);
  QPushButton* AddButton(const QString& text, const char* name, QWidget& strip);
  void Filter();
  void Pause(bool on);
  void Copy();
  void Save(TrafficRules::Format format);
  void ShowCounts();

  TrafficRules& rules_;
  TrafficModel* model_;
  TrafficTable* table_ = nullptr;
  FilterField* text_ = nullptr;
  QCheckBox* sent_ = nullptr;
  QCheckBox* received_ = nullptr;
  QCheckBox* polls_ = nullptr;
  QLabel* counts_ = nullptr;
  QPushButton* copy_ = nullptr;
};

}  // namespace marlinset

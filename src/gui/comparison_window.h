// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QSet>
#include <functional>
#include <string>

#include "controls/signal.h"
#include "exchange/compare_command.h"
#include "gui/widgets/soon.h"

class QLabel;
class QLayout;
class QPushButton;
class QTreeView;

namespace marlinset {

class ComparisonModel;
class FilterField;
class FrmStart;

/// Values from outside beside those of the panels, in front of the main window, which goes on working. The
/// operator ticks what to take over; the main window's keys work here as well. Follows the panels, looking at
/// them at most ten times a second and only while it can be seen. A configuration file dropped on it takes
/// the place of the one that is compared.
class ComparisonWindow : public QDialog {
  Q_OBJECT
 public:
  ComparisonWindow(FrmStart& form, CompareCommand& command, QWidget* parent);

  /// Shows an offer instead of the one before, and comes to the front.
  void Show(const Offer& offer);

 protected:
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  QLayout* MakeTop();
  QTreeView* MakeTree();
  QLayout* MakeBottom();
  void NotePlace();
  void FindPlace();
  void FocusRows();
  void LookSoon();
  void Look();
  void ShowState();
  void TakeOver();

  FrmStart& form_;
  CompareCommand& command_;
  Offer offer_;
  ComparisonModel* model_;
  FilterField* filter_;
  QTreeView* tree_;
  QLabel* count_;
  QPushButton* all_;
  QPushButton* none_;
  QPushButton* takeOver_;
  QString current_;   ///< where the operator was before the rows changed
  int scrolled_ = 0;  ///< the same
  QSet<QString> closedGroups_;
  std::string trouble_;  ///< why the rows may be out of date
  Soon soon_{[this] { Look(); }};
  Listening<> listening_;
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <map>
#include <memory>
#include <vector>

#include "core/frm_start.h"
#include "gui/widgets/binding.h"

class QHBoxLayout;
class QScrollArea;
class QVBoxLayout;

namespace marlinset {

class WindowSelection;

/// The table of the character windows: fixed headers over rows that are added and removed with the elements
/// of the row controls. A row is visible while its name is. The selected window's row is marked and brought
/// into view; work in a row selects its window.
class WindowTable : public QWidget {
  Q_OBJECT
 public:
  WindowTable(FrmStart& form, std::shared_ptr<WindowSelection> selection, QWidget* parent);
  ~WindowTable() override;
  /// The strip of a row, null if there is none.
  QWidget* Row(int row) const;
  /// How much wider than necessary the table may be before its columns drift apart.
  int RoomForNames() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  class RowStrip;

  template <class T>
  void Watch(ControlArray<T>& array);
  void AddRow(int row);
  void RemoveRow(int row);
  void ArrangeTabs(int row);
  void MeasureColumns();
  int LeastNameWidth() const;
  QWidget* MakeHeader();
  void FillRow(RowStrip& strip, int row);
  void Tint(RowStrip* strip, bool on);
  void MarkSelected();
  void ShowSelected();
  void SelectRowOf(const QWidget* field);

  FrmStart& form_;
  std::shared_ptr<WindowSelection> selection_;
  std::vector<int> widths_;  ///< of the columns behind the name, in pixels
  QWidget* gate_;            ///< invisible: the place of the rows in the tab order
  QHBoxLayout* headerCells_ = nullptr;
  QScrollArea* area_;
  QVBoxLayout* rowStack_;
  RowStrip* tinted_ = nullptr;  ///< the one under the pointer
  RowStrip* chosen_ = nullptr;  ///< of the selected window
  std::map<int, RowStrip*> rows_;
  std::vector<Listening<int>> listening_;
  Listening<> selectionListening_;
};

}  // namespace marlinset

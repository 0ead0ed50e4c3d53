// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <QWidget>

#include "controls/control_types.h"

class QGridLayout;
class QBoxLayout;

namespace marlinset {

/// A group of fields under a bold title, the caption of its frame.
class Group : public QWidget {
  Q_OBJECT
 public:
  Group(Frame& frame, QWidget* parent);
  /// The fields' layout: labels in column 0, fields in column 1, the remaining space in column 2.
  QGridLayout& Grid() const { return *grid_; }
  /// Adds a row "label field". Labels are the mnemonic partners of their fields and name them.
  void AddRow(QLabel* label, QWidget* field);
  /// Adds a field that the title names; `mnemonic` is the letter of the title that leads to it.
  void AddTitled(QWidget* field, char mnemonic, int columns);
  /// Names a field for a screen reader, which does not read group titles: "LTC, Time Bits".
  void Name(QWidget& field, const QString& label) const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Frame& frame_;
  QLabel* title_;
  QGridLayout* grid_;
};

/// Gives the labels of stacked groups the same width, so that their fields align.
void AlignLabels(const QList<Group*>& groups);

/// A label that is not a control itself.
QLabel* MakeLabel(const QString& text, QWidget* parent);
/// A label bound to its control; `mnemonic` is the underlined letter that leads to its buddy.
QLabel* MakeLabel(Label& control, QWidget* parent, char mnemonic = 0);
/// A label that shows the caption of the field after it.
QLabel* MakeLabelFor(const Control& field, QWidget* parent, char mnemonic = 0);

/// Two areas side by side; without room for both, the second moves below the first.
class SideBySide : public QWidget {
  Q_OBJECT
 public:
  SideBySide(QWidget* first, QWidget* second, QWidget* parent);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  /// The first area takes the remaining width, up to `widest` while both are side by side; otherwise both are
  /// aligned to the left.
  void LetFirstGrow(int widest = QWIDGETSIZE_MAX);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  int WidthForBoth() const;
  QWidget* first_;
  QWidget* second_;
  QBoxLayout* box_;
  int widest_ = QWIDGETSIZE_MAX;
};

/// Stacks `widgets` from the top with two spacing units between groups; spare room stays below.
QWidget* MakeColumn(const QList<QWidget*>& widgets, QWidget* parent);

/// Makes `content` the only item of a page: filling it, or as large as necessary at `at`.
void FillPage(QWidget& page, QWidget* content, Qt::Alignment at = {});

/// A horizontal line between two areas.
QWidget* MakeRule(QWidget* parent);

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPushButton>
#include <QToolButton>

namespace marlinset {

/// The button of the main action: in the desktop's accent colour.
class MainButton : public QPushButton {
  Q_OBJECT
 public:
  using QPushButton::QPushButton;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// One segment of a row of choices of which one is on; neighbours share an edge.
class SegmentButton : public QToolButton {
  Q_OBJECT
 public:
  using QToolButton::QToolButton;
  enum class Place { kFirst, kMiddle, kLast };
  void SetPlace(Place place) { place_ = place; }
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor Ground() const;
  Place place_ = Place::kMiddle;
};

}  // namespace marlinset

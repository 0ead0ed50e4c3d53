// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPushButton>
#include <QToolButton>

namespace marlinset {

/// A button of the tool bar. Space presses it. Enter, which completes numbers throughout the window, does
/// not, on any desktop, so that one Enter too many sends nothing.
class BarButton : public QPushButton {
  Q_OBJECT
 public:
  using QPushButton::QPushButton;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};

/// The button of the main action: in the desktop's accent colour.
class MainButton : public BarButton {
  Q_OBJECT
 public:
  using BarButton::BarButton;
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// One segment in a row of choices, one of which is on; neighbours share an edge.
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

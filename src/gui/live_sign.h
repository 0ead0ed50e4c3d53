// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "core/frm_start.h"
#include "gui/widgets/binding.h"

namespace marlinset {

/// The word LIVE with the unit's model and its port, or less of them in a narrow window, shown while
/// interactive mode is on: every change then goes on air at once.
class LiveSign : public QWidget {
  Q_OBJECT
 public:
  /// `deviceName`: the device behind a port number; may be empty.
  LiveSign(FrmStart& form, std::function<std::string(int)> deviceName, QWidget* parent);
  /// The text after the word: "HD7340Q, Com 1 (ttyUSB0)".
  QString Unit() const { return texts_.value(0); }
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

  static QColor Ground() { return {188, 24, 24}; }
  static QColor Ink() { return Qt::white; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void ShowForm();
  int Port() const;
  QString Device(int port) const;
  QString Fitting(int width) const;
  QFont WordFont() const;
  QSize WordSize() const;

  FrmStart& form_;
  std::function<std::string(int)> deviceName_;
  QString model_;      ///< the status bar also shows other texts in place of the model
  QStringList texts_;  ///< what goes behind the word, the longest first
  std::vector<Listening<>> listening_;
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractSpinBox>
#include <QComboBox>
#include <functional>
#include <memory>
#include <optional>

#include "controls/control_types.h"
#include "gui/widgets/binding.h"

namespace marlinset {

/// A drop-down list for selection only. Typing on the closed list does nothing, so that a stray key never
/// goes on air; the wheel changes it only while it has the focus.
class ComboField : public QComboBox {
  Q_OBJECT
 public:
  /// `characters`: how many letters of the longest usual entry the closed field shows.
  ComboField(ComboBox& control, int characters, QWidget* parent);
  void showPopup() override;

 protected:
  void initStyleOption(QStyleOptionComboBox* option) const override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void ShowControl(const ComboBox& control);
};

/// A spin together with its echo text. It shows the echo, which decides what an operator sees, and steps and
/// sets the spin. A typed number takes effect once it is complete: on Enter, when the focus goes to another
/// field, or with the operator's next action; a box that comes up or another program leaves it half typed.
/// Esc discards it. A step shows its result at once. An arrow or key that is held down steps only as fast as
/// the steps are carried out, so that nothing continues after its release.
class SpinField : public QAbstractSpinBox {
  Q_OBJECT
 public:
  /// `subject` if the number belongs to a record that may move to other controls.
  SpinField(SpinControl& spin, TextBox& echo, QWidget* parent, std::shared_ptr<Subject> subject = {});
  void Follow(SpinControl& spin, TextBox& echo);
  /// The radix of the echo and of typed numbers, 10 or 16; called each time.
  void SetRadix(std::function<int()> radix) { radix_ = std::move(radix); }
  /// Completes the number that is being typed.
  void Complete();
  /// Discards what was typed.
  void TakeBack();

  void stepBy(int steps) override;
  QValidator::State validate(QString& text, int& position) const override;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  StepEnabled stepEnabled() const override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void ShowControl();
  int NoteWhereItLeads(qlonglong wanted);
  std::optional<int> TypedNumber() const;
  void KeepWhatIsTyped();
  void ShowAgain();
  int Radix() const { return radix_ ? radix_() : 10; }
  /// The value as the operator sees it, after the steps that are still pending.
  int SeenValue() const;
  int WhereItStays(qlonglong value) const;

  SpinControl* spin_;
  TextBox* echo_;
  std::function<int()> radix_;
  Binding* binding_;
  bool typing_ = false;
  bool heldDown_ = false;    ///< the step comes from a repeating key or arrow
  bool staysInUse_ = false;  ///< the focus leaves only temporarily
  QString echoShown_;
};

}  // namespace marlinset

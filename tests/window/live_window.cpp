// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/window/live_window.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QStyleOptionSpinBox>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

#include "gui/widgets/look.h"

namespace marlinset {
namespace {

constexpr int kNoDoubleClickMs = 1000;

int NextMoment() {
  static int moment = 0;
  return moment += kNoDoubleClickMs;
}

QString ShownText(const QComboBox& box) {
  return box.currentIndex() < 0 ? box.placeholderText() : box.currentText();
}

/// What a control's widget shows and what it should show; two empty texts if there is nothing to compare.
std::pair<QString, QString> Looks(const QObject& widget, const Control& control) {
  const auto ticks = [](bool shown, bool held) {
    return std::pair{QString::number(shown), QString::number(held)};
  };
  const auto* button = qobject_cast<const QAbstractButton*>(&widget);
  if (const auto* box = dynamic_cast<const CheckBox*>(&control)) return ticks(button->isChecked(), box->On());
  if (const auto* option = dynamic_cast<const OptionButton*>(&control))
    return ticks(button->isChecked(), option->Value());
  if (const auto* item = dynamic_cast<const MenuItem*>(&control)) {
    const auto& entry = dynamic_cast<const QAction&>(widget);
    return ticks(entry.isCheckable() && entry.isChecked(), entry.isCheckable() && item->Checked());
  }
  if (const auto* combo = dynamic_cast<const ComboBox*>(&control)) {
    const QString text = Shown(combo->Text());
    return {ShownText(dynamic_cast<const QComboBox&>(widget)), text.isEmpty() ? QStringLiteral("–") : text};
  }
  const auto* text = dynamic_cast<const TextBox*>(&control);
  const auto* line = qobject_cast<const QLineEdit*>(&widget);
  return text && line ? std::pair{line->text(), Shown(text->Text())} : std::pair<QString, QString>();
}

}  // namespace

LiveWindow::LiveWindow(ToolRig& rig)
    : rig_(rig),
      window_(std::make_unique<MainWindow>(rig.form, WindowHooks{.changes = &rig.tool.unsavedChanges,
                                                                 .remarks = &rig.tool.remarks,
                                                                 .held = &rig.tool.held,
                                                                 .wholeSend = &rig.tool.wholeSend,
                                                                 .picture = &rig.tool.pictureRules,
                                                                 .tables = &rig.tool.tables,
                                                                 .traffic = &rig.tool.trafficRules})) {
  rig.pump.onHandle = TurnQtsLoop;
}

QWidget& LiveWindow::Widget(const std::string& name) const {
  return marlinset::Widget(*window_, name);
}

void LiveWindow::Show(int view) {
  rig_.tool.form.oView(view).SetValue(true);
  window_->resize(1500, 1000);  // room for all, so that nothing scrolls
  window_->activateWindow();
  Settle();
}

void LiveWindow::Settle() {
  TurnQtsLoop();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  TurnQtsLoop();
}

void LiveWindow::Mouse(QWidget& widget, QPoint at, Qt::MouseButtons buttons, Qt::MouseButton button, int type,
                       int moment) {
  QWindow* window = widget.window()->windowHandle();
  if (!window) return;
  qt_handleMouseEvent(window, widget.mapTo(widget.window(), at), widget.mapToGlobal(at), buttons, button,
                      static_cast<QEvent::Type>(type), Qt::NoModifier, moment);
}

void LiveWindow::Move(QWidget& widget, QPoint at) {
  Mouse(widget, at, Qt::NoButton, Qt::NoButton, QEvent::MouseMove, NextMoment());
}

void LiveWindow::Click(QWidget& widget, QPoint at, int times) {
  for (const int moment = NextMoment(); times > 0; --times) {
    Mouse(widget, at, Qt::LeftButton, Qt::LeftButton, QEvent::MouseButtonPress, moment);
    Mouse(widget, at, Qt::NoButton, Qt::LeftButton, QEvent::MouseButtonRelease, moment);
  }
}

void LiveWindow::Press(QWidget& widget, QPoint at) {
  Mouse(widget, at, Qt::LeftButton, Qt::LeftButton, QEvent::MouseButtonPress, NextMoment());
}

void LiveWindow::Hold(QWidget& widget, QPoint at) {
  Mouse(widget, at, Qt::LeftButton, Qt::NoButton, QEvent::MouseMove, NextMoment());
}

void LiveWindow::Release(QWidget& widget, QPoint at) {
  Mouse(widget, at, Qt::NoButton, Qt::LeftButton, QEvent::MouseButtonRelease, NextMoment());
}

void LiveWindow::ClickArrow(QWidget& spin, bool up) {
  QStyleOptionSpinBox option;
  option.initFrom(&spin);
  option.frame = true;
  const auto part = up ? QStyle::SC_SpinBoxUp : QStyle::SC_SpinBoxDown;
  Click(spin, spin.style()->subControlRect(QStyle::CC_SpinBox, &option, part, &spin).center());
}

void LiveWindow::Pick(const std::string& name, int entry) {
  auto& box = dynamic_cast<QComboBox&>(Widget(name));
  Click(box);
  TurnQtsLoop();
  QAbstractItemView& list = *box.view();
  Click(*list.viewport(), list.visualRect(list.model()->index(entry, 0)).center());
}

void LiveWindow::Key(int key, Qt::KeyboardModifiers modifiers, const QString& text) {
  QWindow* window = QGuiApplication::focusWindow();
  if (!window) return;
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
    qt_handleKeyEvent(window, type, key, modifiers, text);
}

void LiveWindow::Type(const char* letters) {
  for (; *letters; ++letters) Key(*letters, Qt::NoModifier, QString(QLatin1Char(*letters)));
}

void LiveWindow::Wheel(QWidget& widget, bool up) {
  const QPoint at = widget.rect().center();
  QCoreApplication::postEvent(
      &widget, new QWheelEvent(at, widget.mapToGlobal(at), QPoint(), QPoint(0, up ? 120 : -120), Qt::NoButton,
                               Qt::NoModifier, Qt::NoScrollPhase, false));
}

std::vector<std::string> LiveWindow::Disagreements() const {
  std::vector<std::string> found;
  for (const Control* control : rig_.tool.form.Controls()) {
    const auto* shown = window_->findChild<QObject*>(Shown(control->FullName()));
    if (!shown) continue;
    const auto [seen, held] = Looks(*shown, *control);
    if (seen != held)
      found.push_back(control->FullName() + " shows " + seen.toStdString() + ", holds " + held.toStdString());
    const auto* widget = qobject_cast<const QWidget*>(shown);
    if (widget && widget->isVisible() && widget->isEnabled() && !control->Enabled())
      found.push_back(control->FullName() + " looks enabled");
  }
  return found;
}

}  // namespace marlinset

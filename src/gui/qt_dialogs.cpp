// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/qt_dialogs.h"

#include <QLabel>
#include <QMessageBox>
#include <QShortcut>
#include <QTimer>
#include <algorithm>

#include "controls/control_types.h"
#include "controls/form.h"
#include "gui/widgets/binding.h"
#include "gui/widgets/look.h"
#include "gui/window_in_use.h"

namespace marlinset {
namespace {

/// How often a box checks whether its reason still exists: soon enough that nobody answers in between. A
/// device unplugged before it was opened sends no event.
constexpr int kWatchMs = 100;
constexpr int kWidestFact = 64;  ///< in digits; a longer one is wrapped

struct ButtonSet {
  QMessageBox::StandardButtons buttons;
  QMessageBox::StandardButton safe;  ///< default, and the answer of Esc and the cross
};

ButtonSet ButtonsOf(BoxButtons buttons) {
  switch (buttons) {
    case BoxButtons::kYesNo:
      return {QMessageBox::Yes | QMessageBox::No, QMessageBox::No};
    case BoxButtons::kOkCancel:
      return {QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Cancel};
    case BoxButtons::kOk:
      break;
  }
  return {QMessageBox::Ok, QMessageBox::Ok};
}

QMessageBox::Icon IconOf(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::kInformation:
      return QMessageBox::Information;
    case BoxIcon::kCritical:
      return QMessageBox::Critical;
    case BoxIcon::kQuestion:
      return QMessageBox::Question;
    case BoxIcon::kNone:
      break;
  }
  return QMessageBox::NoIcon;
}

BoxAnswer AnswerOf(int button) {
  switch (button) {
    case QMessageBox::Yes:
      return BoxAnswer::kYes;
    case QMessageBox::No:
      return BoxAnswer::kNo;
    case QMessageBox::Cancel:
      return BoxAnswer::kCancel;
    default:
      return BoxAnswer::kOk;
  }
}

/// The box is as wide as its own text, which is short; a fact below it still stays on its line.
void WidenForFacts(const QMessageBox& window) {
  auto* facts = window.findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel"));
  if (!facts) return;
  const int natural = facts->fontMetrics().size(0, facts->text()).width();
  facts->setMinimumWidth(std::min(natural + SpaceUnit(window), FiguresWidth(window, kWidestFact)));
}

}  // namespace

BoxAnswer QtDialogs::Present(const MessageBox& box) {
  const ButtonSet set = ButtonsOf(box.buttons);
  const QString text = Shown(box.text)
                           .replace(QLatin1String("\r\n"), QLatin1String("\n"))
                           .replace(QLatin1Char('\r'), QLatin1Char('\n'));
  QMessageBox window(IconOf(box.icon), Shown(box.caption), text, set.buttons, WindowInUse());
  window.setTextFormat(Qt::PlainText);
  window.setInformativeText(Shown(box.remedy));
  WidenForFacts(window);
  window.setDefaultButton(set.safe);
  window.setEscapeButton(set.safe);
  const auto over = [&box] { return box.holds && !box.holds(); };
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, &window, [&] {
    if (!over()) return;
    watch.stop();
    window.done(set.safe);
  });
  if (box.holds) watch.start(kWatchMs);
  const int button = over() ? set.safe : ShowWithStop(window, box.buttons);
  return AnswerOf(over() ? set.safe : button);
}

/// Shows the box until the operator answers. It keeps the main window from its keys, so it has its own for
/// Stop. A question closes only if it no longer holds then.
int QtDialogs::ShowWithStop(QMessageBox& window, BoxButtons buttons) {
  if (!stop_ || !stop_->Enabled()) return window.exec();
  QShortcut keys(kStopKeys, &window);
  QObject::connect(&keys, &QShortcut::activated, &window, [&] {
    OperatorQueue::OfProgram().Take(*stop_, {OperatorAction::Kind::kClick}, Turn::kAtOnce);
    if (buttons == BoxButtons::kOk) window.done(QMessageBox::Ok);
  });
  int button = QMessageBox::NoButton;
  OperatorQueue::OfProgram().OpenOver(stop_->Owner(), window, [&] { button = window.exec(); });
  return button;
}

void QtDialogs::AddWindow(const Form& form, WindowMaker maker) {
  makers_[&form] = std::move(maker);
}

void QtDialogs::PresentForm(Form& form) {
  const auto maker = makers_.find(&form);
  if (maker == makers_.end()) return;
  const std::unique_ptr<QDialog> window = maker->second(WindowInUse());
  form.SetVisible(true);
  const Listening<> listening(form.Changed, [&] {
    if (!form.Visible()) window->close();
  });
  OperatorQueue::OfProgram().OpenOver(form, *window, [&] { window->exec(); });
  form.SetVisible(false);
}

}  // namespace marlinset

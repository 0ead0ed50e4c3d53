// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/qt_dialogs.h"

#include <QApplication>
#include <QMessageBox>

#include "gui/binding.h"
#include "gui/look.h"
#include "platform/form.h"

namespace marlinset {
namespace {

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

}  // namespace

BoxAnswer QtDialogs::Present(const MessageBox& box) {
  const ButtonSet set = ButtonsOf(box.buttons);
  const QString text = Shown(box.text)
                           .replace(QLatin1String("\r\n"), QLatin1String("\n"))
                           .replace(QLatin1Char('\r'), QLatin1Char('\n'));
  QMessageBox window(IconOf(box.icon), Shown(box.caption), text, set.buttons, QApplication::activeWindow());
  window.setTextFormat(Qt::PlainText);
  window.setInformativeText(Shown(box.remedy));
  window.setDefaultButton(set.safe);
  window.setEscapeButton(set.safe);
  return AnswerOf(window.exec());
}

void QtDialogs::AddWindow(const Form& form, WindowMaker maker) {
  makers_[&form] = std::move(maker);
}

void QtDialogs::PresentForm(Form& form) {
  const auto maker = makers_.find(&form);
  if (maker == makers_.end()) return;
  const std::unique_ptr<QDialog> window = maker->second(QApplication::activeWindow());
  form.SetVisible(true);
  const Listening<> listening(form.Changed, [&] {
    if (!form.Visible()) window->close();
  });
  window->exec();
  form.SetVisible(false);
}

}  // namespace marlinset

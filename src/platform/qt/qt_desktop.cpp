// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/qt_desktop.h"

#include <QDateTime>
#include <QLocale>
#include <QProcess>

namespace marlinset {

std::string QtDesktop::DateAndTime() const {
  return QLocale::system().toString(QDateTime::currentDateTime(), QLocale::ShortFormat).toStdString();
}

RegistryValue QtDesktop::Registry(const std::string& /*key*/, const std::string& /*name*/) const {
  return {};
}

bool QtDesktop::Run(const std::string& program) {
  return QProcess::startDetached(QString::fromStdString(program), {});
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/qt_settings.h"

#include <QStandardPaths>
#include <QStringList>
#include <QVariant>

#include "platform/text.h"

namespace marlinset {
namespace {

QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

QtSettings::QtSettings()
    : QtSettings(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                 "/7340-Marlinset.ini") {}

QtSettings::QtSettings(const std::string& file) : QtSettings(ToQt(file)) {}

QtSettings::QtSettings(const QString& file) : settings_(file, QSettings::IniFormat) {
  settings_.beginGroup("Window");
}

QString QtSettings::StoredKey(std::string_view key) const {
  const QStringList stored = settings_.childKeys();
  QString exact = ToQt(key);
  if (stored.contains(exact)) return exact;
  for (const QString& name : stored) {
    if (EqualNoCase(name.toStdString(), key)) return name;
  }
  return exact;
}

std::string QtSettings::GetSetting(std::string_view key, std::string_view defaultValue) const {
  const QVariant value = settings_.value(StoredKey(key));
  if (!value.isValid()) return std::string(defaultValue);
  // A comma in a file that somebody wrote by hand reads as a list.
  if (value.metaType() == QMetaType::fromType<QStringList>())
    return value.toStringList().join(", ").toStdString();
  return value.toString().toStdString();
}

void QtSettings::SaveSetting(std::string_view key, std::string_view value) {
  settings_.setValue(StoredKey(key), ToQt(value));
  settings_.sync();
}

}  // namespace marlinset

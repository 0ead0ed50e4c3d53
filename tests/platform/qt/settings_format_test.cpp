// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QSettings>

#include "platform/posix/settings_file.h"
#include "tests/support/temp_folder.h"

namespace marlinset {
namespace {

/// Qt wrote the stores in the field, and programs on Qt go on reading ours.
TEST(SettingsFormat, IsWhatQtReadsAndWrites) {
  const TempFolder folder;
  const QString file = QString::fromStdString(folder.File("settings.ini"));
  const char* values[] = {
      "",         "a, b;c=d#e",     "@Invalid()",   "\"quoted\"", " blanks ", "C:\\Users\\Ann\\",
      "Größe €.", "two\nlines\t\1", "; no comment", "@@",         "[x]",      "1,2"};
  for (int i = 0; const char* value : values) {
    QSettings(file, QSettings::IniFormat)
        .setValue(QStringLiteral("Window/Qt key %1").arg(i), QString::fromUtf8(value));
    SettingsFile(folder.File("settings.ini")).SaveSetting("own" + std::to_string(i++), value);
  }
  const SettingsFile own(folder.File("settings.ini"));
  const QSettings qt(file, QSettings::IniFormat);
  for (int i = 0; const char* value : values) {
    EXPECT_EQ(own.GetSetting("qt KEY " + std::to_string(i), "default"), value);
    EXPECT_EQ(qt.value(QStringLiteral("Window/own%1").arg(i++)).toString(), QString::fromUtf8(value));
  }
}

}  // namespace
}  // namespace marlinset

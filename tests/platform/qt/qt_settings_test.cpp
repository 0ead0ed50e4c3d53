// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/qt_settings.h"

#include <gtest/gtest.h>

#include "tests/support/temp_folder.h"

namespace marlinset {
namespace {

TEST(QtSettings, KeepsAnyTextAcrossAProgramRun) {
  const TempFolder folder;
  const std::string file = folder.File("new/folder/settings.ini");
  const std::vector<std::string> values = {"",         "a, b;c=d#e",       "@Invalid()",  "\"quoted\"",
                                           " blanks ", "C:\\Users\\Ann\\", "Größe €.qcf", "two\nlines"};
  for (std::size_t i = 0; i < values.size(); ++i) {
    QtSettings(file).SaveSetting("Key" + std::to_string(i), values[i]);
  }
  for (std::size_t i = 0; i < values.size(); ++i) {
    EXPECT_EQ(QtSettings(file).GetSetting("Key" + std::to_string(i), "default"), values[i]);
  }
  EXPECT_EQ(QtSettings(file).GetSetting("Missing", "default"), "default");
}

TEST(QtSettings, FindsKeysWithoutRegardToCase) {
  const TempFolder folder;
  const std::string file = folder.Write("settings.ini", "[Window]\nLOAD=/first\nPort1=/dev/ttyS, odd\n");
  QtSettings settings(file);
  EXPECT_EQ(settings.GetSetting("port1", ""), "/dev/ttyS, odd") << "written by hand, without quotes";
  settings.SaveSetting("load", "/second");
  EXPECT_EQ(settings.GetSetting("Load", ""), "/second");
  EXPECT_NE(folder.Read("settings.ini").find("LOAD=/second"), std::string::npos) << "one key, not two";
}

}  // namespace
}  // namespace marlinset

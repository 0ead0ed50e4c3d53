// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/qt_settings.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/temp_folder.h"

namespace marlinset {
namespace {

TEST(QtSettings, KeepsAnyTextAcrossAProgramRun) {
  const TempFolder folder;
  const std::string file = folder.File("new/folder/settings.ini");
  const std::vector<std::string> values = {"",
                                           "0",
                                           "a, b",
                                           "a;b=c#d",
                                           "@x",
                                           "@Invalid()",
                                           "\"quoted\"",
                                           " blanks ",
                                           "None",
                                           "C:\\Users\\Ann\\7340\\",
                                           "/dev/ttyUSB0",
                                           "Größe €.qcf",
                                           "two\nlines\tend",
                                           "%41"};
  for (std::size_t i = 0; i < values.size(); ++i) {
    QtSettings(file).SaveSetting("Key" + std::to_string(i), values[i]);
  }
  const QtSettings again(file);
  for (std::size_t i = 0; i < values.size(); ++i) {
    EXPECT_EQ(again.GetSetting("Key" + std::to_string(i), "default"), values[i]);
  }
  EXPECT_EQ(again.GetSetting("Missing", "default"), "default");
}

TEST(QtSettings, FindsKeysWithoutRegardToCase) {
  const TempFolder folder;
  const std::string file = folder.Write("settings.ini", "[Window]\nLOAD=/first\nPort1=/dev/ttyS, odd\n");
  QtSettings settings(file);
  EXPECT_EQ(settings.GetSetting("Load", ""), "/first");
  EXPECT_EQ(settings.GetSetting("port1", ""), "/dev/ttyS, odd") << "written by hand, without quotes";
  settings.SaveSetting("load", "/second");
  EXPECT_EQ(settings.GetSetting("Load", ""), "/second");
  const std::string text = folder.Read("settings.ini");
  EXPECT_EQ(text.find("/first"), std::string::npos);
  EXPECT_EQ(text.find("load"), std::string::npos) << "one key, not two";
}

TEST(QtSettings, IsSharedByTwoPrograms) {
  const TempFolder folder;
  const std::string file = folder.File("settings.ini");
  QtSettings window(file);
  QtSettings terminal(file);
  window.SaveSetting("Page", "3");
  terminal.SaveSetting("Timer", "5");
  const QtSettings next(file);
  EXPECT_EQ(next.GetSetting("Page", "0"), "3");
  EXPECT_EQ(next.GetSetting("Timer", "1"), "5");
}

TEST(QtSettings, LivesWithAStoreThatCannotBeWrittenOrRead) {
  const TempFolder folder;
  folder.Write("plain", "no folder");
  folder.Write("damaged.ini",
               "[Win\xFF"
               "dow\n=]]\nX=@Variant(\x1)\n[Window]\nPage=@Variant(\x7F)\nPage\n");
  for (const std::string& file :
       {folder.File("plain/settings.ini"), folder.Path(), folder.File("damaged.ini")}) {
    QtSettings settings(file);
    settings.GetSetting("Page", "0");
    settings.SaveSetting("Page", "4");
    EXPECT_EQ(settings.GetSetting("Page", "0"), "4") << file;
  }
}

TEST(QtSettings, TheUsersOwnStoreLiesInTheConfigurationFolder) {
  const TempFolder folder;
  const char* before = getenv("XDG_CONFIG_HOME");
  const std::string kept = before ? before : "";
  setenv("XDG_CONFIG_HOME", folder.Path().c_str(), 1);
  QtSettings().SaveSetting("Comm", "2");
  EXPECT_EQ(QtSettings().GetSetting("Comm", "1"), "2");
  if (before) {
    setenv("XDG_CONFIG_HOME", kept.c_str(), 1);
  } else {
    unsetenv("XDG_CONFIG_HOME");
  }
  EXPECT_NE(folder.Read("7340-Marlinset.ini").find("Comm=2"), std::string::npos);
}

}  // namespace
}  // namespace marlinset

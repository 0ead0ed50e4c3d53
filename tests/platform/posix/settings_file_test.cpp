// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/posix/settings_file.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/temp_folder.h"

namespace marlinset {
namespace {

TEST(SettingsFile, FindsKeysWithoutRegardToCaseAndKeepsTheRest) {
  const TempFolder folder;
  const std::string file = folder.Write("settings.ini",
                                        "; mine\n[Other]\nLoad=x\n[Window]\nLOAD=/first\n"
                                        "Port1=/dev/ttyS, odd ; by hand\n\n[Last]\nLoad=y");
  SettingsFile settings(file);
  EXPECT_EQ(settings.GetSetting("port1", ""), "/dev/ttyS, odd") << "written by hand, without quotes";
  settings.SaveSetting("load", "/second");
  settings.SaveSetting("New", " a;\"\n");
  EXPECT_EQ(settings.GetSetting("Load", ""), "/second");
  EXPECT_EQ(folder.Read("settings.ini"),
            "; mine\n[Other]\nLoad=x\n[Window]\nLOAD=/second\n"
            "Port1=/dev/ttyS, odd ; by hand\nNew=\" a;\\\"\\n\"\n\n[Last]\nLoad=y");
}

TEST(SettingsFile, ARunReadsWhatItWroteItselfAndNoOther) {
  const TempFolder folder;
  const std::string file = folder.File("new/folder/settings.ini");
  SettingsFile one(file);
  SettingsFile two(file);
  one.SaveSetting("Load", "/one");
  two.SaveSetting("Load", "/two");
  one.SaveSetting("Page", "3");
  EXPECT_EQ(one.GetSetting("Load", ""), "/one");
  EXPECT_EQ(two.GetSetting("Page", "default"), "default");
  const SettingsFile next(file);
  EXPECT_EQ(next.GetSetting("Load", "") + next.GetSetting("Page", ""), "/two3") << "both arrived";
  EXPECT_EQ(std::filesystem::status(file).permissions(), std::filesystem::perms{0600});
}

TEST(SettingsFile, NothingIsWrittenOverWhatIsNoStore) {
  const TempFolder folder;
  EXPECT_THROW(SettingsFile(folder.Path()), RuntimeError);
  EXPECT_THROW(SettingsFile("/dev/full"), RuntimeError);
  SettingsFile none("/dev/null");
  none.SaveSetting("Load", "/x");
  EXPECT_EQ(none.GetSetting("Load", ""), "/x");
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));

  SettingsFile lost("/proc/nowhere/settings.ini");
  int told = 0;
  lost.onNotWritten = [&](const RuntimeError&) { ++told; };
  lost.SaveSetting("Load", "/x");
  lost.SaveSetting("Load", "/y");
  EXPECT_EQ(lost.GetSetting("Load", ""), "/y");
  EXPECT_EQ(told, 1);
}

}  // namespace
}  // namespace marlinset

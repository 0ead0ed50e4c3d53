// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QSettings>
#include <filesystem>
#include <iterator>

#include "base/runtime_error.h"
#include "platform/posix/settings_file.h"
#include "platform/qt/qt_work_keeper.h"
#include "tests/support/temp_folder.h"

namespace marlinset {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

TEST(QtWorkKeeper, LeavesOnlyWhatNoLivingRunHolds) {
  const TempFolder folder;
  const std::string place = folder.File("new/unsaved");
  const UnsavedWork work{"Größe", "/show/Größe.qcf", {1, 0, 255}, "3 ABC"};
  QtWorkKeeper other(place);
  {
    QtWorkKeeper one(place);
    one.Keep({"old", "", {7}});
    one.Keep(work);
    EXPECT_THAT(other.Left(), IsEmpty()) << "it lives";
    other.Keep({"other", "", {9}});
    EXPECT_THAT(one.Left(), IsEmpty());
  }
  const std::vector<LeftWork> left = other.Left();
  ASSERT_THAT(left, SizeIs(1));
  EXPECT_EQ(left[0].title, work.title);
  EXPECT_EQ(left[0].fileName, work.fileName);
  EXPECT_EQ(left[0].mark, work.mark);
  EXPECT_FALSE(left[0].when.empty());
  EXPECT_EQ(folder.Read(left[0].file), std::string("\1\0\377", 3));

  QtWorkKeeper third(place);
  third.Keep({"third", "", {3}});
  EXPECT_THAT(third.Left(), SizeIs(1)) << "left work keeps its number";
  third.Drop();
  third.DropLeft(left[0].file);
  EXPECT_THAT(third.Left(), IsEmpty());
  other.Leave();
  ASSERT_THAT(third.Left(), SizeIs(1));
}

TEST(QtWorkKeeper, PutsDeclinedWorkAwayAndTheOldestOfTwentyGoes) {
  const TempFolder folder;
  QtWorkKeeper keeper(folder.Path());
  folder.Write("declined.qcf.bak", "of an earlier version");
  for (int i = 1; i <= 21; ++i) {
    keeper.Keep({"show", "", {static_cast<std::uint8_t>(i)}});
    keeper.Leave();
    keeper.DeclineLeft(keeper.Left().at(0).file);
    EXPECT_THAT(keeper.Left(), IsEmpty());
  }
  EXPECT_EQ(folder.Read("declined2.qcf.bak") + folder.Read("declined21.qcf.bak"), "\x02\x15");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 20)
      << "without locks, names, and the two oldest";
  QtWorkKeeper nowhere(folder.Write("file", "x") + "/unsaved");
  EXPECT_THROW(nowhere.Keep({"x", "", {1}}), RuntimeError);
  EXPECT_THAT(nowhere.Left(), IsEmpty());
}

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

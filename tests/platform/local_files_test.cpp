// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/local_files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "tests/support/database_tool.h"
#include "tests/support/hex.h"

namespace marlinset {
namespace {

struct LocalFilesTest : ::testing::Test {
  TempFolder folder_;
  LocalFiles files_;
};

TEST_F(LocalFilesTest, WritesInPlaceAndNeverEmptiesAFile) {
  const std::string path = folder_.Write("é.qcf", "0123456789");
  auto file = files_.OpenForWriting(path);
  file->Write(FromHex("41 42"));
  EXPECT_EQ(folder_.Read("é.qcf"), "AB23456789") << "on the disk at once";
  file->Write(FromHex("43"));
  file.reset();
  EXPECT_EQ(folder_.Read("é.qcf"), "ABC3456789");
  files_.OpenForWriting(folder_.File("new.qcf"))->Write(FromHex("58"));
  EXPECT_EQ(folder_.Read("new.qcf"), "X");
  EXPECT_EQ(ToHex(files_.OpenForReading(folder_.File("new.qcf"))->ReadAll()), "58");
}

TEST_F(LocalFilesTest, SaysWhyAFileCannotBeUsed) {
  const auto reading = [&](const std::string& path) {
    return FailureOf([&] { files_.OpenForReading(path); });
  };
  EXPECT_EQ(reading(folder_.File("none")), kErrFileNotFound);
  EXPECT_EQ(reading(folder_.Path()), kErrFileAccess);
  EXPECT_EQ(FailureOf([&] { files_.OpenForWriting(folder_.Path()); }), kErrFileAccess);
  EXPECT_EQ(FailureOf([&] { files_.OpenForWriting(folder_.File("no/folder")); }), kErrFileAccess);
  EXPECT_EQ(FailureOf([&] { files_.OpenForWriting("/dev/full")->Write(FromHex("01")); }), kErrDiskFull);
  EXPECT_EQ(FailureOf([&] { files_.ChangeDirectory(folder_.File("none")); }), kErrPathNotFound);
  std::filesystem::resize_file(folder_.Write("vast", ""), 0x80000000U);
  EXPECT_EQ(reading(folder_.File("vast")), kErrOverflow);
  EXPECT_FALSE(files_.FileExists(folder_.Path())) << "a folder is no file";
  const std::string pipe = folder_.File("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(reading(pipe), kErrFileAccess) << "nobody is at its other end, ever";
  EXPECT_EQ(FailureOf([&] { files_.OpenForWriting(pipe); }), kErrFileAccess);
  EXPECT_FALSE(files_.FileExists(pipe));
}

TEST_F(LocalFilesTest, ACopyIsWholeOrNotMade) {
  files_.Copy(folder_.Write("a", "new"), folder_.Write("b", "old"));
  EXPECT_EQ(FailureOf([&] { files_.Copy(folder_.File("none"), folder_.File("b")); }), kErrFileAccess);
  EXPECT_EQ(folder_.Read("b"), "new");
  EXPECT_EQ(FileNameOf("C:\\folder\\a.qcf"), "a.qcf");
  EXPECT_EQ(FileNameOf("/folder\\b/c.qcf"), "c.qcf");
}

}  // namespace
}  // namespace marlinset

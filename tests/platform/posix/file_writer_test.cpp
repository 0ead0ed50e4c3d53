// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/posix/file_writer.h"

#include <sys/resource.h>

#include <csignal>
#include <filesystem>

#include "platform/posix/file_place.h"
#include "platform/posix/local_files.h"
#include "tests/support/database_tool.h"
#include "tests/support/table.h"

namespace marlinset {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::EndsWith;

struct FileWriterTest : ::testing::Test {
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder_.Path())) names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
  }
  TempFolder folder_;
  LocalFiles files_;
};

TEST_F(FileWriterTest, TheOldFileStaysUntilTheNewOneTakesItsPlace) {
  const std::string path = folder_.Write("é.qcf", "old");
  ASSERT_EQ(chmod(path.c_str(), 0640), 0);
  fs::create_symlink("é.qcf", folder_.File("link"));
  fs::create_symlink("nowhere yet", folder_.File("dangling"));
  {
    FileWriter one(path);
    FileWriter two(folder_.File("link"));
    one.Write(FromHex("31"));
    two.Write(FromHex("32"));
    two.Write(FromHex("32"));
    EXPECT_EQ(folder_.Read("é.qcf"), "old");
    one.Commit();
    EXPECT_EQ(folder_.Read("é.qcf"), "1");
    two.Commit();
    EXPECT_EQ(folder_.Read("é.qcf"), "22") << "the last one wins";
  }
  WriteFile(folder_.File("dangling"), "x", NewFile::kPrivate);
  EXPECT_THAT(Names(), ElementsAre("dangling", "link", "nowhere yet", "é.qcf")) << "nothing else";
  EXPECT_TRUE(fs::is_symlink(folder_.File("link")) && fs::is_symlink(folder_.File("dangling")));
  EXPECT_EQ(fs::status(path).permissions(), fs::perms{0640});
  EXPECT_EQ(fs::status(folder_.File("nowhere yet")).permissions(), fs::perms{0600});
}

TEST_F(FileWriterTest, AnyNameThatAFileCanHaveIsWrittenAgainAndAgain) {
  for (std::size_t length = 250; length <= 255; ++length) {
    const std::string path = folder_.File(std::string(length - 7, 'n') + "é" + ".qcf" + "x");
    for (const char* content : {"1", "2", "3"}) {
      WriteFile(path, content);
      files_.Backup(path);
    }
    const std::string kept = BackupOf(path);
    EXPECT_EQ(folder_.Read(FileNameOf(kept)), "3") << length;
    EXPECT_THAT(kept, EndsWith(".bak"));
    fs::remove(path);
    fs::remove(kept);
  }
  EXPECT_EQ(BackupOf("show.qcf"), "show.qcf.bak");
  const std::string longest(251, 'n');
  EXPECT_EQ(BackupOf(longest), longest + ".bak");
  for (const char* other : {"mm.qcf", "n", ".bak"}) {
    EXPECT_NE(BackupOf(longest + other), BackupOf(longest + "nn.qcf")) << "each file has its own";
    EXPECT_NE(BackupOf(longest + other), longest + ".bak") << "which is the backup of another, or itself";
  }
  WriteFile(folder_.File("show.qcf"), "show");
  WriteFile(folder_.File("precious"), "notes");
  fs::create_symlink("precious", folder_.File("show.qcf.bak"));
  files_.Backup(folder_.File("show.qcf"));
  EXPECT_EQ(folder_.Read("precious") + folder_.Read("show.qcf.bak"), "notesshow")
      << "no link leads a backup astray";
  for (const char* name : {"precious", "show.qcf", "show.qcf.bak"}) fs::remove(folder_.File(name));
  EXPECT_THAT(Names(), ElementsAre());
}

TEST_F(FileWriterTest, SaysWhyAFileCannotBeUsedAndLeavesNothing) {
  const std::string pipe = folder_.File("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  fs::create_symlink("circle", folder_.File("circle"));
  fs::resize_file(folder_.Write("vast", ""), 64 * 1024 * 1024 + 1);
  const struct {
    std::string path;
    const char* writing;
    const char* reading;
  } cases[] = {
      {folder_.Path(), "This is a folder.", "This is a folder."},
      {pipe, "This is a pipe, not a file.", "This is a pipe, not a file."},
      {"/dev/full", "This is a device, not a file.", "This is a device, not a file."},
      {folder_.File("circle"), "Its links lead in a circle.", "Its links lead in a circle."},
      {folder_.File("no/folder"), "Its folder is not there.", "It is not there."},
      {"/proc/file", "Its folder takes no new files.", "It is not there."},
      {folder_.File("vast/file"), "A part of its path is no folder.", "A part of its path is no folder."},
      {folder_.File(std::string(256, 'n')), "The name is too long.", "The name is too long."},
      {folder_.File("vast"), "", "It is larger than 64 MiB."},
      {"", "The name of the file is missing.", "It is not there."},
  };
  const std::vector<std::string> before = Names();
  for (const auto& testCase : cases) {
    SCOPED_TRACE(testCase.path);
    EXPECT_THAT(Failed([&] { FileWriter{testCase.path}; }).Remedy(), EndsWith(testCase.writing));
    EXPECT_THAT(Failed([&] { files_.OpenForReading(testCase.path); }).Remedy(), EndsWith(testCase.reading));
  }
  const auto shrinking = files_.OpenForReading(folder_.Write("vast", "content"));
  fs::resize_file(folder_.File("vast"), 3);
  EXPECT_EQ(Failed([&] { shrinking->ReadAll(); }).Remedy(),
            folder_.File("vast") + "\nIt became shorter while it was read.");
  EXPECT_FALSE(files_.FileExists(pipe));
  EXPECT_EQ(FailureOf([&] { files_.OpenForReading(folder_.File("none")); }), kErrFileNotFound);
  EXPECT_EQ(FailureOf([&] { files_.ChangeDirectory(folder_.File("none")); }), kErrPathNotFound);

  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  const rlimit small{100, limit.rlim_max};
  const auto disposition = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &small);
  const std::string path = folder_.Write("pipe.qcf", "old");
  EXPECT_EQ(FailureOf([&] { WriteFile(path, std::string(200, 'x')); }), kErrDiskFull);
  setrlimit(RLIMIT_FSIZE, &limit);
  std::signal(SIGXFSZ, disposition);
  EXPECT_EQ(folder_.Read("pipe.qcf"), "old");
  EXPECT_EQ(Names().size(), before.size() + 1);
}

TEST_F(FileWriterTest, NamesItsOwnStreams) {
  EXPECT_EQ(OwnStream("/dev/stdout"), 1);
  EXPECT_EQ(OwnStream("/dev/fd/63"), 63);
  fs::create_symlink("/dev/stderr", folder_.File("link"));
  EXPECT_EQ(OwnStream(folder_.File("link")), 2);
  EXPECT_EQ(OwnStream(folder_.Write("7", "")), std::nullopt);
  EXPECT_TRUE(IsNullDevice("/dev/null"));
  EXPECT_FALSE(IsNullDevice("/dev/full"));
  EXPECT_EQ(FileNameOf("C:\\folder\\a.qcf"), "a.qcf");
  EXPECT_EQ(FileNameOf("/folder\\b/c.qcf"), "c.qcf");
}

}  // namespace
}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
// A program that is killed in the middle of a save.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "platform/local_files.h"
#include "tests/files/sample.h"

namespace marlinset {
namespace {

/// Goes through everything, as the end of a process does.
struct Killed {};

/// The computer's files until the process is killed, after so many copies and written bytes.
class MortalFiles : public LocalFiles {
 public:
  explicit MortalFiles(std::size_t lifetime) : life_(lifetime) {}

  std::unique_ptr<OutputFile> OpenForWriting(const std::string& path) override {
    return std::make_unique<MortalFile>(LocalFiles::OpenForWriting(path), life_);
  }
  void Copy(const std::string& from, const std::string& to) override {
    if (life_ == 0) throw Killed{};
    LocalFiles::Copy(from, to);
    --life_;
  }

 private:
  class MortalFile : public OutputFile {
   public:
    MortalFile(std::unique_ptr<OutputFile> file, std::size_t& life) : file_(std::move(file)), life_(life) {}
    void Write(std::span<const std::uint8_t> bytes) override {
      const auto written = bytes.first(std::min(life_, bytes.size()));
      file_->Write(written);
      life_ -= written.size();
      if (written.size() < bytes.size()) throw Killed{};
    }

   private:
    std::unique_ptr<OutputFile> file_;
    std::size_t& life_;
  };

  std::size_t life_;
};

bool Survives(ToolRig& rig, std::size_t lifetime) {
  MortalFiles files(lifetime);
  Platform platform{rig.pump, rig.line,    rig.engine,  rig.dialogs, rig.settings, rig.guard, rig.fileDialog,
                    files,    rig.printer, rig.desktop, ""};
  ConfigurationFile file(platform, rig.tool.variables, rig.tool.form, rig.tool.panels);
  try {
    file.SaveConfig("Save");
    return true;
  } catch (const Killed&) {
    return false;
  }
}

TEST(KilledSave, LeavesTheOldContentOrTheNewOne) {
  FileRig rig;
  rig.SaveAs("show.qcf");
  const FileBytes before = rig.Read("show.qcf");
  rig.form.tWinMess.SetText("ANOTHER AND A LONGER ONE");
  rig.SaveAs("new.qcf");
  const FileBytes after = rig.Read("new.qcf");
  ASSERT_NE(before, after);
  bool survived = false;
  for (std::size_t lifetime = 0; !survived; lifetime += lifetime < 300 ? 1 : 97) {
    std::filesystem::remove(rig.folder.File("show.qcf.bak"));
    rig.Write("show.qcf", before);
    rig.vars.CurrentFile = "show";
    survived = Survives(rig, lifetime);
    const FileBytes content = rig.Read("show.qcf");
    EXPECT_TRUE(content == before || content == after || rig.Read("show.qcf.bak") == before) << lifetime;
    EXPECT_EQ(survived, content == after) << lifetime;
  }
}

}  // namespace
}  // namespace marlinset

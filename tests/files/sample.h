// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/database_tool.h"
#include "tests/support/temp_folder.h"
#include "tests/support/tool_rig.h"

namespace marlinset {

using FileBytes = std::vector<std::uint8_t>;

inline FileBytes BytesOfFile(const std::string& path) {
  const std::string bytes = BytesOf(path);
  return {bytes.begin(), bytes.end()};
}

/// A sample file. A listing of its bytes lies beside it.
inline FileBytes Sample(int version) {
  return BytesOfFile(SAMPLE_FOLDER "version_" + std::to_string(version) + ".qcf");
}

/// Offset of the first byte after `text`.
inline std::size_t Behind(const FileBytes& bytes, std::string_view text) {
  const std::string all(bytes.begin(), bytes.end());
  return all.find(text) + text.size();
}

/// The started tool with a folder of its own for configurations.
struct FileRig : ToolRig {
  FileRig() { EXPECT_TRUE(tool.Start("", false)); }

  std::string Write(std::string_view name, const FileBytes& bytes) {
    return folder.Write(name, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
  }
  FileBytes Read(std::string_view name) const { return BytesOfFile(folder.File(name)); }

  /// Reads these bytes as the start reads the default configuration.
  ReadEnd Load(const FileBytes& bytes) {
    fileDialog.FileName = Write("loaded.qcf", bytes);
    tool.configurationFile.ReadConfigFile();
    return tool.configurationFile.LastRead();
  }
  void SaveAs(std::string_view name) {
    fileDialog.choices.emplace_back(folder.File(name));
    tool.configurationFile.SaveConfig("SaveAs");
  }

  TempFolder folder;
};

}  // namespace marlinset

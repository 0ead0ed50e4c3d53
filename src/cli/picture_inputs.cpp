// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/picture_inputs.h"

#include <filesystem>
#include <system_error>

#include "app/tool.h"
#include "platform/posix/file_place.h"

namespace marlinset {

bool IsSameFile(const std::string& a, const std::string& b) {
  if (a.empty() || b.empty()) return false;
  std::error_code error;
  return RealPath(a) == RealPath(b) || std::filesystem::equivalent(a, b, error);
}

bool IsInUse(const Tool& tool, const std::string& file) {
  return IsSameFile(file, tool.configurationFile.Path()) || IsSameFile(file, tool.variables.DatabasePath);
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "cli/tool_alone.h"

namespace marlinset {

/// A tool that only loads configuration files. It starts with the defaults, has no line and never waits.
class TrialLoad : public ToolAlone {
 public:
  /// Uses the settings of the options; takes neither their devices nor their answers. If it has not started,
  /// Boxes() says why not.
  explicit TrialLoad(const CommonOptions& options);

  /// Loads a file as File > Open does. Throws std::runtime_error that says why it cannot be loaded.
  void Load(const std::string& path);
  /// What the load had to say, or the start before the first one.
  const std::vector<std::string>& Boxes() const { return boxes_; }

 private:
  std::vector<std::string> boxes_;
};

}  // namespace marlinset

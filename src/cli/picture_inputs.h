// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace marlinset {

class Tool;

/// Why a picture is not written: a slip of the pen would cost a setup.
inline constexpr const char* kReplacesInput = "The picture would replace what it is made from.";

/// Whether both names lead to the same file.
bool IsSameFile(const std::string& a, const std::string& b);
/// Whether the tool works with this file: the open configuration, or the reference database.
bool IsInUse(const Tool& tool, const std::string& file);

}  // namespace marlinset

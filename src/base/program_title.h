// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace marlinset {

/// The program's title: caption of its windows and boxes, and the first text of a configuration file.
inline constexpr std::string_view kProgramTitle = "7340 Marlinset";
/// The main window's title when it shows a configuration of that name.
std::string TitleOf(std::string_view configuration);

}  // namespace marlinset

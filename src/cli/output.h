// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdio>
#include <exception>
#include <string>

#include "cli/json.h"

namespace marlinset {

/// Texts of other people's files must not control the terminal or leave their line: prints a control
/// character as \x and its two digits.
std::string Printable(const std::string& text);

void PrintLine(const std::string& text, std::FILE* stream = stdout);
/// One line of JSON.
void PrintJson(const Json& json);
/// What went wrong, on standard error.
void PrintError(const std::exception& error);

}  // namespace marlinset

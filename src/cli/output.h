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

/// A text and the end of its line, whatever bytes it has.
void PrintLine(const std::string& text, std::FILE* stream = stdout);
/// One line of JSON.
void PrintJson(const Json& json);
/// What went wrong, on standard error.
void PrintError(const std::exception& error);
/// The same for one of several files; with `json` also as an object with `file` and `error` on standard
/// output, so that each file has its line there.
void PrintError(const std::exception& error, const std::string& file, bool json);

}  // namespace marlinset

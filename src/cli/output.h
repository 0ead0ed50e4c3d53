// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdio>
#include <exception>
#include <string>

#include "cli/json.h"

namespace marlinset {

/// A text and the end of its line, whatever bytes it has.
void PrintLine(const std::string& text, std::FILE* stream = stdout);
/// A message on standard error, of one or more lines, in printable characters.
void PrintFault(const std::string& text);
/// One line of JSON.
void PrintJson(const Json& json);
/// What went wrong, on standard error.
void PrintError(const std::exception& error);
/// The same for one of several files; with `json` also as an object with `file` and `error` on standard
/// output, so that each file has its line there.
void PrintError(const std::exception& error, const std::string& file, bool json);

}  // namespace marlinset

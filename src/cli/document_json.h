// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/json.h"
#include "files/qcf_document.h"

namespace marlinset {

/// A configuration as JSON: its fields by name, in file order. "identification" holds model, title and
/// version of the tool that wrote it (in hexadecimal if it is not written as usual), "tail" the bytes after
/// the configuration in hexadecimal, if there are any. If a parameter's value loads as another number,
/// "loaded as" holds that number, or null if it can't be loaded.
Json DocumentJson(const QcfDocument& document);

/// Reads JSON text. Throws std::runtime_error if it is not JSON (with line and column), if a key occurs
/// twice in an object, because readers disagree on which one counts, or if objects have more keys than a
/// configuration could have.
Json ParseJson(const std::string& text);

/// The reverse, byte for byte. Throws std::runtime_error that says what is wrong and where, also for a text
/// with a character that the files' code page does not have.
QcfDocument DocumentOfJson(const Json& json);

}  // namespace marlinset

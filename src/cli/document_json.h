// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/json.h"
#include "files/qcf_document.h"

namespace marlinset {

/// A configuration as JSON: its fields by their names, in file order. "identification" holds model, title and
/// version of the tool that wrote it (as hexadecimal when it is written in another way), "tail" the bytes
/// behind the configuration as hexadecimal, if there are any. A parameter whose value loads as another number
/// says so in "loaded as", null when it can't be loaded.
Json DocumentJson(const QcfDocument& document);

/// Reads JSON text. Throws std::runtime_error for what is none, for a key that stands twice in an object, of
/// which readers take one or the other, and for objects of more keys than a configuration could have.
Json ParseJson(const std::string& text);

/// Back again, byte for byte. Throws std::runtime_error with what is wrong where, also for a text
/// with a character that the code page of the files does not have.
QcfDocument DocumentOfJson(const Json& json);

}  // namespace marlinset

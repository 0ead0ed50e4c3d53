// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/cli/json.h"
#include "files/qcf_document.h"

namespace marlinset {

/// A configuration as JSON: its fields by their names, in file order. "identification" holds model, title and
/// version of the tool that wrote it (as hexadecimal when it is written in another way), "tail" the bytes
/// behind the configuration as hexadecimal, if there are any. A parameter whose value loads as another number
/// says so in "loaded as", null when it can't be loaded.
Json DocumentJson(const QcfDocument& document);

/// Back again, byte for byte. Throws std::runtime_error with what is wrong where.
QcfDocument DocumentOfJson(const Json& json);

}  // namespace marlinset

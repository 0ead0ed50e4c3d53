// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string_view>

#include "cli/json.h"

namespace marlinset {

class Tool;

/// A variable of the tool by its name, "Caption" of the main window, or a timer's state; nothing if there is
/// none of that name.
std::optional<Json> VariableJson(const Tool& tool, std::string_view name);

/// The rows of a reference array or a working array, with the database's column names as keys; nothing if
/// there is no array of that name.
std::optional<Json> RecordsJson(const Tool& tool, std::string_view name);

/// Sets one field of a row of CharWindows or SystemParameters. Returns what is wrong, empty on success.
std::string SetRowField(Tool& tool, std::string_view array, int index, std::string_view field,
                        const Json& value);

}  // namespace marlinset

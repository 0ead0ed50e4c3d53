// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <nlohmann/json.hpp>

namespace marlinset {

/// A JSON value whose keys keep their order.
using Json = nlohmann::ordered_json;

}  // namespace marlinset

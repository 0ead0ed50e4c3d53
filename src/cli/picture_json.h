// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "cli/json.h"

namespace marlinset {

struct PicturePlan;
struct Remark;

/// The picture and the windows in it, as the script action `windows` answers. A standard without a picture
/// has null there, and `why`.
Json WindowsJson(const PicturePlan& plan);

/// An array of remarks, as `remarks` and `check --json` answer them.
Json RemarksJson(const std::vector<Remark>& remarks);

}  // namespace marlinset

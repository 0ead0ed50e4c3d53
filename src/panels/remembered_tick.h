// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

class MenuItem;
struct Platform;
struct Setting;

/// Makes a menu entry a tick that each click turns over, and that the next run finds as it is.
void RememberTick(Platform& platform, MenuItem& item, const Setting& setting);

}  // namespace marlinset

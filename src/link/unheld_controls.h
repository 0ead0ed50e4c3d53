// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "link/command_table.h"
#include "link/send_steps.h"

namespace marlinset {

/// The controls whose values a message carries and the unit does not hold, as far as a screen can mark them.
/// `held` are the bytes of the last message for the same thing; empty if there is none, which makes it all of
/// the message's controls. A parameter's control is its spin, also while the list does not show it.
std::vector<ControlName> UnheldControls(CommandId id, int row, std::span<const std::uint8_t> message,
                                        std::span<const std::uint8_t> held);

}  // namespace marlinset

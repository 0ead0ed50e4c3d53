// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <csignal>

namespace marlinset {

/// Signals that ask a program to end: Ctrl-C, kill, a terminal or a session that has gone.
inline constexpr std::array<int, 3> kEndSignals{SIGINT, SIGTERM, SIGHUP};

}  // namespace marlinset

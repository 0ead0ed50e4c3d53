// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

/// Runs `body`, then `cleanup` however `body` ends; passes a failure of `body` on to the caller.
template <class Body, class Cleanup>
void Finally(const Body& body, const Cleanup& cleanup) {
  try {
    body();
  } catch (...) {
    cleanup();
    throw;
  }
  cleanup();
}

}  // namespace marlinset

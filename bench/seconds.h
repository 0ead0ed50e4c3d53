// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>

namespace marlinset {

/// How long a piece of work takes.
template <class Work>
double SecondsOf(const Work& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

}  // namespace marlinset

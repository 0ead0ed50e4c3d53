// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>

#include "tests/storm/storm.h"

namespace marlinset {

/// PROGRAM [RUNS [FIRST_SEED]]: many random runs of a tool, and all boxes that came up, with their counts.
/// One run alone is traced.
inline int RunStorms(int argc, char** argv, StormReport (*run)(unsigned seed, bool trace)) {
  const int runs = argc > 1 ? std::atoi(argv[1]) : 10000;
  const unsigned first = argc > 2 ? static_cast<unsigned>(std::strtoul(argv[2], nullptr, 10)) : 1;
  std::map<std::string, int> boxes;
  int faulty = 0, steps = 0, closed = 0;
  for (unsigned seed = first; seed < first + static_cast<unsigned>(runs); ++seed) {
    const StormReport report = run(seed, runs == 1);
    for (const auto& [text, count] : report.boxes) boxes[text] += count;
    for (const std::string& fault : report.faults) std::printf("seed %u: %s\n", seed, fault.c_str());
    faulty += report.faults.empty() ? 0 : 1;
    steps += report.steps;
    closed += report.closed ? 1 : 0;
    std::fflush(stdout);
  }
  for (const auto& [text, count] : boxes) std::printf("%8d  %s\n", count, text.c_str());
  std::printf("%d runs, %d steps, %d ended by the operator, %d with faults\n", runs, steps, closed, faulty);
  return faulty == 0 ? 0 : 1;
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
// What the tool costs while nobody touches it.

#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <optional>

#include "bench/bench_tool.h"
#include "bench/virtual_unit.h"
#include "gui/main_window.h"

namespace marlinset {
namespace {

/// Processor time of this process so far, in seconds.
double UsedSeconds() {
  rusage used{};
  getrusage(RUSAGE_SELF, &used);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
  };
  return seconds(used.ru_utime) + seconds(used.ru_stime);
}

/// Interactive mode for half a minute, six polls with their heartbeat; with the window or without.
void AtRest(benchmark::State& state) {
  constexpr int kMs = 30000;
  const bool withWindow = state.range(0) != 0;
  VirtualUnit unit;
  BenchTool tool(unit.Device());
  std::optional<MainWindow> window;
  if (withWindow) window.emplace(tool->form, WindowHooks{});
  tool->form.mnuInter.OperatorClick();
  if (!tool->form.InterTime.Enabled()) return state.SkipWithError("not interactive");
  tool->platform.pump.Pass(1000);
  double used = 0;
  for (auto step : state) {
    const double before = UsedSeconds();
    tool->platform.pump.Pass(kMs);
    used += UsedSeconds() - before;
  }
  if (!tool->form.mnuInter.Checked()) return state.SkipWithError("interactive mode was left");
  state.counters["percent_of_a_core"] = 100 * used / (1e-3 * kMs * static_cast<double>(state.iterations()));
}
BENCHMARK(AtRest)->Arg(0)->Arg(1)->ArgName("window")->Unit(benchmark::kSecond)->Iterations(1);

}  // namespace
}  // namespace marlinset

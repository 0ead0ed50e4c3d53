// SPDX-License-Identifier: GPL-3.0-or-later
// The list of the traffic: what it adds to a send while it is open, and what it takes to scroll it.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDeadlineTimer>
#include <QScrollBar>
#include <QTableView>
#include <memory>

#include "bench/bench_tool.h"
#include "bench/seconds.h"
#include "bench/virtual_unit.h"
#include "gui/main_window.h"
#include "gui/traffic_dock.h"

namespace marlinset {
namespace {

WindowHooks HooksOf(Tool& tool) {
  return {.held = &tool.held, .wholeSend = &tool.wholeSend, .traffic = &tool.trafficRules};
}

/// Until layout and painting of what came before are over.
void Rest() {
  constexpr int kRestMs = 150;
  const QDeadlineTimer end(kRestMs);
  while (!end.hasExpired()) QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
}

/// Whole sends at the real speed of the line, with the list open and closed in turns.
void SendBesideTraffic(benchmark::State& state) {
  VirtualUnit unit({"--model", "32", "--pace", "57600"});
  BenchTool tool(unit.Device());
  MainWindow window(tool->form, HooksOf(*tool));
  const auto send = [&](bool open) {
    if (tool->form.mnuTraffic.Checked() != open) tool->form.mnuTraffic.OperatorClick();
    Rest();
    return SecondsOf([&] { tool->form.bSConfig.OperatorClick(); });
  };
  double closed = 0;
  double open = 0;
  for (auto step : state) {
    closed += send(false);
    const double taken = send(true);
    if (tool->wholeSend.Result().end != SendEnd::kComplete) return state.SkipWithError("not complete");
    state.SetIterationTime(taken);
    open += taken;
  }
  state.counters["closed_ms"] = 1e3 * closed / static_cast<double>(state.iterations());
  state.counters["ratio"] = open / closed;
}
BENCHMARK(SendBesideTraffic)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(10);

/// One step of the wheel in a full list, until it is painted.
void TrafficScroll(benchmark::State& state) {
  BenchTool tool;
  MainWindow window(tool->form, HooksOf(*tool));
  tool->form.mnuTraffic.OperatorClick();
  window.resize(1500, 1400);
  Rest();
  const std::uint8_t noise = 77;
  for (std::size_t i = 0; i < Traffic::kMostRows; ++i)
    tool->communications.BytesRead.Emit(std::span(&noise, 1));
  auto& dock = *window.findChild<TrafficDock*>();
  dock.Model().Update();
  QScrollBar& bar = *dock.findChild<QTableView*>()->verticalScrollBar();
  Rest();
  int value = 0;
  double seconds = 0;
  for (auto step : state) {
    const double taken = SecondsOf([&] {
      bar.setValue(value += 3);
      QCoreApplication::processEvents();
    });
    state.SetIterationTime(taken);
    seconds += taken;
  }
  state.counters["step_us"] = 1e6 * seconds / static_cast<double>(state.iterations());
  state.counters["filter_us"] = 1e6 * SecondsOf([&] { dock.Model().SetFilter({.text = "4d"}); });
}
BENCHMARK(TrafficScroll)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(500);

}  // namespace
}  // namespace marlinset

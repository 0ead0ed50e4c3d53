// SPDX-License-Identifier: GPL-3.0-or-later
// Loading and saving the shipped default configuration, disk left out, what the history adds to an action,
// and showing many files.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "bench/bench_tool.h"
#include "bench/program.h"
#include "bench/seconds.h"
#include "files/panel_document.h"
#include "files/panel_loader.h"
#include "files/qcf_reader.h"
#include "files/qcf_writer.h"
#include "platform/posix/local_files.h"

namespace marlinset {
namespace {

constexpr int kFiles = 1000;

std::string DefaultFile() {
  return ProgramPath("System Default Video.qcf");
}

/// Measures `work` against `least`, the part of it that no tool can do without; the two take turns.
void Compare(benchmark::State& state, const std::function<void()>& work, const std::function<void()>& least) {
  double leastSeconds = 0;
  double seconds = 0;
  for (auto step : state) {
    leastSeconds += SecondsOf(least);
    const double taken = SecondsOf(work);
    state.SetIterationTime(taken);
    seconds += taken;
  }
  state.counters["ratio"] = seconds / leastSeconds;
}

/// Bytes to panels, merged with three tables of the reference database; against bytes to values.
void LoadFile(benchmark::State& state) {
  BenchTool tool;
  const std::vector<std::uint8_t> bytes = LocalFiles().OpenForReading(DefaultFile())->ReadAll();
  PanelLoader loader(tool->platform, tool->variables, tool->form, tool->panels);
  const auto load = [&] { benchmark::DoNotOptimize(loader.Load(bytes)); };
  Compare(state, load, [&] { benchmark::DoNotOptimize(ReadDocument(bytes)); });
}
BENCHMARK(LoadFile)->UseManualTime()->Unit(benchmark::kMicrosecond);

/// Panels to bytes, against values to bytes.
void SaveFile(benchmark::State& state) {
  BenchTool tool;
  const QcfDocument document = DocumentOfPanels(tool->variables, tool->form);
  const auto save = [&] {
    benchmark::DoNotOptimize(WriteDocument(DocumentOfPanels(tool->variables, tool->form)));
  };
  Compare(state, save, [&] { benchmark::DoNotOptimize(WriteDocument(document)); });
}
BENCHMARK(SaveFile)->UseManualTime()->Unit(benchmark::kMicrosecond);

/// What the history adds to an action, here New and a spin's step in a setup of 300 parameters: the action as
/// the operator's own, which becomes an entry, less the same action without a handler around it.
void HistoryEntry(benchmark::State& state, const std::function<void(Tool&, bool byOperator)>& action) {
  constexpr int kParameters = 300;
  BenchTool tool;
  while (UBound(tool->variables.SystemParameters) + 1 < kParameters) {
    const auto number = static_cast<std::int16_t>(UBound(tool->variables.SystemParameters));
    tool->variables.SystemParameters.push_back(
        {.Class = 30, .Parameter = number, .Description = "An added parameter, " + std::to_string(number)});
  }
  tool->parameterList.bClass_Click();
  tool->history.Begin();
  std::size_t bytes = 0;
  for (auto step : state) {
    const double all = SecondsOf([&] { action(*tool, true); });
    bytes = std::max(bytes, tool->history.LatestSize());
    const double alone = SecondsOf([&] { action(*tool, false); });
    state.SetIterationTime(std::max(0.0, all - alone));
  }
  state.counters["bytes"] = static_cast<double>(bytes);
}

void HistoryOfStep(benchmark::State& state) {
  int value = 0;
  HistoryEntry(state, [&value](Tool& tool, bool byOperator) {
    value = 1 - value;
    if (byOperator) {
      tool.form.UDDur.OperatorSpin(value);
    } else {
      tool.form.UDDur.SetValue(value);
    }
  });
}
BENCHMARK(HistoryOfStep)->UseManualTime()->Unit(benchmark::kMicrosecond);

/// Between two commands the list is sorted the other way, so that all of its rows change.
void HistoryOfNew(benchmark::State& state) {
  HistoryEntry(state, [](Tool& tool, bool byOperator) {
    tool.form.bDesc.Press();
    tool.variables.ConfigSaved = true;  // or New would ask
    if (byOperator) {
      tool.form.mnuNew.OperatorClick();
    } else {
      tool.form.mnuNew.Press();
    }
  });
}
BENCHMARK(HistoryOfNew)->UseManualTime()->Unit(benchmark::kMicrosecond);

/// `show --json` of many files in one call.
void ShowFiles(benchmark::State& state) {
  std::vector<std::string> arguments(kFiles + 2, DefaultFile());
  arguments[0] = "show";
  arguments[1] = "--json";
  for (auto _ : state) Program("marlinset-cli", arguments).Finish();
}
BENCHMARK(ShowFiles)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace marlinset

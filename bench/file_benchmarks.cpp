// SPDX-License-Identifier: GPL-3.0-or-later
// Loading and saving the shipped default configuration, disk left out, and showing many files.

#include <benchmark/benchmark.h>

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

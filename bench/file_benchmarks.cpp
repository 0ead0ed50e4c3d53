// SPDX-License-Identifier: GPL-3.0-or-later
// Loading and saving the shipped default configuration, disk left out, and showing many files.

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "bench/bench_tool.h"
#include "bench/program.h"
#include "files/panel_document.h"
#include "files/panel_loader.h"
#include "files/qcf_writer.h"
#include "platform/local_files.h"

namespace marlinset {
namespace {

constexpr int kFiles = 1000;

std::string DefaultFile() {
  return ProgramPath("System Default Video.qcf");
}

/// Bytes to panels, merged with the reference database, which is opened for each of the three merges.
void LoadFile(benchmark::State& state) {
  BenchTool tool;
  const std::vector<std::uint8_t> bytes = LocalFiles().OpenForReading(DefaultFile())->ReadAll();
  PanelLoader loader(tool->platform, tool->variables, tool->form, tool->panels);
  for (auto _ : state) {
    QcfReader reader(bytes);
    loader.LoadPanels(reader);
    loader.UnloadParameterRows();
    loader.TakeParameters(PanelLoader::ReadParameters(reader));
  }
}
BENCHMARK(LoadFile)->Unit(benchmark::kMicrosecond);

/// Bytes to values, without panels.
void ReadFile(benchmark::State& state) {
  const std::vector<std::uint8_t> bytes = LocalFiles().OpenForReading(DefaultFile())->ReadAll();
  for (auto _ : state) benchmark::DoNotOptimize(ReadDocument(bytes));
}
BENCHMARK(ReadFile)->Unit(benchmark::kMicrosecond);

/// Panels to bytes.
void SaveFile(benchmark::State& state) {
  BenchTool tool;
  for (auto _ : state) {
    benchmark::DoNotOptimize(WriteDocument(DocumentOfPanels(tool->variables, tool->form)));
  }
}
BENCHMARK(SaveFile)->Unit(benchmark::kMicrosecond);

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

// SPDX-License-Identifier: GPL-3.0-or-later
// Speed of the tool against what the line and the system allow. Each measurement reports the ratio as a
// counter; bare times say more about the machine than about the tool.

#include <benchmark/benchmark.h>

#include <QTemporaryDir>
#include <array>
#include <vector>

#include "bench/bare_line.h"
#include "bench/bench_tool.h"
#include "bench/program.h"
#include "bench/seconds.h"
#include "bench/virtual_unit.h"
#include "gui/widgets/application.h"
#include "wire/frame.h"

namespace marlinset {
namespace {

constexpr int kBitsPerSecond = 57600;
constexpr double kBitsPerByte = 10;
const std::array<std::uint8_t, 3> kVitcOnFields{1, 5, 46};

const QStringList kPacedUnit{"--model", "32", "--pace", QString::number(kBitsPerSecond)};

double WireSeconds(std::size_t bytes) {
  return static_cast<double>(bytes) * kBitsPerByte / kBitsPerSecond;
}

// The part of a send that is answered by one byte, in a bare loop: seconds for a second of its bytes on the
// wire. What is beyond 1 is the virtual unit's and the system's, not the tool's.
double BareRatio(const std::vector<std::vector<std::uint8_t>>& messages) {
  VirtualUnit unit(kPacedUnit, true);
  const BareLine line(unit.Device());
  const double seconds = SecondsOf([&] {
    for (const auto& message : messages) line.Exchange(message);
  });
  return seconds / WireSeconds(unit.TakeLineBytes());
}

// The whole configuration over a line of the real speed, against the time that its bytes are on the wire.
void WholeSend(benchmark::State& state) {
  VirtualUnit unit(kPacedUnit, true);
  BenchTool tool(unit.Device());
  std::vector<std::vector<std::uint8_t>> settings;
  tool->commands.MessageSent.Connect([&](const SentMessage& message) {
    constexpr int kLinkAddress = 15;
    constexpr int kSetParameter = 192;
    if (message.fields[0] != kLinkAddress || message.fields[2] == kSetParameter)
      settings.push_back(tool->variables.TxBytes);
  });
  unit.TakeLineBytes();
  double seconds = 0;
  for (auto step : state) {
    const double taken = SecondsOf([&] { tool->form.bSConfig.Press(); });
    if (tool->wholeSend.Result().end != SendEnd::kComplete) return state.SkipWithError("not complete");
    state.SetIterationTime(taken);
    seconds += taken;
  }
  const std::size_t bytes = unit.TakeLineBytes();
  state.counters["messages"] = tool->wholeSend.Result().messages;
  state.counters["bytes"] = static_cast<double>(bytes) / static_cast<double>(state.iterations());
  state.counters["ratio"] = seconds / WireSeconds(bytes);
  state.counters["bare_ratio"] = BareRatio(settings);
}
BENCHMARK(WholeSend)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(10);

// One acknowledged setting over a line without a speed, against a bare loop of write, poll and read. The two
// take turns, each with a unit of its own, so that whatever else the machine does hits both.
void Exchange(benchmark::State& state) {
  VirtualUnit bareUnit;
  VirtualUnit toolUnit;
  const BareLine bare(bareUnit.Device());
  BenchTool tool(toolUnit.Device());
  const std::vector<std::uint8_t> message = EncodeFrame(kVitcOnFields);
  double bareSeconds = 0;
  double toolSeconds = 0;
  for (auto step : state) {
    bareSeconds += SecondsOf([&] { benchmark::DoNotOptimize(bare.Exchange(message)); });
    bool acknowledged = false;
    const double taken = SecondsOf([&] {
      tool->variables.PacketFields.assign(kVitcOnFields.begin(), kVitcOnFields.end());
      acknowledged = tool->communications.AckWait();
    });
    if (!acknowledged) return state.SkipWithError("not acknowledged");
    state.SetIterationTime(taken);
    toolSeconds += taken;
  }
  state.counters["bare_us"] = 1e6 * bareSeconds / static_cast<double>(state.iterations());
  state.counters["ratio"] = toolSeconds / bareSeconds;
}
BENCHMARK(Exchange)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(5000);

// The tool from nothing to ready and gone again, against the same program when it only prints its version:
// what is left is reading the database and filling the panels.
void StartWithoutWindow(benchmark::State& state) {
  const QTemporaryDir folder;
  const std::string settings = folder.filePath("settings.ini").toStdString();
  double versionSeconds = 0;
  double startSeconds = 0;
  for (auto step : state) {
    versionSeconds += SecondsOf([] { Program("marlinset-cli", {"--version"}).Finish(); });
    const double taken = SecondsOf([&] {
      Program("marlinset-cli", {"script", "--clock", "virtual", "--settings", settings}).Finish();
    });
    state.SetIterationTime(taken);
    startSeconds += taken;
  }
  state.counters["version_ms"] = 1e3 * versionSeconds / static_cast<double>(state.iterations());
  state.counters["ratio"] = startSeconds / versionSeconds;
}
BENCHMARK(StartWithoutWindow)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(50);

}  // namespace
}  // namespace marlinset

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const marlinset::Application application(argc, argv);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}

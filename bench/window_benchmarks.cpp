// SPDX-License-Identifier: GPL-3.0-or-later
// The tool with its window against a program that shows an empty one: how long until it is up, how much
// memory.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <QTemporaryDir>
#include <cstdlib>
#include <optional>
#include <stdexcept>
#include <string>

#include "bench/program.h"
#include "bench/seconds.h"

namespace marlinset {
namespace {

/// The far end of a line that only hears. Both programs speak when their window is up.
class Ear {
 public:
  Ear() : line_(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
    if (line_ < 0 || grantpt(line_) != 0 || unlockpt(line_) != 0)
      throw std::runtime_error("no pseudo terminal");
    device_ = ptsname(line_);
    near_ = open(device_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);  // without it the line counts as gone
  }
  ~Ear() {
    close(near_);
    close(line_);
  }
  Ear(const Ear&) = delete;
  Ear& operator=(const Ear&) = delete;

  const std::string& Device() const { return device_; }
  void WaitForWord() const {
    constexpr int kLimitMs = 20000;
    pollfd event{line_, POLLIN, 0};
    if (poll(&event, 1, kLimitMs) != 1) throw std::runtime_error("no window came up");
  }

 private:
  int line_;
  int near_ = -1;
  std::string device_;
};

struct StartCost {
  double seconds = 0;
  double mib = 0;
};

/// Adds what one start of a program costs until it speaks.
void AddStart(StartCost& sum, const char* name, std::vector<std::string> arguments) {
  const Ear ear;
  arguments.push_back(ear.Device());
  std::optional<Program> program;
  sum.seconds += SecondsOf([&] {
    program.emplace(name, arguments);
    ear.WaitForWord();
  });
  constexpr double kKibInMib = 1024;
  sum.mib += static_cast<double>(program->KillForPeakKib()) / kKibInMib;
}

/// From nothing to the first byte of a send, which starts behind the window; the two take turns.
void StartWithWindow(benchmark::State& state) {
  const QTemporaryDir folder;
  const std::string settings = folder.filePath("settings.ini").toStdString();
  StartCost bare;
  StartCost tool;
  for (auto step : state) {
    AddStart(bare, "marlinset-bare-window", {});
    const double before = tool.seconds;
    AddStart(tool, "marlinset", {"--send", "--settings", settings, "--com1"});
    state.SetIterationTime(tool.seconds - before);
  }
  const auto count = static_cast<double>(state.iterations());
  state.counters["bare_ms"] = 1e3 * bare.seconds / count;
  state.counters["ratio"] = tool.seconds / bare.seconds;
  state.counters["mib"] = tool.mib / count;
  state.counters["memory_ratio"] = tool.mib / bare.mib;
}
BENCHMARK(StartWithWindow)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(20);

}  // namespace
}  // namespace marlinset

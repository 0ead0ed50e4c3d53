// SPDX-License-Identifier: GPL-3.0-or-later
// Loading and saving the shipped default configuration, disk left out, and showing many files.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

#include <QCoreApplication>
#include <QTemporaryDir>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/bench_tool.h"
#include "files/panel_document.h"
#include "files/panel_loader.h"
#include "files/qcf_writer.h"
#include "platform/local_files.h"

extern char** environ;

namespace marlinset {
namespace {

constexpr int kFiles = 1000;

std::string ProgramFolder() {
  return QCoreApplication::applicationDirPath().toStdString() + "/";
}

std::string DefaultFile() {
  return ProgramFolder() + "System Default Video.qcf";
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
  std::vector<std::string> words(kFiles + 3, DefaultFile());
  words[0] = ProgramFolder() + "marlinset-cli";
  words[1] = "show";
  words[2] = "--json";
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t toNowhere;
  posix_spawn_file_actions_init(&toNowhere);
  posix_spawn_file_actions_addopen(&toNowhere, 1, "/dev/null", O_WRONLY, 0);
  for (auto _ : state) {
    pid_t child = 0;
    int status = 0;
    if (posix_spawn(&child, arguments[0], &toNowhere, nullptr, arguments.data(), environ) != 0 ||
        waitpid(child, &status, 0) != child || status != 0) {
      throw std::runtime_error("show failed");
    }
  }
  posix_spawn_file_actions_destroy(&toNowhere);
}
BENCHMARK(ShowFiles)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <iterator>
#include <random>
#include <string>

#include "tests/support/temp_folder.h"
#include "tests/support/tool_rig.h"

namespace marlinset {

/// A model that the tool does not know: once a send it reports that the identification means nothing.
inline constexpr int kUnknownModel = 77;

/// Chance, which follows from the seed alone; the tool with its unit; and a folder for files and program, so
/// that nothing is saved outside it.
class World {
 public:
  World(unsigned seed, bool trace) : random_(seed), trace_(trace), rig(RandomUnit(), FilledFolder()) {}

  /// From 0 to `count` - 1.
  int Pick(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
  bool OneIn(int count) { return Pick(count) == 0; }
  template <class List>
  auto& PickOf(List& list) {
    return *std::next(std::begin(list), Pick(static_cast<int>(std::size(list))));
  }

  /// Notes what happens next; prints it if the run is traced.
  void Trace(const std::string& what) {
    last_ = what;
    if (trace_) std::printf("%8lld  %s\n", static_cast<long long>(rig.pump.Now()), what.c_str());
  }
  const std::string& Last() const { return last_; }

 private:
  UnitSettings RandomUnit() {
    constexpr std::array kModels{kModelHd7340, kModelHd7340Old, kModelHdSd7340, kModelHd7340Q, kUnknownModel};
    return {.model = PickOf(kModels),
            .standard = Pick(10),
            .manual = OneIn(2),
            .video = !OneIn(4),
            .ackTime = std::chrono::milliseconds{Pick(60)}};
  }

  const std::string& FilledFolder() {
    for (const char* file : {"shotsys.mdb", "System Default Video.qcf"})
      std::filesystem::copy_file(std::string(SHIPPED_DATABASE_FOLDER) + file, folder.File(file));
    return folder.Path();
  }

  std::mt19937 random_;
  bool trace_;
  std::string last_;

 public:
  TempFolder folder;
  ToolRig rig;
};

/// Changes line or unit: answers lost, late, doubled, damaged; noise, floods, local mode; cable pulled out.
void ChangeWeather(World& world);
/// Repairs line and unit, and supplies video.
void MendWeather(World& world);

/// An operator does anything to any control of the window on top, whatever state it is in.
void Operate(World& world);
/// An operator changes a setting.
void Edit(World& world);
/// Undoes some of what was done, or does it again.
void GoBack(World& world);
/// Uses a button or menu entry of the link.
void UseLink(World& world);
/// Uses a file command; files are sound, damaged, empty or missing, and the disk may be full.
void UseFiles(World& world);

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include <functional>

#include "tests/storm/world.h"
#include "wire/frame.h"

namespace marlinset {
namespace {

/// Random bytes, or a sound frame with random content.
void Noise(World& world) {
  Bytes bytes(static_cast<std::size_t>(1 + world.Pick(24)));
  for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(world.Pick(world.OneIn(2) ? 256 : 8));
  world.rig.line.Inject(world.OneIn(2) ? bytes : EncodeFrame(bytes), world.rig.pump.Now() + world.Pick(50));
}

}  // namespace

void ChangeWeather(World& world) {
  UnitLine& line = world.rig.line;
  UnitModel& unit = line.Unit();
  UnitFaults& faults = unit.Faults();
  const LineTime now = std::chrono::milliseconds{world.rig.pump.Now()};
  const struct {
    const char* name;
    std::function<void()> change;
  } changes[] = {
      {"lost answers", [&] { faults.drop += world.Pick(4); }},
      {"refused settings", [&] { faults.nak += world.Pick(4); }},
      {"damaged answers", [&] { faults.corrupt += world.Pick(3); }},
      {"doubled answers", [&] { faults.twice += world.Pick(4); }},
      {"late answers",
       [&] { faults.lateAcks = std::chrono::milliseconds{world.OneIn(2) ? 0 : world.Pick(300)}; }},
      {"late frames",
       [&] { faults.lateFrames = std::chrono::milliseconds{world.OneIn(2) ? 0 : world.Pick(300)}; }},
      {"silence", [&] { faults.mute = world.OneIn(2); }},
      {"pieces", [&] { faults.pieceBytes = static_cast<std::size_t>(world.Pick(4)); }},
      {"local mode", [&] { unit.SetLocal(world.OneIn(2)); }},
      {"standard", [&] { unit.SetStandard(world.Pick(10)); }},
      {"manual selection", [&] { unit.SetManual(world.OneIn(2)); }},
      {"video", [&] { unit.SetVideo(world.OneIn(2)); }},
      {"broadcast", [&] { unit.StartBroadcast(now); }},
      {"flood", [&] { unit.Flood(static_cast<std::size_t>(world.Pick(3000)), now); }},
      {"noise", [&] { Noise(world); }},
      {"event", [&] { line.RaiseEvent(world.Pick(1012)); }},
      {"unplugged", [&] { line.Vanish(); }},
      {"no permission", [&] { line.RefuseOpen(world.OneIn(2) ? "Permission denied" : ""); }},
      {"pace", [&] { line.SetPace(world.OneIn(2) ? 57600 : 0); }},
      {"mended", [&] { MendWeather(world); }},
  };
  const auto& one = world.PickOf(changes);
  world.Trace(one.name);
  one.change();
  line.Settle();
}

void MendWeather(World& world) {
  UnitModel& unit = world.rig.line.Unit();
  unit.Faults() = {};
  unit.SetLocal(false);
  unit.SetVideo(true);
  world.rig.line.SetPace(0);
  world.rig.line.RefuseOpen("");
  world.rig.line.Return();
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/storm/weather.h"

#include <functional>

#include "link/frame.h"
#include "tests/storm/world.h"

namespace marlinset {

void Weather::Change() {
  UnitLine& line = world_.rig.line;
  UnitModel& unit = line.Unit();
  UnitFaults& faults = unit.Faults();
  const LineTime now = std::chrono::milliseconds{world_.rig.pump.Now()};
  const struct {
    const char* name;
    std::function<void()> change;
  } changes[] = {
      {"lost answers", [&] { faults.drop += world_.Pick(4); }},
      {"refused settings", [&] { faults.nak += world_.Pick(4); }},
      {"damaged answers", [&] { faults.corrupt += world_.Pick(3); }},
      {"doubled answers", [&] { faults.twice += world_.Pick(4); }},
      {"late answers",
       [&] { faults.lateAcks = std::chrono::milliseconds{world_.OneIn(2) ? 0 : world_.Pick(300)}; }},
      {"late frames",
       [&] { faults.lateFrames = std::chrono::milliseconds{world_.OneIn(2) ? 0 : world_.Pick(300)}; }},
      {"silence", [&] { faults.mute = world_.OneIn(2); }},
      {"pieces", [&] { faults.pieceBytes = static_cast<std::size_t>(world_.Pick(4)); }},
      {"local mode", [&] { unit.SetLocal(world_.OneIn(2)); }},
      {"standard", [&] { unit.SetStandard(world_.Pick(10)); }},
      {"manual selection", [&] { unit.SetManual(world_.OneIn(2)); }},
      {"video", [&] { unit.SetVideo(world_.OneIn(2)); }},
      {"broadcast", [&] { unit.StartBroadcast(now); }},
      {"flood", [&] { unit.Flood(static_cast<std::size_t>(world_.Pick(3000)), now); }},
      {"noise", [&] { Noise(); }},
      {"event", [&] { line.RaiseEvent(world_.Pick(1012)); }},
      {"unplugged", [&] { line.Vanish(); }},
      {"no permission", [&] { line.RefuseOpen(world_.OneIn(2) ? "Permission denied" : ""); }},
      {"pace", [&] { line.SetPace(world_.OneIn(2) ? 57600 : 0); }},
      {"mended", [&] { Mend(); }},
  };
  const auto& one = world_.PickOf(changes);
  world_.Trace(one.name);
  one.change();
  line.Settle();
}

/// Bytes that no unit sends, or a sound frame with any content.
void Weather::Noise() {
  Bytes bytes(static_cast<std::size_t>(1 + world_.Pick(24)));
  for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(world_.Pick(world_.OneIn(2) ? 256 : 8));
  world_.rig.line.Inject(world_.OneIn(2) ? bytes : EncodeFrame(bytes),
                         world_.rig.pump.Now() + world_.Pick(50));
}

void Weather::Mend() {
  UnitModel& unit = world_.rig.line.Unit();
  unit.Faults() = {};
  unit.SetLocal(false);
  world_.rig.line.RefuseOpen("");
  world_.rig.line.Return();
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

class World;

/// What happens to line and unit: replies lost, late, doubled, damaged or in pieces, noise, floods, local
/// mode, another standard, the cable pulled out.
class Weather {
 public:
  explicit Weather(World& world) : world_(world) {}
  void Change();
  /// The line is sound again, the unit listens.
  void Mend();

 private:
  void Noise();

  World& world_;
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "picture/geometry.h"

namespace marlinset {

class FrmStart;
class WindowRules;
struct Platform;
struct Variables;

/// The picture of the windows: whether it is shown, what it shows and what lies behind it. All of that is
/// remembered from one run to the next.
class PictureRules {
 public:
  PictureRules(Platform& platform, const Variables& variables, FrmStart& form, WindowRules& windows);

  /// What the picture shows now.
  PicturePlan Plan() const;
  /// How far the window of a row can be moved; nothing if it cannot. See MoveLimitsOf.
  std::optional<MoveLimits> LimitsOf(int row) const;
  /// The operator moves the window of a row: see WindowRules::Move.
  void Move(int row, int left, int top);

  /// File of the still behind the windows, empty for none.
  const std::string& Still() const { return still_; }
  /// Which files can be chosen as a still, as a file dialog filters them: "*.png *.jpg".
  std::string stillPatterns = "*";
  /// Shows that still, no still for an empty name. If it throws, the one before stays.
  std::function<void(const std::string& file)> showStill;

 private:
  void AskForStill();
  void TakeStill(const std::string& file);

  Platform& platform_;
  const Variables& vars_;
  FrmStart& form_;
  WindowRules& windows_;
  std::string still_;
};

}  // namespace marlinset

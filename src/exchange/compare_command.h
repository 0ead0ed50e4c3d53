// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "exchange/comparison.h"
#include "exchange/take_over.h"

namespace marlinset {

class FrmStart;
class RuntimeError;
struct Platform;
struct Variables;

/// Values from outside, offered to the operator beside those of the panels.
struct Offer {
  std::string title;    ///< of the window: "Compare with stage4.qcf"
  std::string action;   ///< what the history calls it when some are taken over
  bool ticked = false;  ///< whether all of them are chosen at first
  /// What differs now. Throws RuntimeError if nothing can be compared, for example while a file is being
  /// loaded.
  std::function<std::vector<ComparedValue>()> differences;
};

/// File > Compare: another file beside the panels, and values of it for the panels. Connects to `mnuCompare`.
class CompareCommand {
 public:
  CompareCommand(Platform& platform, const Variables& variables, FrmStart& form, const Comparison& comparison,
                 TakeOver& takeOver);

  /// Compares with this file. Informs the operator if it cannot be compared; then nothing else is shown.
  void Open(const std::string& path);
  /// The operator takes over these values of an offer, as they were shown. If an offered value has become
  /// another one since, it takes over none and says so.
  void Take(const Offer& offer, const std::vector<NewValue>& shown);

  /// Shows an offer in place of the one before. Without a window nobody sees it.
  std::function<void(const Offer& offer)> show;

 private:
  void Ask();
  void Tell(const RuntimeError& failure) const;

  std::string folder_;  ///< of the file last chosen

  Platform& platform_;
  const Variables& vars_;
  FrmStart& form_;
  const Comparison& comparison_;
  TakeOver& takeOver_;
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "files/panel_loader.h"
#include "files/qcf_document.h"

namespace marlinset {

class FrmStart;
struct Platform;
struct Variables;

/// Panels that nobody sees, with all rules behind them, to find out what a load of a file would give. They
/// have no line, show no box, keep no setting and open no file of their own.
///
/// They hold what a load leaves alone (operating mode, standard, program output, down converter) as the
/// panels have it, and everything else as a new tool has it, so that what a file gives does not depend on how
/// much of it has been taken over already.
class QuietPanels {
 public:
  /// `platform` lends reference database and operating system.
  QuietPanels(const Platform& platform, const Variables& variables, const FrmStart& form);
  ~QuietPanels();
  QuietPanels(const QuietPanels&) = delete;
  QuietPanels& operator=(const QuietPanels&) = delete;

  /// Selects a standard, the first one if the list lacks it. Which defaults a load begins with depends on the
  /// standard before it.
  void SelectStandard(const std::string& standard);
  /// Loads a file under the present operating mode. Ends as PanelLoader::Load does.
  LoadOutcome Load(std::span<const std::uint8_t> bytes);
  /// What the panels hold now.
  QcfDocument Document() const;

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <span>

#include "link/traffic.h"

namespace marlinset {

class FrmStart;
struct Platform;
struct Variables;

/// The traffic on the line: whether it is shown, which is remembered from one run to the next, and how it is
/// saved. Connects to `mnuTraffic`.
class TrafficRules {
 public:
  enum class Format { kText, kCsv };

  TrafficRules(Platform& platform, const Variables& variables, FrmStart& form, Communications& communications,
               SettingCommands& commands);

  /// A record that begins now. It must not outlive the tool.
  std::unique_ptr<Traffic> Record() const;
  /// Asks the operator for a file and writes the rows there, below a line with the heads of the columns: as
  /// text with tabs between them, or as CSV.
  void Save(std::span<const Traffic::Row> rows, Format format);

 private:
  Platform& platform_;
  const Variables& vars_;
  FrmStart& form_;
  Communications& comms_;
  SettingCommands& commands_;
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "link/command_table.h"

namespace marlinset {

class MSComm;
struct Platform;

/// Asks the unit behind a line for its model and firmware, past the tool's own port, status bar and state:
/// the operator wants to know who is there, and nothing else may change.
class UnitProbe {
 public:
  /// How often a query is sent, and how long each time waits for the reply.
  static constexpr int kTries = 2;
  static constexpr int kReplyMs = 500;

  explicit UnitProbe(Platform& platform) : platform_(platform) {}

  /// Opens a closed line, asks, and closes it again. Returns what there is to say: "HD7340Q, firmware
  /// MARLIN40 020E00", or what went wrong. Pumps events meanwhile: besides the time of the opening, 2 s at
  /// most.
  std::string Identify(MSComm& line);
  /// Ends an identification that is under way.
  void Stop();

 private:
  using Bytes = std::vector<std::uint8_t>;
  std::string Ask(MSComm& line);
  std::optional<Bytes> Reply(MSComm& line, CommandId query, std::uint8_t command);
  std::string NoReplyText(const MSComm& line) const;

  Platform& platform_;
  MSComm* line_ = nullptr;  ///< of the identification under way
  bool stopped_ = false;
  Bytes heard_;  ///< since the first try of a query
};

}  // namespace marlinset

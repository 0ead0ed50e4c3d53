// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <string>
#include <vector>

namespace marlinset {

/// Lists the paths of the serial devices that are present, in no order. Pseudo terminals are never among
/// them. A look at all of them takes the system up to 20 ms, and a start or a menu asks for each port number
/// in turn: what was found less than half a second ago still stands.
class PresentPorts {
 public:
  const std::vector<std::string>& operator()();

 private:
  QElapsedTimer age_;
  std::vector<std::string> paths_;
};

}  // namespace marlinset

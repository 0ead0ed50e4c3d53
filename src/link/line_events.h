// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

class Communications;
class FrmStart;
class Ports;
struct Platform;

/// What the line reports on its own: bytes that arrived, a line that takes no more, a device that went away.
class LineEvents {
 public:
  LineEvents(Platform& platform, FrmStart& form, Communications& communications, Ports& ports);

 private:
  void Handle();

  Platform& platform_;
  FrmStart& form_;
  Communications& comms_;
  Ports& ports_;
};

}  // namespace marlinset

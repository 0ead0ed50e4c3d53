// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

class Communications;
class FrmStart;
class Ports;
struct Platform;

/// Handles what the line reports on its own: bytes have arrived, the line takes no more bytes, the device
/// went away.
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

// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/line_events.h"

#include "controls/guard.h"
#include "core/frm_start.h"
#include "link/communications.h"
#include "link/ports.h"
#include "platform/ms_comm.h"
#include "platform/platform.h"

namespace marlinset {

LineEvents::LineEvents(Platform& platform, FrmStart& form, Communications& communications, Ports& ports)
    : platform_(platform), form_(form), comms_(communications), ports_(ports) {
  platform_.ComP1.OnComm([this] { platform_.guard.Run([this] { Handle(); }); });
}

void LineEvents::Handle() {
  const int event = platform_.ComP1.CommEvent();
  if (event == kCommReceive) {
    form_.ShowTraffic(kGreen);
    comms_.ReceivePacket();
  } else if (event == kCommDeviceGone && comms_.LostInSend()) {
    ports_.DeviceLost();
  } else if (event == kCommCtsTimeout || event == kCommDeviceGone) {
    ports_.LineLost(event);
  }
}

}  // namespace marlinset

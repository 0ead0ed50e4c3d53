// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/line_device.h"

#include <sys/ioctl.h>

namespace marlinset {

bool SystemHoldsInput(int descriptor) {
  int waiting = 0;
  return ioctl(descriptor, FIONREAD, &waiting) == 0 && waiting > 0;
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/guard.h"

#include <algorithm>
#include <string>

#include "platform/dialogs.h"
#include "platform/runtime_error.h"

namespace marlinset {

bool Guard::Run(const std::function<void()>& body) {
  try {
    body();
    return true;
  } catch (const RuntimeError& error) {
    // What stands on further lines of a description tells what to do about it.
    const std::string& whole = error.Description();
    const std::size_t end = std::min(whole.find('\n'), whole.size());
    dialogs_.Show({.text = std::to_string(error.Number()) + "  " + whole.substr(0, end),
                   .remedy = whole.substr(std::min(end + 1, whole.size()))});
  } catch (const std::exception& error) {
    dialogs_.Tell(std::to_string(kErrInternal) + "  Internal error: " + error.what());
  }
  return false;
}

}  // namespace marlinset

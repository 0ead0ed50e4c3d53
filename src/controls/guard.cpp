// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/guard.h"

#include <string>

#include "base/finally.h"
#include "base/runtime_error.h"
#include "controls/dialogs.h"

namespace marlinset {

bool Guard::Execute(const Control* control, const std::function<void()>& body) {
  bool done = false;
  Begins.Emit(control);
  ++atWork_;
  Finally([&] { done = Contain(body); },
          [this] {
            --atWork_;
            Over.Emit();
          });
  Ended.Emit();
  return done;
}

bool Guard::Contain(const std::function<void()>& body) {
  try {
    body();
    return true;
  } catch (const RuntimeError& error) {
    dialogs_.Show(
        {.text = std::to_string(error.Number()) + "  " + error.Description(), .remedy = error.Remedy()});
  } catch (const std::exception& error) {
    dialogs_.Tell(std::to_string(kErrInternal) + "  Internal error: " + error.what());
  }
  return false;
}

}  // namespace marlinset

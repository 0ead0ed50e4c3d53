// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/program_title.h"

namespace marlinset {

std::string TitleOf(std::string_view configuration) {
  return std::string(kProgramTitle) + " - " + std::string(configuration);
}

}  // namespace marlinset

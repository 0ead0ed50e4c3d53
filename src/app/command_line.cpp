// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/command_line.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <sstream>

#include "base/printable.h"

namespace marlinset {

int EndOfOptions(const CLI::App& app, const CLI::ParseError& error, int wrongUse) {
  std::ostringstream asked;
  std::ostringstream wrong;
  const int status = app.exit(error, asked, wrong);
  std::fputs(asked.str().c_str(), stdout);
  std::fputs(PrintableLines(wrong.str()).c_str(), stderr);
  return status == 0 ? 0 : wrongUse;
}

}  // namespace marlinset

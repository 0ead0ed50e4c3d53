// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/output.h"

#include "base/printable.h"

namespace marlinset {

void PrintLine(const std::string& text, std::FILE* stream) {
  std::fwrite(text.data(), 1, text.size(), stream);
  std::putc('\n', stream);
}

void PrintFault(const std::string& text) {
  PrintLine(PrintableLines(text), stderr);
}

void PrintJson(const Json& json) {
  PrintLine(json.dump(-1, ' ', false, Json::error_handler_t::replace));
}

void PrintError(const std::exception& error) {
  PrintFault(std::string("marlinset-cli: ") + error.what());
}

void PrintError(const std::exception& error, const std::string& file, bool json) {
  PrintError(error);
  if (json) PrintJson({{"file", file}, {"error", error.what()}});
}

}  // namespace marlinset

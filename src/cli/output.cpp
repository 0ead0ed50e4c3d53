// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/output.h"

#include <cstddef>
#include <cstdint>

#include "base/text.h"

namespace marlinset {

std::string Printable(const std::string& text) {
  constexpr char kFirstOfTwo = '\xC2';  // U+0080 to U+009F are controls too
  std::string printable;
  printable.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool ofTwo =
        text[i] == kFirstOfTwo && i + 1 < text.size() && static_cast<std::uint8_t>(text[i + 1]) < 0xA0;
    if (ofTwo) ++i;
    const auto byte = static_cast<std::uint8_t>(text[i]);
    if (ofTwo || byte < ' ' || byte == 0x7F) {
      printable += "\\x" + HexByte(byte);
    } else {
      printable += text[i];
    }
  }
  return printable;
}

void PrintLine(const std::string& text, std::FILE* stream) {
  std::fwrite(text.data(), 1, text.size(), stream);
  std::putc('\n', stream);
}

void PrintJson(const Json& json) {
  PrintLine(json.dump(-1, ' ', false, Json::error_handler_t::replace));
}

void PrintError(const std::exception& error) {
  std::fprintf(stderr, "marlinset-cli: %s\n", error.what());
}

void PrintError(const std::exception& error, const std::string& file, bool json) {
  PrintError(error);
  if (json) PrintJson({{"file", file}, {"error", error.what()}});
}

}  // namespace marlinset

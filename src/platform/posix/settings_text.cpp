// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/posix/settings_text.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <functional>
#include <optional>

#include "base/text.h"

namespace marlinset {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
/// The characters after a backslash and their meanings.
constexpr std::string_view kEscaped = "abfnrtv\"?'\\";
constexpr std::string_view kMeant = "\a\b\f\n\r\t\v\"?'\\";
/// Precedes a value that begins with one itself: programs that share the format use it to mark types.
constexpr char kTypeMark = '@';

/// A line, or several joined by quotes or a backslash at the end.
struct Line {
  std::size_t begin;
  std::size_t end;  ///< after the line break
  std::string_view key;
  std::optional<std::string_view> value;  ///< of a KEY=VALUE line, as written
};

std::string_view Stripped(std::string_view text) {
  const auto begin = text.find_first_not_of(kBlanks);
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}

/// Position of the line break at or after `at`, or the end of the text.
std::size_t BreakBehind(std::string_view text, std::size_t at) {
  return std::min(text.find('\n', at), text.size());
}

Line LineAt(std::string_view text, std::size_t begin) {
  Line line{begin, begin, {}, std::nullopt};
  std::size_t equals = std::string_view::npos;
  bool quoted = false;
  std::size_t at = begin;
  const std::size_t first = std::min(text.find_first_not_of(" \t", begin), text.size());
  const bool isPair = first < text.size() && text[first] != '[' && text[first] != '#';
  for (; at < text.size() && (quoted || text[at] != '\n'); ++at) {
    const char letter = text[at];
    if (!isPair || (letter == ';' && !quoted)) break;
    if (letter == '=' && equals == std::string_view::npos) equals = at;
    if (letter == '"' && equals != std::string_view::npos) quoted = !quoted;
    if (letter == '\\' && at + 1 < text.size()) ++at;
  }
  const std::size_t contentEnd = isPair ? std::min(at, text.size()) : BreakBehind(text, begin);
  line.end = std::min(BreakBehind(text, contentEnd) + 1, text.size());
  line.key = Stripped(text.substr(begin, std::min(equals, contentEnd) - begin));
  if (equals != std::string_view::npos) {
    line.value = text.substr(equals + 1, contentEnd - equals - 1);
  }
  return line;
}

/// Calls `take` with each line and whether it belongs to the section.
void WalkLines(std::string_view text, std::string_view section,
               const std::function<void(const Line&, bool)>& take) {
  bool inSection = false;
  std::size_t begin = text.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
  while (begin < text.size()) {
    const Line line = LineAt(text, begin);
    if (line.key.starts_with('[')) {
      const std::string_view name = line.key.substr(1, line.key.find(']') - 1);
      inSection = EqualNoCase(Stripped(name), section);
    }
    take(line, inSection);
    begin = line.end;
  }
}

/// Removes a hexadecimal number from the beginning of `text` and returns it.
char32_t TakeHex(std::string_view& text, std::size_t most) {
  std::uint32_t code = 0;
  const char* end = text.data() + std::min(text.size(), most);
  const auto result = std::from_chars(text.data(), end, code, 16);
  text.remove_prefix(static_cast<std::size_t>(result.ptr - text.data()));
  return code;
}

/// A key contains letters, digits and a few marks unchanged, other characters as %XX or %UXXXX.
std::string ReadKey(std::string_view written) {
  std::string key;
  while (!written.empty()) {
    const char letter = written.front();
    written.remove_prefix(1);
    if (letter != '%') {
      key += letter == '\\' ? '/' : letter;
    } else if (written.starts_with('U')) {
      written.remove_prefix(1);
      key += TextOfCode(TakeHex(written, 4));
    } else {
      key += TextOfCode(TakeHex(written, 2));
    }
  }
  return key;
}

std::string WrittenKey(std::string_view key) {
  std::string written;
  for (const char letter : key) {
    const auto byte = static_cast<std::uint8_t>(letter);
    const bool plain =
        std::isalnum(byte) || byte >= 0x80 || std::string_view("_-.").find(letter) != std::string_view::npos;
    written += plain ? std::string(1, letter) : "%" + HexByte(byte);
  }
  return written;
}

/// The text of an escape; moves past the escape.
std::string TakeEscape(std::string_view& rest) {
  if (rest.empty()) return {};
  const char letter = rest.front();
  rest.remove_prefix(1);
  if (letter == 'x') return TextOfCode(TakeHex(rest, 4));
  if (letter == '0') return std::string(1, '\0');
  const auto meaning = kEscaped.find(letter);
  return meaning == std::string_view::npos ? std::string() : std::string(1, kMeant[meaning]);
}

/// Decodes a written value; nothing for the mark of an invalid value.
std::optional<std::string> ReadValue(std::string_view written) {
  std::string value;
  std::size_t entry = 0;  // where the current list entry begins in `value`
  bool quoted = false;
  std::size_t solid = 0;  // blanks after this do not belong to the value
  std::string_view rest = Stripped(written);
  const auto endEntry = [&] { value.resize(std::max(solid, entry)); };
  while (!rest.empty()) {
    const char letter = rest.front();
    rest.remove_prefix(1);
    if (letter == '"') {
      quoted = !quoted;
    } else if (letter == ',' && !quoted) {
      endEntry();
      value += ", ";
      entry = value.size();
      rest = rest.substr(std::min(rest.find_first_not_of(kBlanks), rest.size()));
      continue;
    } else if (letter == '\\') {
      value += TakeEscape(rest);
    } else {
      value += letter;
      if (!quoted && kBlanks.find(letter) != std::string_view::npos) continue;
    }
    solid = value.size();
  }
  endEntry();
  if (value == "@Invalid()") return std::nullopt;
  if (value.starts_with("@@")) value.erase(0, 1);
  return value;
}

std::string WrittenValue(std::string_view value) {
  std::string written = value.starts_with(kTypeMark) ? std::string(1, kTypeMark) : std::string();
  bool afterHex = false;  // a hexadecimal digit would count as part of the escape
  for (const char letter : value) {
    const auto byte = static_cast<std::uint8_t>(letter);
    const auto meaning = kMeant.find(letter);
    const bool control = byte < ' ' || byte == 0x7F || (afterHex && std::isxdigit(byte));
    if (meaning != std::string_view::npos && letter != '?' && letter != '\'') {
      written += {'\\', kEscaped[meaning]};
    } else {
      written += control ? "\\x" + HexText(byte) : std::string(1, letter);
    }
    afterHex = control && meaning == std::string_view::npos;
  }
  const bool plain = written.find_first_of(";,=\"") == std::string::npos && Stripped(written) == written;
  return plain ? written : '"' + written + '"';
}

}  // namespace

std::string LookUpKey(std::string_view key) {
  std::string small(key);
  for (char& letter : small) letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
  return small;
}

std::map<std::string, std::string> ReadSettings(std::string_view text, std::string_view section) {
  std::map<std::string, std::string> settings;
  WalkLines(text, section, [&](const Line& line, bool inSection) {
    if (!inSection || !line.value) return;
    const std::string key = LookUpKey(ReadKey(line.key));
    const auto value = ReadValue(*line.value);
    if (value) {
      settings[key] = *value;
    } else {
      settings.erase(key);
    }
  });
  return settings;
}

std::string WithSetting(std::string_view text, std::string_view section, std::string_view key,
                        std::string_view value) {
  std::string result(text);
  std::optional<Line> present;
  std::optional<std::size_t> sectionEnd;
  WalkLines(text, section, [&](const Line& line, bool inSection) {
    if (!inSection) return;
    if (!line.key.empty()) sectionEnd = line.end;
    if (line.value && EqualNoCase(ReadKey(line.key), key)) present = line;
  });
  if (present) {
    if (ReadValue(*present->value) == value) return result;
    const auto at = static_cast<std::size_t>(present->value->data() - text.data());
    return result.replace(at, present->value->size(), WrittenValue(value));
  }
  std::string line = WrittenKey(key) + "=" + WrittenValue(value) + "\n";
  if (!sectionEnd) {
    line = "[" + std::string(section) + "]\n" + line;
    if (!result.empty()) line.insert(0, "\n");
  }
  const std::size_t at = sectionEnd.value_or(result.size());
  if (at > 0 && result[at - 1] != '\n') line.insert(0, "\n");
  return result.insert(at, line);
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <string_view>

#include "base/text.h"
#include "link/command_table.h"
#include "picture/remark_rules.h"

namespace marlinset {
namespace {

// The characters that any unit can be expected to have: printable ASCII, in capitals.
constexpr char32_t kFirstCharacter = 32;
constexpr char32_t kLastCharacter = 126;
/// Other codes before this one are control characters.
constexpr char32_t kFirstVisible = 160;
/// A remark names no more characters than these.
constexpr std::size_t kMostNamed = 5;

bool IsContinuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// The names of other characters in a text, each once.
std::vector<std::string> StrangeCharacters(std::string_view text) {
  std::vector<std::string> strange;
  for (std::size_t at = 0; at < text.size() && strange.size() < kMostNamed; ++at) {
    if (IsContinuation(text[at])) continue;
    const char32_t code = CodeOf(text.substr(at));
    if (code >= kFirstCharacter && code <= kLastCharacter) continue;
    std::string name =
        code < kFirstVisible ? "the control character " + std::to_string(code) : Quoted(TextOfCode(code));
    if (std::ranges::find(strange, name) == strange.end()) strange.push_back(std::move(name));
  }
  return strange;
}

}  // namespace

void FindEmptyText(const Setup& setup, Findings& found) {
  const TextBox& message = setup.form.tWinMess;
  const bool on = std::ranges::any_of(setup.plan.windows, [](const PlannedWindow& window) {
    return window.on && window.name == kTextWindow;
  });
  if (!on || !message.Text().empty()) return;
  found.push_back({{message.FullName()},
                   Quoted(kTextWindow) +
                       " is on, but the text message is empty: type a message, or switch the window off."});
}

void FindCutText(const Setup& setup, Findings& found) {
  const TextBox& message = setup.form.tWinMess;
  const std::size_t length = LengthOf(message.Text());
  if (length <= kMessageCharacters) return;
  found.push_back({{message.FullName()},
                   "The text message has " + std::to_string(length) +
                       " characters, of which the unit shows " + std::to_string(kMessageCharacters) +
                       ": shorten it by " + std::to_string(length - kMessageCharacters) + "."});
}

void FindStrangeCharacters(const Setup& setup, Findings& found) {
  const TextBox& message = setup.form.tWinMess;
  std::string names;
  for (const std::string& name : StrangeCharacters(UpperOf(message.Text()))) {
    names += (names.empty() ? "" : ", ") + name;
  }
  if (names.empty()) return;
  found.push_back({{message.FullName()},
                   "The text message holds " + names +
                       ", which the unit may not be able to show: use plain letters, digits and signs."});
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/script_line.h"

#include <charconv>

#include "base/text.h"
#include "cli/json.h"
#include "controls/control.h"

namespace marlinset {
namespace {

constexpr std::string_view kBlanks = " \t\r";

std::string_view SkipBlanks(std::string_view text) {
  const auto begin = text.find_first_not_of(kBlanks);
  return begin == std::string_view::npos ? std::string_view() : text.substr(begin);
}

std::string_view WithoutTrailingBlanks(std::string_view text) {
  const auto end = text.find_last_not_of(kBlanks);
  return end == std::string_view::npos ? std::string_view() : text.substr(0, end + 1);
}

/// Length of the JSON string at the beginning of `text`, with its quotes.
std::size_t QuotedLength(std::string_view text) {
  for (std::size_t i = 1; i < text.size(); ++i) {
    if (text[i] == '\\') {
      ++i;
    } else if (text[i] == '"') {
      return i + 1;
    }
  }
  throw ScriptError("a text lacks its closing quote");
}

Word TakeWord(std::string_view& text) {
  Word word;
  std::size_t length = 0;
  if (text.front() == '"') {
    length = QuotedLength(text);
    const Json value = Json::parse(text.substr(0, length), nullptr, false);
    if (!value.is_string()) throw ScriptError("a text is no JSON string");
    word = {value.get<std::string>(), true};
  } else {
    length = std::min(text.find_first_of(kBlanks), text.size());
    word.text = text.substr(0, length);
  }
  text = SkipBlanks(text.substr(length));
  return word;
}

}  // namespace

std::optional<int> WholeNumber(std::string_view text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

ScriptLine::ScriptLine(std::string_view line) {
  std::string_view text = SkipBlanks(WithoutTrailingBlanks(line));
  if (text.empty() || text.front() == '#') return;
  action_ = TakeWord(text).text;
  rest_ = text;
}

void ScriptLine::Split(std::size_t least, std::size_t most) {
  for (std::string_view text = rest_; !text.empty();) words_.push_back(TakeWord(text));
  if (words_.size() < least) throw ScriptError("something is missing behind " + Quoted(action_));
  if (words_.size() > most) throw ScriptError("too much behind " + Quoted(action_));
}

const Word& ScriptLine::At(std::size_t index) const {
  if (index >= words_.size()) throw ScriptError("something is missing behind " + Quoted(action_));
  return words_[index];
}

int ScriptLine::NumberAt(std::size_t index) const {
  const auto number = WholeNumber(At(index).text);
  if (!number) throw ScriptError(Quoted(At(index).text) + " is no whole number");
  return *number;
}

std::string ScriptLine::Path() const {
  return PathIn(rest_);
}

std::pair<std::string, std::string> ScriptLine::WordAndPath() const {
  std::string_view text = rest_;
  std::string word = text.empty() ? std::string() : TakeWord(text).text;
  return {std::move(word), PathIn(text)};
}

std::string ScriptLine::PathIn(std::string_view text) const {
  if (text.empty()) throw ScriptError("a path is missing behind " + Quoted(action_));
  if (text.front() != '"') return std::string(text);
  std::string path = TakeWord(text).text;
  if (!text.empty()) throw ScriptError("too much behind " + Quoted(action_));
  return path;
}

ScriptControlName ParseControlName(std::string_view text) {
  ScriptControlName result{"frmStart", "", kNoIndex};
  const auto dot = text.find('.');
  if (dot != std::string_view::npos) {
    result.form = text.substr(0, dot);
    text = text.substr(dot + 1);
  }
  const auto open = text.find('(');
  result.name = text.substr(0, open);
  if (open != std::string_view::npos) {
    const bool closed = text.back() == ')';
    const auto index = WholeNumber(text.substr(open + 1, text.size() - open - 2));
    if (!closed || !index || *index < 0) {
      throw ScriptError(Quoted(text) + " is no name of a control");
    }
    result.index = *index;
  }
  if (result.name.empty()) throw ScriptError("the name of a control is missing");
  return result;
}

}  // namespace marlinset

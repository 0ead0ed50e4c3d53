// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace marlinset {

/// What is wrong with a script line, in words for the answer's "error".
class ScriptError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Bytes. A longer line is a mistake, or no script.
inline constexpr std::size_t kMostLine = std::size_t{1} << 20U;

/// A text that is a whole number, with "-" in front if it is negative, and nothing else.
std::optional<int> WholeNumber(std::string_view text);

/// A word of a script line; a text in double quotes is a JSON string and stands here decoded.
struct Word {
  std::string text;
  bool quoted = false;
};

/// One action of a script: its name, and what stands behind it as words or as a path.
class ScriptLine {
 public:
  /// Cuts off the name; throws ScriptError when that begins as a text and is no JSON string.
  explicit ScriptLine(std::string_view line);
  /// Cuts what follows into words; throws ScriptError for a text that is no JSON string, and unless there are
  /// between `least` and `most` words.
  void Split(std::size_t least, std::size_t most);

  bool Empty() const { return action_.empty(); }
  const std::string& Action() const { return action_; }
  std::size_t Count() const { return words_.size(); }
  /// Throws ScriptError when there is no such word.
  const Word& At(std::size_t index) const;
  /// A whole number; throws ScriptError when the word is none.
  int NumberAt(std::size_t index) const;
  /// The line behind the name as it stands, or a JSON string there, for actions that take a path.
  std::string Path() const;

 private:
  std::string action_;
  std::string rest_;
  std::vector<Word> words_;
};

/// "comTB(1)" in its parts; index kNoIndex without parentheses. A form's name may stand in front:
/// "frmAbout.cmdOK".
struct ControlName {
  std::string form;
  std::string name;
  int index;
};
/// Throws ScriptError when it is written in no such way.
ControlName ParseControlName(std::string_view text);

}  // namespace marlinset

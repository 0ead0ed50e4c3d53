// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace marlinset {

/// A fault in a script line, described for the answer's "error".
class ScriptError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// In bytes. A longer line is a mistake, or not a script.
inline constexpr std::size_t kMostLine = std::size_t{1} << 20U;

/// Reads a text that is an integer, with "-" in front if negative, and nothing else.
std::optional<int> WholeNumber(std::string_view text);

/// A word of a script line; a text in double quotes is a JSON string and is decoded here.
struct Word {
  std::string text;
  bool quoted = false;
};

/// One action of a script: its name, and the rest as words or as a path.
class ScriptLine {
 public:
  /// Cuts off the name; throws ScriptError if it begins as a text and is not a JSON string.
  explicit ScriptLine(std::string_view line);
  /// Cuts the rest into words; throws ScriptError for a text that is not a JSON string, and unless there are
  /// between `least` and `most` words.
  void Split(std::size_t least, std::size_t most);

  bool Empty() const { return action_.empty(); }
  const std::string& Action() const { return action_; }
  std::size_t Count() const { return words_.size(); }
  /// Throws ScriptError if there is no such word.
  const Word& At(std::size_t index) const;
  /// An integer; throws ScriptError if the word is not one.
  int NumberAt(std::size_t index) const;
  /// The rest of the line after the name, or a JSON string there, for actions that take a path.
  std::string Path() const;
  /// A word, and the rest behind it as a path.
  std::pair<std::string, std::string> WordAndPath() const;

 private:
  std::string PathIn(std::string_view text) const;
  std::string action_;
  std::string rest_;
  std::vector<Word> words_;
};

/// The parts of "comTB(1)"; index kNoIndex without parentheses. A form's name may precede it:
/// "frmAbout.cmdOK".
struct ScriptControlName {
  std::string form;
  std::string name;
  int index;
};
/// Throws ScriptError for anything else.
ScriptControlName ParseControlName(std::string_view text);

}  // namespace marlinset

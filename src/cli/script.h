// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "app/recording_line.h"
#include "cli/json.h"
#include "cli/script_line.h"

namespace marlinset {

class Control;
class Form;
struct OtherFile;
class QueuedDialogs;
class QueuedFileDialog;
class Tool;

/// Executes script lines on a tool without a screen, one JSON answer each. The contract is docs/script.md.
class Script {
 public:
  Script(Tool& tool, QueuedDialogs& dialogs, QueuedFileDialog& fileDialog, RecordingLine& line);

  /// The answer to the start itself.
  std::string StartAnswer(bool started);
  /// Executes one line; the answer is one line of JSON, empty for an empty line or a comment.
  std::string Execute(const std::string& line);

  /// Whether every action so far was understood.
  bool AllUnderstood() const { return allUnderstood_; }
  /// Whether the script asked to end.
  bool Ended() const { return ended_; }

 private:
  struct Action {
    std::string_view name;
    std::size_t least;  ///< words after the name
    std::size_t most;
    Json (Script::*run)(const ScriptLine& line);
  };
  /// Null if no action has that name.
  static const Action* FindAction(std::string_view name);
  std::string Answer(Json answer);
  OtherFile ReadOther(const Word& file) const;
  Form& FindForm(const std::string& name) const;
  Control& FindControl(const std::string& text) const;
  /// A control on which an operator could act: its window is open.
  Control& ShownControl(const std::string& text) const;

  Json Get(const ScriptLine& line);
  Json Choose(const ScriptLine& line);
  Json Check(const ScriptLine& line);
  Json Click(const ScriptLine& line);
  Json Spin(const ScriptLine& line);
  Json Step(const ScriptLine& line);
  Json Type(const ScriptLine& line);
  Json Key(const ScriptLine& line);
  Json Hover(const ScriptLine& line);
  Json Leave(const ScriptLine& line);
  Json Scroll(const ScriptLine& line);
  Json Activate(const ScriptLine& line);
  Json QueueAnswers(const ScriptLine& line);
  Json Wait(const ScriptLine& line);
  Json Variable(const ScriptLine& line);
  Json Records(const ScriptLine& line);
  Json Row(const ScriptLine& line);
  Json Setting(const ScriptLine& line);
  Json QueueFile(const ScriptLine& line);
  Json Open(const ScriptLine& line);
  Json Save(const ScriptLine& line);
  Json Picture(const ScriptLine& line);
  Json Compare(const ScriptLine& line);
  Json TakeOverFrom(const ScriptLine& line);
  Json Export(const ScriptLine& line);
  Json Import(const ScriptLine& line);
  Json State(const ScriptLine& line);
  Json Windows(const ScriptLine& line);
  Json Remarks(const ScriptLine& line);
  Json Log(const ScriptLine& line);
  Json Changes(const ScriptLine& line);
  Json Undo(const ScriptLine& line);
  Json Redo(const ScriptLine& line);
  Json History(const ScriptLine& line);
  Json Close(const ScriptLine& line);
  Json Quit(const ScriptLine& line);

  Tool& tool_;
  QueuedDialogs& dialogs_;
  QueuedFileDialog& fileDialog_;
  RecordingLine& line_;
  bool allUnderstood_ = true;
  bool ended_ = false;
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/script.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <limits>

#include "app/tool.h"
#include "base/text.h"
#include "cli/control_json.h"
#include "cli/document_json.h"
#include "cli/picture_json.h"
#include "cli/queued_dialogs.h"
#include "cli/variables_json.h"
#include "files/panel_document.h"
#include "files/qcf_reader.h"
#include "files/qcf_writer.h"
#include "picture/geometry.h"
#include "platform/event_pump.h"
#include "platform/settings_store.h"
#include "wire/frame.h"

namespace marlinset {
namespace {

/// Instead of a number of words: the rest of the line is a path.
constexpr std::size_t kPath = std::numeric_limits<std::size_t>::max();

char32_t KeyCode(const std::string& text) {
  if (LengthOf(text) != 1) throw ScriptError("a key is one character");
  return CodeOf(text);
}

bool OnOrOff(const Word& word) {
  if (word.text == "on") return true;
  if (word.text == "off") return false;
  throw ScriptError(Quoted(word.text) + " is neither on nor off");
}

std::string HexOf(const std::vector<std::uint8_t>& bytes) {
  std::string hex;
  for (const std::uint8_t byte : bytes) {
    for (const char digit : HexByte(byte)) hex += static_cast<char>(std::tolower(digit));
  }
  return hex;
}

/// A text that no file can hold stays as it is.
QcfDocument AsInAFile(QcfDocument document) {
  try {
    return ReadDocument(WriteDocument(document));
  } catch (const RuntimeError&) {
    return document;
  }
}

int EntryOf(const Control& control, const Word& word) {
  const std::vector<std::string> entries = control.Entries();
  if (!word.quoted && word.text.starts_with('#')) {
    const auto number = WholeNumber(std::string_view(word.text).substr(1));
    if (number && *number >= 0 && *number < static_cast<int>(entries.size())) return *number;
  } else {
    const auto found = std::find(entries.begin(), entries.end(), word.text);
    if (found != entries.end()) return static_cast<int>(found - entries.begin());
  }
  throw ScriptError(control.FullName() + " has no entry " + word.text);
}

}  // namespace

Script::Script(Tool& tool, QueuedDialogs& dialogs, QueuedFileDialog& fileDialog, RecordingLine& line)
    : tool_(tool), dialogs_(dialogs), fileDialog_(fileDialog), line_(line) {
  const auto note = [&line](const SentMessage& message) {
    if (message.verdict) line.NoteVerdict(message.number, message.Frame(), NameOf(*message.verdict));
  };
  tool_.commands.MessageSent.Connect(note);
  tool_.commands.VerdictChanged.Connect([note](const SentMessage& message, Verdict) { note(message); });
}

const Script::Action* Script::FindAction(std::string_view name) {
  static constexpr Action kActions[] = {
      {"get", 1, 1, &Script::Get},
      {"choose", 2, 2, &Script::Choose},
      {"check", 2, 2, &Script::Check},
      {"click", 1, 1, &Script::Click},
      {"spin", 2, 2, &Script::Spin},
      {"step", 2, 3, &Script::Step},
      {"type", 2, 2, &Script::Type},
      {"key", 2, 2, &Script::Key},
      {"hover", 1, 1, &Script::Hover},
      {"leave", 1, 1, &Script::Leave},
      {"scroll", 2, 2, &Script::Scroll},
      {"activate", 1, 1, &Script::Activate},
      {"answer", 1, 1000, &Script::QueueAnswers},
      {"wait", 1, 1, &Script::Wait},
      {"variable", 1, 1, &Script::Variable},
      {"records", 1, 1, &Script::Records},
      {"row", 4, 4, &Script::Row},
      {"setting", 1, 1, &Script::Setting},
      {"file", 0, kPath, &Script::QueueFile},
      {"open", 0, kPath, &Script::Open},
      {"save", 0, kPath, &Script::Save},
      {"picture", 0, kPath, &Script::Picture},
      {"compare", 1, 1, &Script::Compare},
      {"takeover", 2, 10000, &Script::TakeOverFrom},
      {"export", 0, kPath, &Script::Export},
      {"import", 0, kPath, &Script::Import},
      {"state", 0, 0, &Script::State},
      {"windows", 0, 0, &Script::Windows},
      {"remarks", 0, 0, &Script::Remarks},
      {"log", 0, 1, &Script::Log},
      {"changes", 0, 0, &Script::Changes},
      {"undo", 0, 0, &Script::Undo},
      {"redo", 0, 0, &Script::Redo},
      {"history", 0, 0, &Script::History},
      {"close", 0, 0, &Script::Close},
      {"quit", 0, 0, &Script::Quit},
  };
  const auto* found = std::find_if(std::begin(kActions), std::end(kActions),
                                   [name](const Action& action) { return action.name == name; });
  return found == std::end(kActions) ? nullptr : found;
}

std::string Script::Answer(Json answer) {
  answer["messages"] = dialogs_.TakeMessages();
  return answer.dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::string Script::StartAnswer(bool started) {
  Json answer = {{"ok", started}};
  if (!started) answer["error"] = "the start failed";
  return Answer(std::move(answer));
}

std::string Script::Execute(const std::string& text) {
  Json answer = {{"ok", true}};
  try {
    if (text.size() > kMostLine) throw ScriptError("a line is longer than 1 MiB");
    ScriptLine line(text);
    if (line.Empty()) return {};
    const Action* action = FindAction(line.Action());
    if (!action) throw ScriptError("unknown action \"" + line.Action() + "\"");
    if (action->most != kPath) line.Split(action->least, action->most);
    answer.update((this->*action->run)(line));
    ended_ = ended_ || tool_.platform.pump.Ending();
  } catch (const ScriptError& error) {
    allUnderstood_ = false;
    answer = {{"ok", false}, {"error", error.what()}};
  } catch (const RuntimeError&) {  // only this one: failures inside a handler never get here
    allUnderstood_ = false;
    answer = {{"ok", false}, {"error", "this control does not take that"}};
  }
  return Answer(std::move(answer));
}

Form& Script::FindForm(const std::string& name) const {
  for (Form* form : tool_.Forms()) {
    if (form->Name() == name) return *form;
  }
  throw ScriptError("no window " + name);
}

Control& Script::FindControl(const std::string& text) const {
  const ScriptControlName name = ParseControlName(text);
  Control* control = FindForm(name.form).Find(name.name, name.index);
  if (!control) throw ScriptError("no control " + text);
  return *control;
}

Control& Script::ShownControl(const std::string& text) const {
  const Form& form = FindForm(ParseControlName(text).form);
  if (!form.Visible()) throw ScriptError(form.Name() + " is not open");
  return FindControl(text);
}

Json Script::Get(const ScriptLine& line) {
  const std::string& text = line.At(0).text;
  for (const Form* form : tool_.Forms()) {
    if (text == form->Name())
      return {{"name", text}, {"kind", "form"}, {"text", form->Caption()}, {"visible", form->Visible()}};
  }
  const Control& control = FindControl(text);
  if (&control == &tool_.form.lRemarks) tool_.remarks.Refresh();  // nobody counts unless somebody looks
  Json json = ControlJson(control);
  const Form& form = FindForm(ParseControlName(text).form);
  if (&form != &tool_.form) json["name"] = form.Name() + "." + json["name"].get<std::string>();
  return json;
}

Json Script::Choose(const ScriptLine& line) {
  Control& control = ShownControl(line.At(0).text);
  control.OperatorSelect(EntryOf(control, line.At(1)));
  return Json::object();
}

Json Script::Check(const ScriptLine& line) {
  const int value = line.NumberAt(1);
  if (value != 0 && value != 1) throw ScriptError("a check box is 0 or 1");
  ShownControl(line.At(0).text).OperatorCheck(value == 1);
  return Json::object();
}

Json Script::Click(const ScriptLine& line) {
  Control& control = ShownControl(line.At(0).text);
  if (control.Kind() == ControlKind::kMenuItem)
    tool_.ports.LookForDevices();  // as the menu does when it opens
  control.OperatorClick();
  return Json::object();
}

Json Script::Spin(const ScriptLine& line) {
  ShownControl(line.At(0).text).OperatorSpin(line.NumberAt(1));
  return Json::object();
}

Json Script::Step(const ScriptLine& line) {
  const std::string& direction = line.At(1).text;
  if (direction != "up" && direction != "down") throw ScriptError("a step goes up or down");
  const int times = line.Count() == 3 ? line.NumberAt(2) : 1;
  if (times < 1) throw ScriptError("a step is taken once or more often");
  ShownControl(line.At(0).text).OperatorStep(direction == "up", times);
  return Json::object();
}

Json Script::Type(const ScriptLine& line) {
  ShownControl(line.At(0).text).OperatorType(line.At(1).text);
  return Json::object();
}

Json Script::Key(const ScriptLine& line) {
  ShownControl(line.At(0).text).OperatorKey(KeyCode(line.At(1).text));
  return Json::object();
}

Json Script::Hover(const ScriptLine& line) {
  if (line.At(0).text == tool_.form.Name()) {
    tool_.form.OperatorHover();
  } else {
    ShownControl(line.At(0).text).OperatorHover();
  }
  return Json::object();
}

Json Script::Leave(const ScriptLine& line) {
  ShownControl(line.At(0).text).OperatorLeave();
  return Json::object();
}

Json Script::Scroll(const ScriptLine& line) {
  ShownControl(line.At(0).text).OperatorScroll(line.NumberAt(1));
  return Json::object();
}

Json Script::Activate(const ScriptLine& line) {
  tool_.SetActive(OnOrOff(line.At(0)));
  return Json::object();
}

Json Script::QueueAnswers(const ScriptLine& line) {
  for (std::size_t i = 0; i < line.Count(); ++i) {
    if (!QueuedDialogs::IsAnswer(line.At(i).text))
      throw ScriptError(Quoted(line.At(i).text) + " is no answer");
  }
  for (std::size_t i = 0; i < line.Count(); ++i) dialogs_.QueueAnswer(line.At(i).text);
  return Json::object();
}

Json Script::Wait(const ScriptLine& line) {
  const int milliseconds = line.NumberAt(0);
  if (milliseconds < 0) throw ScriptError("time does not go back");
  tool_.platform.pump.Pass(milliseconds);
  return Json::object();
}

Json Script::Variable(const ScriptLine& line) {
  const auto value = VariableJson(tool_, line.At(0).text);
  if (!value) throw ScriptError("no variable " + line.At(0).text);
  return {{"value", *value}};
}

Json Script::Records(const ScriptLine& line) {
  const auto rows = RecordsJson(tool_, line.At(0).text);
  if (!rows) throw ScriptError("no records " + line.At(0).text);
  return {{"rows", *rows}};
}

Json Script::Row(const ScriptLine& line) {
  const Word& word = line.At(3);
  const Json value = word.quoted ? Json(word.text) : Json::parse(word.text, nullptr, false);
  if (!value.is_primitive() || value.is_null() || value.is_discarded())
    throw ScriptError(Quoted(word.text) + " is no value");
  const std::string wrong = SetRowField(tool_, line.At(0).text, line.NumberAt(1), line.At(2).text, value);
  if (!wrong.empty()) throw ScriptError(wrong);
  return Json::object();
}

Json Script::Setting(const ScriptLine& line) {
  return {{"value", tool_.platform.settings.GetSetting(line.At(0).text, "")}};
}

Json Script::QueueFile(const ScriptLine& line) {
  fileDialog_.QueueFile(line.Path());
  return Json::object();
}

Json Script::Open(const ScriptLine& line) {
  fileDialog_.AnswerOpen(line.Path(), [this] { tool_.form.mnuOpen.OperatorClick(); });
  return Json::object();
}

Json Script::Save(const ScriptLine& line) {
  fileDialog_.AnswerSave(line.Path(), [this] { tool_.form.mnuSave.OperatorClick(); });
  return Json::object();
}

Json Script::State(const ScriptLine& /*line*/) {
  try {
    return {{"state", DocumentJson(AsInAFile(DocumentOfPanels(tool_.variables, tool_.form)))}};
  } catch (const RuntimeError& failure) {
    throw ScriptError(failure.Description());
  }
}

Json Script::Windows(const ScriptLine& /*line*/) {
  return WindowsJson(PlanPicture(tool_.form, tool_.variables));
}

Json Script::Remarks(const ScriptLine& /*line*/) {
  tool_.remarks.Refresh();
  return {{"remarks", RemarksJson(tool_.remarks.Remarks())}};
}

Json Script::Log(const ScriptLine& line) {
  if (line.Count() == 1) {
    line_.Record(OnOrOff(line.At(0)));
    return Json::object();
  }
  Json entries = Json::array();
  for (const RecordingLine::Entry& entry : line_.TakeEntries()) {
    entries.push_back(
        {{"ms", entry.milliseconds}, {"dir", entry.sent ? "tx" : "rx"}, {"hex", HexOf(entry.bytes)}});
    if (!entry.verdict.empty()) entries.back()["verdict"] = entry.verdict;
  }
  return {{"log", std::move(entries)}};
}

Json Script::Changes(const ScriptLine& /*line*/) {
  const bool known = tool_.held.Known();
  Json changes = Json::array();
  if (known) {
    for (const auto& [message, controls, isChange] : tool_.wholeSend.Changes()) {
      changes.push_back({{"meaning", message.meaning}, {"hex", HexOf(EncodeFrame(BytesOf(message.fields)))}});
    }
  }
  return {{"known", known}, {"changes", std::move(changes)}};
}

Json Script::Undo(const ScriptLine& /*line*/) {
  const std::vector<std::string> names = tool_.history.UndoNames();
  return {{"undone", tool_.form.mnuUndo.OperatorClick() ? Json(names.front()) : Json()}};
}

Json Script::Redo(const ScriptLine& /*line*/) {
  const std::vector<std::string> names = tool_.history.RedoNames();
  return {{"redone", tool_.form.mnuRedo.OperatorClick() ? Json(names.front()) : Json()}};
}

Json Script::History(const ScriptLine& /*line*/) {
  return {{"undo", tool_.history.UndoNames()}, {"redo", tool_.history.RedoNames()}};
}

Json Script::Close(const ScriptLine& /*line*/) {
  tool_.form.mnuExit.OperatorClick();
  return Json::object();
}

Json Script::Quit(const ScriptLine& /*line*/) {
  ended_ = true;
  return Json::object();
}

}  // namespace marlinset

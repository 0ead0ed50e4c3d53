// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/queued_dialogs.h"

#include <algorithm>
#include <array>
#include <optional>
#include <system_error>
#include <utility>

#include "controls/form.h"

namespace marlinset {
namespace {

// In the order of the enumerations.
constexpr std::array<std::string_view, 3> kButtons = {"ok", "okcancel", "yesno"};
constexpr std::array<std::string_view, 4> kIcons = {"none", "information", "critical", "question"};
constexpr std::array<std::string_view, 4> kAnswers = {"ok", "cancel", "yes", "no"};

/// What an answer means to a box with these buttons; nothing if it has no button for it. Cancelling a
/// question means No, as with Esc.
std::optional<BoxAnswer> Taken(BoxAnswer answer, BoxButtons buttons) {
  const bool question = buttons == BoxButtons::kYesNo;
  switch (answer) {
    case BoxAnswer::kOk:
      return question ? std::nullopt : std::optional(answer);
    case BoxAnswer::kCancel:
      if (question) return BoxAnswer::kNo;
      return buttons == BoxButtons::kOk ? std::nullopt : std::optional(answer);
    default:
      return question ? std::optional(answer) : std::nullopt;
  }
}

}  // namespace

BoxAnswer QueuedDialogs::NextAnswer(BoxButtons buttons) {
  const auto found = std::find_if(answers_.begin(), answers_.end(),
                                  [&](BoxAnswer answer) { return Taken(answer, buttons).has_value(); });
  if (found == answers_.end()) return buttons == BoxButtons::kYesNo ? BoxAnswer::kNo : BoxAnswer::kOk;
  const BoxAnswer answer = *found;
  answers_.erase(found);
  return *Taken(answer, buttons);
}

BoxAnswer QueuedDialogs::Present(const MessageBox& box) {
  const BoxAnswer answer = NextAnswer(box.buttons);
  Json message = {{"kind", "message"},
                  {"text", box.text},
                  {"caption", box.caption},
                  {"buttons", kButtons[static_cast<std::size_t>(box.buttons)]},
                  {"icon", kIcons[static_cast<std::size_t>(box.icon)]},
                  {"answer", kAnswers[static_cast<std::size_t>(answer)]}};
  if (!box.remedy.empty()) message["remedy"] = box.remedy;
  messages_.push_back(std::move(message));
  if (onShown) onShown(box, answer);
  return answer;
}

void QueuedDialogs::PresentForm(Form& form) {
  Note({{"kind", "dialog"}, {"name", form.Name()}});
  form.SetVisible(true);
}

bool QueuedDialogs::IsAnswer(std::string_view word) {
  return std::find(kAnswers.begin(), kAnswers.end(), word) != kAnswers.end();
}

void QueuedDialogs::QueueAnswer(std::string_view word) {
  const auto* found = std::find(kAnswers.begin(), kAnswers.end(), word);
  if (found != kAnswers.end()) answers_.push_back(static_cast<BoxAnswer>(found - kAnswers.begin()));
}

Json QueuedDialogs::TakeMessages() {
  return std::exchange(messages_, Json::array());
}

QueuedFileDialog::QueuedFileDialog(QueuedDialogs& messages) : messages_(messages) {
  std::error_code unknown;
  startFolder_ = std::filesystem::current_path(unknown);
}

std::optional<std::string> QueuedFileDialog::AnswerOf(const std::string& path) const {
  if (path == "cancel") return std::nullopt;
  return FromStart(path);
}

void QueuedFileDialog::QueueFile(const std::string& path) {
  files_.push_back(AnswerOf(path));
}

void QueuedFileDialog::AnswerOpen(const std::string& path, const std::function<void()>& action) {
  toOpen_ = {AnswerOf(path)};
  action();
  toOpen_.clear();
}

void QueuedFileDialog::AnswerSave(const std::string& path, const std::function<void()>& action) {
  toSave_ = {AnswerOf(path)};
  action();
  toSave_.clear();
}

std::optional<std::string> QueuedFileDialog::Next(const char* kind, Answers& own) {
  std::optional<std::string> file;
  Answers& answers = own.empty() ? files_ : own;
  if (!answers.empty()) {
    file = std::move(answers.front());
    answers.pop_front();
  }
  messages_.Note({{"kind", kind},
                  {"file", file ? Json(*file) : Json()},
                  {"filename", FileName},
                  {"initdir", InitDir},
                  {"filter", Filter}});
  return file;
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli/queued_dialogs.h"

#include <array>
#include <system_error>
#include <utility>

namespace marlinset {
namespace {

// In the order of the enumerations.
constexpr std::array<std::string_view, 3> kButtons = {"ok", "okcancel", "yesno"};
constexpr std::array<std::string_view, 4> kIcons = {"none", "information", "critical", "question"};
constexpr std::array<std::string_view, 4> kAnswers = {"ok", "cancel", "yes", "no"};

}  // namespace

BoxAnswer QueuedDialogs::NextAnswer(BoxButtons buttons) {
  if (answers_.empty()) return buttons == BoxButtons::kYesNo ? BoxAnswer::kNo : BoxAnswer::kOk;
  const BoxAnswer answer = answers_.front();
  answers_.pop_front();
  return answer;
}

BoxAnswer QueuedDialogs::Show(const MessageBox& box) {
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

bool QueuedDialogs::QueueAnswer(std::string_view word) {
  for (std::size_t i = 0; i < kAnswers.size(); ++i) {
    if (kAnswers[i] != word) continue;
    answers_.push_back(static_cast<BoxAnswer>(i));
    return true;
  }
  return false;
}

Json QueuedDialogs::TakeMessages() {
  return std::exchange(messages_, Json::array());
}

QueuedFileDialog::QueuedFileDialog(QueuedDialogs& messages) : messages_(messages) {
  std::error_code unknown;
  startFolder_ = std::filesystem::current_path(unknown);
}

void QueuedFileDialog::QueueFile(const std::string& path) {
  if (path == "cancel") {
    files_.emplace_back();
  } else {
    files_.emplace_back((startFolder_ / path).string());
  }
}

std::optional<std::string> QueuedFileDialog::Next(const char* kind) {
  std::optional<std::string> file;
  if (!files_.empty()) {
    file = std::move(files_.front());
    files_.pop_front();
  }
  messages_.Note({{"kind", kind},
                  {"file", file ? Json(*file) : Json()},
                  {"filename", FileName},
                  {"initdir", InitDir},
                  {"filter", Filter}});
  return file;
}

}  // namespace marlinset

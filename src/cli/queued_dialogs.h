// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "cli/json.h"
#include "controls/dialogs.h"
#include "platform/file_dialog.h"

namespace marlinset {

/// Boxes of a tool without a screen: answered from a queue, and kept as JSON for the next answer line. A box
/// takes the first answer in the queue for which it has a button; if there is none, a box with OK gets OK, a
/// question No.
class QueuedDialogs : public Dialogs {
 public:
  BoxAnswer Present(const MessageBox& box) override;
  void PresentForm(Form& form) override;

  /// "yes", "no", "ok" or "cancel".
  static bool IsAnswer(std::string_view word);
  /// Queues one of these words; ignores any other.
  void QueueAnswer(std::string_view word);
  /// Called for each box and its answer, so that they can be printed.
  std::function<void(const MessageBox&, BoxAnswer)> onShown;

  /// Records another event: a file dialog.
  void Note(Json message) { messages_.push_back(std::move(message)); }
  /// The events since the last call, in order.
  Json TakeMessages();

 private:
  BoxAnswer NextAnswer(BoxButtons buttons);

  std::deque<BoxAnswer> answers_;
  Json messages_ = Json::array();
};

/// The file dialog of a tool without a screen: answered from a queue and recorded with the boxes. With an
/// empty queue it is cancelled.
class QueuedFileDialog : public FileDialog {
 public:
  explicit QueuedFileDialog(QueuedDialogs& messages);

  /// The path seen from the folder in which the program was started.
  std::string FromStart(const std::string& path) const { return (startFolder_ / path).string(); }

  /// Queues a path, or "cancel". A relative path starts at the folder in which the program was started,
  /// whatever folder the tool has changed to since.
  void QueueFile(const std::string& path);

  /// Runs `action`; answers the first dialog of this kind (open or save) that it brings up with `path`, past
  /// the queue. If none comes up, the path is dropped.
  void AnswerOpen(const std::string& path, const std::function<void()>& action);
  void AnswerSave(const std::string& path, const std::function<void()>& action);

 protected:
  std::optional<std::string> AskOpen() override { return Next("open", toOpen_); }
  std::optional<std::string> AskSave() override { return Next("save", toSave_); }

 private:
  using Answers = std::deque<std::optional<std::string>>;
  std::optional<std::string> AnswerOf(const std::string& path) const;
  std::optional<std::string> Next(const char* kind, Answers& own);

  QueuedDialogs& messages_;
  std::filesystem::path startFolder_;
  Answers files_;
  Answers toOpen_;  ///< for dialogs of this kind only, before those for any
  Answers toSave_;
};

}  // namespace marlinset

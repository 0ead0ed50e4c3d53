// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "controls/dialogs.h"
#include "controls/form.h"

namespace marlinset {

/// Whether a box reports a failure that no routine expected: a number, two blanks and a text. Overflow is
/// excepted: it answers an operator's number that is too large for its place.
inline bool TellsOfFailure(const MessageBox& box) {
  const std::size_t digits = box.text.find_first_not_of("0123456789");
  const bool numbered = digits != 0 && digits != std::string::npos && box.text.compare(digits, 2, "  ") == 0;
  return numbered && box.text != "6  Overflow";
}

/// Records every box and gives it the next of `answers`. When none is left, questions are refused (No,
/// Cancel) and plain boxes confirmed, as a cautious operator would do.
class FakeDialogs : public Dialogs {
 public:
  std::vector<MessageBox> shown;
  std::deque<BoxAnswer> answers;
  /// Answers instead of the queue if set, and lets a test look at the tool while a box is open.
  std::function<BoxAnswer(const MessageBox&)> onShow;

  BoxAnswer Present(const MessageBox& box) override {
    shown.push_back(box);
    if (onShow) return onShow(box);
    if (answers.empty()) return Default(box.buttons);
    const BoxAnswer answer = answers.front();
    answers.pop_front();
    return answer;
  }

  /// Windows shown over the main window; each stays until its own controls close it.
  std::vector<Form*> forms;
  void PresentForm(Form& form) override {
    forms.push_back(&form);
    form.SetVisible(true);
  }

  /// The texts of all boxes so far.
  std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const MessageBox& box : shown) texts.push_back(box.text);
    return texts;
  }

  /// The same, and forgets them.
  std::vector<std::string> TakeTexts() {
    auto texts = Texts();
    shown.clear();
    return texts;
  }

  static BoxAnswer Default(BoxButtons buttons) {
    if (buttons == BoxButtons::kYesNo) return BoxAnswer::kNo;
    return buttons == BoxButtons::kOkCancel ? BoxAnswer::kCancel : BoxAnswer::kOk;
  }
};

}  // namespace marlinset

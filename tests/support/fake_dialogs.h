// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "controls/dialogs.h"
#include "controls/form.h"

namespace marlinset {

/// Whether a box tells of a failure that no routine expected: a number, two blanks and a text. An overflow is
/// the answer to a number that has no room in its place: the value of a parameter, a position in a message.
inline bool TellsOfFailure(const MessageBox& box) {
  const std::size_t digits = box.text.find_first_not_of("0123456789");
  const bool numbered = digits != 0 && digits != std::string::npos && box.text.compare(digits, 2, "  ") == 0;
  return numbered && box.text != "6  Overflow";
}

/// Boxes that a test answers: every box is recorded and takes the next of `answers`. With none left a
/// question is refused (No, Cancel) and a plain box is confirmed, as a cautious operator would do.
class FakeDialogs : public Dialogs {
 public:
  std::vector<MessageBox> shown;
  std::deque<BoxAnswer> answers;
  /// Answers in place of the queue when set; also the place to look at the tool while a box stands.
  std::function<BoxAnswer(const MessageBox&)> onShow;

  BoxAnswer Present(const MessageBox& box) override {
    shown.push_back(box);
    if (onShow) return onShow(box);
    if (answers.empty()) return Default(box.buttons);
    const BoxAnswer answer = answers.front();
    answers.pop_front();
    return answer;
  }

  /// The windows shown over the main window; each stays until its own controls close it.
  std::vector<Form*> forms;
  void PresentForm(Form& form) override {
    forms.push_back(&form);
    form.SetVisible(true);
  }

  /// Texts of all boxes so far, in order.
  std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    texts.reserve(shown.size());
    for (const MessageBox& box : shown) texts.push_back(box.text);
    return texts;
  }

  static BoxAnswer Default(BoxButtons buttons) {
    switch (buttons) {
      case BoxButtons::kYesNo:
        return BoxAnswer::kNo;
      case BoxButtons::kOkCancel:
        return BoxAnswer::kCancel;
      default:
        return BoxAnswer::kOk;
    }
  }
};

}  // namespace marlinset

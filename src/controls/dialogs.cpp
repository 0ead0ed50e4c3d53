// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/dialogs.h"

#include <algorithm>
#include <utility>

#include "controls/form.h"

namespace marlinset {

BoxAnswer Dialogs::Show(const MessageBox& box) {
  const bool asks = box.buttons != BoxButtons::kOk;
  if (asks) Asking.Emit();
  ++boxes_;
  try {
    const BoxAnswer answer = Present(box);
    --boxes_;
    if (asks && (answer == BoxAnswer::kYes || answer == BoxAnswer::kOk)) ++agreed_;
    return answer;
  } catch (...) {
    --boxes_;
    throw;
  }
}

bool Dialogs::Ask(std::string text, std::string facts, std::function<bool()> holds) {
  return Show({.text = std::move(text),
               .buttons = BoxButtons::kYesNo,
               .icon = BoxIcon::kQuestion,
               .remedy = std::move(facts),
               .holds = std::move(holds)}) == BoxAnswer::kYes;
}

void Dialogs::ShowModal(Form& form) {
  if (form.Visible()) return;
  if (std::find(forms_.begin(), forms_.end(), &form) == forms_.end()) forms_.push_back(&form);
  PresentForm(form);
}

bool Dialogs::Standing() const {
  return boxes_ > 0 || std::any_of(forms_.begin(), forms_.end(), [](const Form* f) { return f->Visible(); });
}

}  // namespace marlinset

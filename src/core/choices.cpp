// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/choices.h"

namespace marlinset {

const Choice* ChoiceOfBox(const ComboBox& box) {
  const auto* found = std::ranges::find_if(kChoices, [&](const Choice& choice) {
    return choice.control == box.Name() && choice.index == box.Index();
  });
  return found == kChoices.end() ? nullptr : found;
}

ComboBox& BoxOf(const FrmStart& form, ChoiceId id) {
  const Choice& choice = ChoiceOf(id);
  Control* control = form.Find(choice.control, choice.index);
  if (!control) throw NoSuchElement(choice.index);
  return static_cast<ComboBox&>(*control);
}

std::optional<int> CodeOf(const FrmStart& form, const Variables& vars, ChoiceId id) {
  std::optional<int> code;
  for (const VocabularyEntry& entry : ChoiceOf(id).vocabulary(vars)) {
    if (entry.description == BoxOf(form, id).Text()) code = entry.code;
  }
  return code;
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/form_printer.h"

namespace marlinset {

std::vector<std::string> PrintedForm::Texts() const {
  std::vector<std::string> texts;
  for (const PrintSheet& sheet : sheets) {
    for (const PrintItem& item : sheet) {
      if (item.repeated) continue;
      if (item.kind == PrintKind::kText) texts.push_back(item.text);
      if (item.kind == PrintKind::kCheck) texts.emplace_back(item.on ? "[x]" : "[ ]");
    }
  }
  return texts;
}

}  // namespace marlinset

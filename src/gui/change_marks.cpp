// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/change_marks.h"

#include <QWidget>
#include <set>
#include <string>
#include <utility>

#include "gui/parameter_model.h"
#include "gui/widgets/corner_mark.h"
#include "gui/widgets/look.h"
#include "link/whole_send.h"

namespace marlinset {

void ChangeMarks::Show(const std::vector<UnheldMessage>& changes) {
  QSet<QString> names;
  std::set<int> parameters;
  for (const UnheldMessage& change : changes) {
    for (const ControlName& control : change.controls) {
      names.insert(Shown(FullNameOf(std::string(control.name), control.index)));
      if (control.name == "udVal") parameters.insert(control.index);
    }
  }
  if (names.isEmpty() && marked_.isEmpty()) return;
  for (QWidget* field : window_.findChildren<QWidget*>()) {
    const QString name = field->objectName();
    if (names.contains(name))
      SetCornerMark(*field, true);
    else if (marked_.contains(name))
      SetCornerMark(*field, false);
  }
  if (auto* list = window_.findChild<ParameterModel*>()) list->ShowUnheld(parameters);
  marked_ = std::move(names);
}

}  // namespace marlinset

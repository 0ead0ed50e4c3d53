// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/storm/hands.h"

#include <map>

#include "tests/storm/world.h"

namespace marlinset {

void Hands::UseLink() {
  FrmStart& form = world_.rig.tool.form;
  const std::array<Control*, 9> controls{&form.bOpen,    &form.bClose,   &form.bSConfig,
                                         &form.bSend,    &form.bBroad,   &form.bGetID,
                                         &form.mnuInter, &form.mnuInter, &form.mnuOff};
  Control* control = world_.PickOf(controls);
  world_.Trace(control->FullName());
  control->OperatorClick();
}

void Hands::UseFiles() {
  constexpr std::array kFiles{"a.qcf", "b.qcf", "damaged.qcf", "empty.qcf", "nowhere/c.qcf", ".", "a.b.c"};
  world_.folder.Write("empty.qcf", "");
  if (world_.OneIn(3)) Damage();
  world_.rig.fileDialog.choices.clear();
  for (int i = world_.Pick(3); i > 0; --i)
    world_.rig.fileDialog.choices.emplace_back(world_.folder.File(world_.PickOf(kFiles)));
  world_.rig.files.room = world_.OneIn(8)
                              ? std::optional<std::size_t>(static_cast<std::size_t>(world_.Pick(4000)))
                              : std::nullopt;
  FrmStart& form = world_.rig.tool.form;
  const std::array<MenuItem*, 6> items{&form.mnuNew, &form.mnuOpen, &form.mnuOpen,
                                       &form.mnuSav, &form.mnuSave, &form.mnuSave};
  MenuItem* item = world_.PickOf(items);
  world_.Trace(item->Name());
  item->OperatorClick();
}

/// A saved file with some bytes changed, or cut.
void Hands::Damage() {
  std::string bytes = world_.folder.Read("a.qcf");
  if (bytes.empty()) return;
  for (int i = world_.Pick(4); i > 0; --i) world_.PickOf(bytes) = static_cast<char>(world_.Pick(256));
  if (world_.OneIn(3)) bytes.resize(static_cast<std::size_t>(world_.Pick(static_cast<int>(bytes.size()))));
  world_.folder.Write("damaged.qcf", bytes);
}

void Hands::Operate() {
  for (Form* form : world_.rig.tool.Forms()) {
    const bool overMainWindow = form != &world_.rig.tool.form;
    if (overMainWindow && form->Visible()) return Act(*form);
  }
  if (world_.OneIn(60)) {
    const bool active = world_.OneIn(2);
    world_.Trace(active ? "active" : "not active");
    return world_.rig.tool.SetActive(active);
  }
  Act(world_.rig.tool.form);
}

void Hands::Act(Form& form) {
  Control* control = PickControl(form);
  if (!control || (control == &world_.rig.tool.form.mnuExit && !world_.OneIn(4))) return;
  world_.Trace(control->FullName());
  if (world_.OneIn(12)) return control->OperatorHover();
  if (world_.OneIn(20)) return control->OperatorLeave();
  switch (control->Kind()) {
    case ControlKind::kCheckBox:
      control->OperatorCheck(world_.OneIn(2));
      break;
    case ControlKind::kComboBox:
      Choose(*control);
      break;
    case ControlKind::kListView:
      Choose(*control);
      break;
    case ControlKind::kScrollBar:
      control->OperatorScroll(world_.Pick(200));
      break;
    case ControlKind::kSpin:
      world_.OneIn(3) ? control->OperatorSpin(world_.Pick(400) - 40)
                      : control->OperatorStep(world_.OneIn(2), 1 + world_.Pick(5));
      break;
    case ControlKind::kTextBox:
      Type(*control);
      break;
    case ControlKind::kButton:
    case ControlKind::kMenuItem:
    case ControlKind::kOptionButton:
      control->OperatorClick();
      break;
    default:
      control->OperatorHover();
  }
}

/// Each array of controls as likely as a single control.
Control* Hands::PickControl(Form& form) {
  std::map<std::string, std::vector<Control*>> byName;
  for (Control* control : form.Controls()) {
    if (control->Enabled() && control->Visible()) byName[control->Name()].push_back(control);
  }
  if (byName.empty()) return nullptr;
  return world_.PickOf(std::next(byName.begin(), world_.Pick(static_cast<int>(byName.size())))->second);
}

void Hands::Choose(Control& control) {
  const int entries = static_cast<int>(control.Entries().size());
  if (world_.OneIn(10) && control.Kind() == ControlKind::kComboBox) return Type(control);
  if (entries > 0) control.OperatorSelect(world_.Pick(entries));
}
void Hands::Type(Control& control) {
  constexpr std::array kTexts{
      "",       "7",  "12345",    "Übung ß €",
      "take 3", "-1", "1080i/60", "a long text that no window of the unit has room for, by far"};
  constexpr std::u32string_view kKeys = U"a5 \bÄ-;";
  if (world_.OneIn(2)) {
    control.OperatorType(world_.PickOf(kTexts));
  } else {
    control.OperatorKey(world_.PickOf(kKeys));
  }
}

}  // namespace marlinset

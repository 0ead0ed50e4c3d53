// SPDX-License-Identifier: GPL-3.0-or-later
#include <map>

#include "tests/storm/world.h"

namespace marlinset {
namespace {

/// Changes some bytes of a saved file, or cuts it.
void Damage(World& world) {
  std::string bytes = world.folder.Read("a.qcf");
  if (bytes.empty()) return;
  for (int i = world.Pick(4); i > 0; --i) world.PickOf(bytes) = static_cast<char>(world.Pick(256));
  if (world.OneIn(3)) bytes.resize(static_cast<std::size_t>(world.Pick(static_cast<int>(bytes.size()))));
  world.folder.Write("damaged.qcf", bytes);
}

/// Picks each array of controls as often as a single control.
Control* PickControl(World& world, Form& form) {
  std::map<std::string, std::vector<Control*>> byName;
  for (Control* control : form.Controls()) {
    if (control->Enabled() && control->Visible()) byName[control->Name()].push_back(control);
  }
  if (byName.empty()) return nullptr;
  return world.PickOf(std::next(byName.begin(), world.Pick(static_cast<int>(byName.size())))->second);
}

void Type(World& world, Control& control) {
  constexpr std::array kTexts{
      "",       "7",  "12345",    "Übung ß €",
      "take 3", "-1", "1080i/60", "a long text that no window of the unit has room for, by far"};
  constexpr std::u32string_view kKeys = U"a5 \bÄ-;";
  if (world.OneIn(2)) {
    control.OperatorType(world.PickOf(kTexts));
  } else {
    control.OperatorKey(world.PickOf(kKeys));
  }
}

void Choose(World& world, Control& control) {
  const int entries = static_cast<int>(control.Entries().size());
  if (world.OneIn(10) && control.Kind() == ControlKind::kComboBox) return Type(world, control);
  if (entries > 0) control.OperatorSelect(world.Pick(entries));
}

void Act(World& world, Form& form) {
  Control* control = PickControl(world, form);
  if (!control || (control == &world.rig.tool.form.mnuExit && !world.OneIn(4))) return;
  world.Trace(control->FullName());
  if (world.OneIn(12)) return control->OperatorHover();
  if (world.OneIn(20)) return control->OperatorLeave();
  switch (control->Kind()) {
    case ControlKind::kCheckBox:
      control->OperatorCheck(world.OneIn(2));
      break;
    case ControlKind::kComboBox:
    case ControlKind::kListView:
      Choose(world, *control);
      break;
    case ControlKind::kScrollBar:
      control->OperatorScroll(world.Pick(200));
      break;
    case ControlKind::kSpin:
      world.OneIn(3) ? control->OperatorSpin(world.Pick(400) - 40)
                     : control->OperatorStep(world.OneIn(2), 1 + world.Pick(5));
      break;
    case ControlKind::kTextBox:
      Type(world, *control);
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

}  // namespace

void Operate(World& world) {
  for (Form* form : world.rig.tool.Forms()) {
    const bool overMainWindow = form != &world.rig.tool.form;
    if (overMainWindow && form->Visible()) return Act(world, *form);
  }
  if (world.OneIn(60)) {
    const bool active = world.OneIn(2);
    world.Trace(active ? "active" : "not active");
    return world.rig.tool.SetActive(active);
  }
  Act(world, world.rig.tool.form);
}

void UseLink(World& world) {
  FrmStart& form = world.rig.tool.form;
  const std::array<Control*, 9> controls{&form.bOpen,    &form.bClose,   &form.bSConfig,
                                         &form.bSend,    &form.bBroad,   &form.bGetID,
                                         &form.mnuInter, &form.mnuInter, &form.mnuOff};
  Control* control = world.PickOf(controls);
  world.Trace(control->FullName());
  control->OperatorClick();
}

void UseFiles(World& world) {
  constexpr std::array kFiles{"a.qcf", "b.qcf", "damaged.qcf", "empty.qcf", "nowhere/c.qcf", ".", "a.b.c"};
  world.folder.Write("empty.qcf", "");
  if (world.OneIn(3)) Damage(world);
  world.rig.fileDialog.choices.clear();
  for (int i = world.Pick(3); i > 0; --i)
    world.rig.fileDialog.choices.emplace_back(world.folder.File(world.PickOf(kFiles)));
  world.rig.files.room =
      world.OneIn(8) ? std::optional<std::size_t>(static_cast<std::size_t>(world.Pick(4000))) : std::nullopt;
  FrmStart& form = world.rig.tool.form;
  const std::array<MenuItem*, 6> items{&form.mnuNew, &form.mnuOpen, &form.mnuOpen,
                                       &form.mnuSav, &form.mnuSave, &form.mnuSave};
  MenuItem* item = world.PickOf(items);
  world.Trace(item->Name());
  item->OperatorClick();
}

}  // namespace marlinset

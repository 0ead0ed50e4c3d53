// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/storm/world.h"

#include <functional>
#include <map>

#include "history/scope.h"
#include "wire/frame.h"

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
Control* PickControl(World& world, Form& form, bool (*suits)(const Control&)) {
  std::map<std::string, std::vector<Control*>> byName;
  for (Control* control : form.Controls()) {
    if (control->Enabled() && control->Visible() && suits(*control))
      byName[control->Name()].push_back(control);
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

bool Any(const Control& /*control*/) {
  return true;
}

void Act(World& world, Form& form, bool (*suits)(const Control&) = Any) {
  Control* control = PickControl(world, form, suits);
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

/// Random bytes, or a sound frame with random content.
void Noise(World& world) {
  Bytes bytes(static_cast<std::size_t>(1 + world.Pick(24)));
  for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(world.Pick(world.OneIn(2) ? 256 : 8));
  world.rig.line.Inject(world.OneIn(2) ? bytes : EncodeFrame(bytes), world.rig.pump.Now() + world.Pick(50));
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

void Edit(World& world) {
  Act(world, world.rig.tool.form, [](const Control& control) {
    return BelongsToConfiguration(control) && control.Kind() != ControlKind::kLabel &&
           control.Kind() != ControlKind::kLine && control.Kind() != ControlKind::kFrame;
  });
}

void GoBack(World& world) {
  FrmStart& form = world.rig.tool.form;
  MenuItem& item = world.OneIn(2) ? form.mnuUndo : form.mnuRedo;
  world.Trace(item.Caption());
  for (int i = 1 + world.Pick(4); i > 0; --i) item.OperatorClick();
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

void ChangeWeather(World& world) {
  UnitLine& line = world.rig.line;
  UnitModel& unit = line.Unit();
  UnitFaults& faults = unit.Faults();
  const LineTime now = std::chrono::milliseconds{world.rig.pump.Now()};
  const struct {
    const char* name;
    std::function<void()> change;
  } changes[] = {
      {"lost answers", [&] { faults.drop += world.Pick(4); }},
      {"refused settings", [&] { faults.nak += world.Pick(4); }},
      {"damaged answers", [&] { faults.corrupt += world.Pick(3); }},
      {"doubled answers", [&] { faults.twice += world.Pick(4); }},
      {"late answers",
       [&] { faults.lateAcks = std::chrono::milliseconds{world.OneIn(2) ? 0 : world.Pick(300)}; }},
      {"late frames",
       [&] { faults.lateFrames = std::chrono::milliseconds{world.OneIn(2) ? 0 : world.Pick(300)}; }},
      {"silence", [&] { faults.mute = world.OneIn(2); }},
      {"pieces", [&] { faults.pieceBytes = static_cast<std::size_t>(world.Pick(4)); }},
      {"local mode", [&] { unit.SetLocal(world.OneIn(2)); }},
      {"standard", [&] { unit.SetStandard(world.Pick(10)); }},
      {"manual selection", [&] { unit.SetManual(world.OneIn(2)); }},
      {"video", [&] { unit.SetVideo(world.OneIn(2)); }},
      {"broadcast", [&] { unit.StartBroadcast(now); }},
      {"flood", [&] { unit.Flood(static_cast<std::size_t>(world.Pick(3000)), now); }},
      {"noise", [&] { Noise(world); }},
      {"event", [&] { line.RaiseEvent(world.Pick(1012)); }},
      {"unplugged", [&] { line.Vanish(); }},
      {"no permission", [&] { line.RefuseOpen(world.OneIn(2) ? "Permission denied" : ""); }},
      {"pace", [&] { line.SetPace(world.OneIn(2) ? 57600 : 0); }},
      {"mended", [&] { MendWeather(world); }},
  };
  const auto& one = world.PickOf(changes);
  world.Trace(one.name);
  one.change();
  line.Settle();
}

void MendWeather(World& world) {
  UnitModel& unit = world.rig.line.Unit();
  unit.Faults() = {};
  unit.SetLocal(false);
  unit.SetVideo(true);
  world.rig.line.SetPace(0);
  world.rig.line.RefuseOpen("");
  world.rig.line.Return();
}

}  // namespace marlinset

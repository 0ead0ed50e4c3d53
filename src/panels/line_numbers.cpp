// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/line_numbers.h"

#include <charconv>
#include <cstdlib>
#include <string>
#include <utility>

#include "base/finally.h"
#include "base/text.h"
#include "core/frm_start.h"
#include "core/variables.h"
#include "core/vitc_frames.h"
#include "link/setting_commands.h"

namespace marlinset {
namespace {

/// First line and first duplicate: they control the lines after them.
constexpr int kFirst = 1;
constexpr int kFirstDuplicate = 5;

/// The number that a text begins with, 0 if it begins with none.
int NumberIn(const std::string& text) {
  const std::string digits = Trim(text);
  int number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

void Move(SpinControl& spin, int lines) {
  spin.SetValue(spin.Value() + lines);
}

/// Whether the line `ahead` lines after `line` would be beyond the last line that `follower` can have.
bool IsBeyond(const SpinControl& follower, const SpinControl& line, int ahead) {
  return line.Value() + ahead > follower.Min();
}

}  // namespace

LineNumbers::LineNumbers(Variables& variables, FrmStart& form, SettingCommands& commands)
    : vars_(variables), form_(form), commands_(commands) {
  form_.upVitc1.OnChange([this](int index) { upVitc1_Change(index); });
  form_.oVITC.OnClick([this](int mode) { oVITC_Click(mode); });
  form_.chVITC.OnClick([this] { chVITC_Click(); });
  form_.chDups.OnClick([this] { chDups_Click(); });
  form_.chSync.OnClick([this] {
    ShowSyncLines(form_);
    vars_.ConfigSaved = false;
  });
}

/// A nested change leaves VitcChanging set for the outer one, which may still wait for the unit.
template <class Action>
void LineNumbers::WhileChanging(const Action& action) {
  const bool before = std::exchange(vars_.VitcChanging, true);
  Finally(action, [&] { vars_.VitcChanging = before; });
}

void LineNumbers::upVitc1_Change(int index) {
  if (vars_.VitcChanging) return;
  WhileChanging([&] { cSetControl(index); });
  vars_.ConfigSaved = false;
}

void LineNumbers::cSetControl(int index) {
  RunRules(index);
  if (commands_.Live()) SendLines();
}

void LineNumbers::RunRules(int index) {
  if (form_.chSync.On()) {
    LoadStuff(index);
  } else {
    VitcLines(index);
  }
}

void LineNumbers::VitcLines(int index) {
  if (index != kFirst && index != kFirstDuplicate) return;
  SpinControl& first = form_.upVitc1(index);
  SpinControl& second = form_.upVitc1(index + 1);
  SpinControl& third = form_.upVitc1(index + 2);
  switch (form_.vitcModes.Selected()) {
    case 0:
      ShowNumber(index);
      return;
    case 1:
      if (IsBeyond(second, first, 1)) Move(first, -1);  // only one line, however far beyond
      second.SetValue(first.Value() + 1);
      break;
    case 2:
      while (IsBeyond(third, first, 2)) Move(first, -1);
      third.SetValue(first.Value() + 2);
      second.SetValue(first.Value() + 1);
      break;
    default:
      return;
  }
  for (const int line : FrmStart::kVitcLineIndices) ShowNumber(line);
}

void LineNumbers::ShowNumber(int index) {
  form_.tLineNumber(index).SetText(std::to_string(form_.upVitc1(index).Value()));
}

void LineNumbers::LoadStuff(int index) {
  if (form_.vitcModes.Selected() != 0) return;
  if (form_.chDups.On() && index == kFirst) MoveDuplicateWithLine();
  for (const int line : {kFirst, kFirstDuplicate}) {
    form_.tLineNumber(line).SetText(std::to_string(std::abs(form_.upVitc1(line).Value())));
  }
}

void LineNumbers::MoveDuplicateWithLine() {
  SpinControl& line = form_.upVitc1(kFirst);
  SpinControl& duplicate = form_.upVitc1(kFirstDuplicate);
  const int shown = NumberIn(form_.tLineNumber(kFirst).Text());
  if (shown > line.Value()) {
    Move(duplicate, -1);
  } else if (shown < line.Value()) {
    if (IsBeyond(duplicate, duplicate, 1)) {
      Move(line, -1);
    } else {
      Move(duplicate, 1);
    }
  }
  if (line.Value() < duplicate.Value()) return;
  if (IsBeyond(duplicate, line, 1)) Move(line, -1);
  duplicate.SetValue(line.Value() + 1);
}

void LineNumbers::SetDupsDisplay() {
  WhileChanging([&] { RunRules(kFirst); });
  ShowDuplicateLines(form_);
}

/// The lines of the new mode get their numbers at the next change of the first line.
void LineNumbers::oVITC_Click(int mode) {
  ShowVitcFrames(form_, mode);
  ShowSyncChoice(form_, mode);
  if (mode != 0) form_.chSync.SetValue(0);
  if (!form_.mnuInter.Checked()) return;  // sends to a unit in local mode, too
  commands_.Send(CommandId::kVitcSource, Sender::kPanel);
  SendLines();
}

void LineNumbers::chVITC_Click() {
  if (commands_.Live()) {
    commands_.Send(form_.chVITC.On() ? CommandId::kVitcOn : CommandId::kVitcOff, Sender::kPanel);
  }
  vars_.ConfigSaved = false;
}

void LineNumbers::chDups_Click() {
  SetDupsDisplay();
  if (commands_.Live()) SendLines();
  vars_.ConfigSaved = false;
}

void LineNumbers::SendLines() {
  commands_.Send(CommandId::kVitcLines, Sender::kPanel);
}

}  // namespace marlinset

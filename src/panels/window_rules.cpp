// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/window_rules.h"

#include <algorithm>

#include "base/finally.h"
#include "controls/guard.h"
#include "core/frm_start.h"
#include "core/variables.h"
#include "link/setting_commands.h"
#include "picture/geometry.h"

namespace marlinset {

WindowRules::WindowRules(Variables& variables, FrmStart& form, SettingCommands& commands)
    : vars_(variables), form_(form), commands_(commands) {
  for (auto* boxes : {&form_.chField, &form_.chSym}) boxes->OnClick([this](int row) { WidthChanged(row); });
  for (auto* boxes : {&form_.chDblSize, &form_.chSlate}) boxes->OnClick([this](int row) { RowChanged(row); });
  for (auto* spins : {&form_.udVer, &form_.udHor}) spins->OnChange([this](int row) { RowChanged(row); });
  form_.chOnOff.OnClick([this](int row) { OnOffChanged(row); });
  form_.VScroll1.OnChange([this] { form_.pWinIn.SetTop(FrmStart::kRowHeight - form_.VScroll1.Value()); });
}

bool WindowRules::TakesMove(int row) const {
  if (!commands_.HasWindow(row) || !form_.lName(row).Visible()) return false;
  const auto takes = [](const Control& spin) { return spin.Enabled() && spin.Visible(); };
  return takes(form_.udVer(row)) && takes(form_.udHor(row));
}

void WindowRules::Move(int row, int left, int top) {
  if (!form_.lName.Has(row)) return;
  form_.GetGuard().RunFor(form_.lName(row), [&] {
    if (!TakesMove(row)) return;
    form_.udVer(row).Settle();
    const auto limits = MoveLimitsOf(form_, vars_, row);
    const PicturePlan plan = PlanPicture(form_, vars_);
    const PlannedWindow* window = plan.Find(row);
    if (!limits || !window) return;
    const CellRect& place = window->place;
    left = std::clamp(left, limits->left, limits->right);
    top = std::clamp(top / limits->step * limits->step, limits->top, limits->bottom);
    if (left == place.left && top == place.top) return;
    Finally(
        [&] {
          moving_ = true;
          if (top != place.top) form_.udVer(row).SetValue(top);
          if (left != place.left) form_.udHor(row).SetValue(left);
        },
        [this] { moving_ = false; });
    RowChanged(row);
  });
}

/// Sends even in local mode: the unit answers for itself.
void WindowRules::RowChanged(int row) {
  if (moving_) return;
  if (form_.mnuInter.Checked()) commands_.SendWindowAll(row);
  vars_.ConfigSaved = false;
}

void WindowRules::WidthChanged(int row) {
  LimitToWidth(row);
  RowChanged(row);
}

/// A wider window stops earlier at the right. A window without field digit or symbol rejects the tick for it.
/// Removing that tick is a click of its own; so after a rejected field digit, room for the symbol is reserved
/// twice until the next click.
void WindowRules::LimitToWidth(int row) {
  const auto has = [](const auto& rows, int index) {
    return index >= 0 && static_cast<std::size_t>(index) < rows.size();
  };
  if (!has(vars_.CharWindows, row) || !has(vars_.CharMaxPositions, vars_.CurCharMaxRow)) return;
  const CharWindowRec window = At(vars_.CharWindows, row);
  if (!form_.udHor.Has(row)) return;
  form_.udHor(row).SetMax(At(vars_.CharMaxPositions, vars_.CurCharMaxRow).MaxHorPosn - window.Length);
  const auto reserve = [&](const ControlArray<CheckBox>& boxes, int length) {
    if (!boxes.Has(row)) return;
    if (length == 0) boxes(row).SetValue(0);
    if (length == 0 || !boxes(row).On()) return;
    SpinControl& horizontal = form_.udHor(row);
    horizontal.SetMax(horizontal.Max() - length);
  };
  reserve(form_.chField, window.FieldLength);
  reserve(form_.chSym, window.SymbolLength);
}

/// Units show a window that was just switched on only after the whole inserter went off and on.
void WindowRules::OnOffChanged(int row) {
  if (commands_.Live()) {
    commands_.SendWindowAll(row);
    commands_.Send(CommandId::kCharOff, Sender::kPanel);
    if (commands_.Send(CommandId::kCharOn, Sender::kPanel)) {
      form_.mnuCharOff.SetChecked(false);
      form_.mnuCharOn.SetChecked(true);
    }
  }
  vars_.ConfigSaved = false;
}

}  // namespace marlinset

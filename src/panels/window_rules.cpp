// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/window_rules.h"

#include "core/frm_start.h"
#include "core/variables.h"
#include "link/setting_commands.h"

namespace marlinset {

WindowRules::WindowRules(Variables& variables, FrmStart& form, SettingCommands& commands)
    : vars_(variables), form_(form), commands_(commands) {
  for (auto* boxes : {&form_.chField, &form_.chSym}) boxes->OnClick([this](int row) { WidthChanged(row); });
  for (auto* boxes : {&form_.chDblSize, &form_.chSlate}) boxes->OnClick([this](int row) { RowChanged(row); });
  for (auto* spins : {&form_.udVer, &form_.udHor}) spins->OnChange([this](int row) { RowChanged(row); });
  form_.chOnOff.OnClick([this](int row) { OnOffChanged(row); });
  form_.VScroll1.OnChange([this] { form_.pWinIn.SetTop(FrmStart::kRowHeight - form_.VScroll1.Value()); });
}

/// Sends even in local mode: the unit answers for itself.
void WindowRules::RowChanged(int row) {
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

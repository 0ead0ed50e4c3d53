// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/window_highlight.h"

#include "base/finally.h"
#include "core/frm_start.h"
#include "core/variables.h"
#include "core/window_ticks.h"
#include "link/setting_commands.h"

namespace marlinset {
namespace {

constexpr int kHighlightRestMs = 250;

}  // namespace

WindowHighlight::WindowHighlight(Variables& variables, FrmStart& form, SettingCommands& commands)
    : vars_(variables), form_(form), commands_(commands) {
  ConnectRows();
  ConnectSurroundings();
  form_.lName.OnMouseMove([this](int row) { Rest(row); });
  form_.Timer1.OnTick([this] { Rested(); });
}

void WindowHighlight::ConnectRows() {
  const auto connect = [this](EventSource& surface) {
    surface.OnMouseMove([this](int row) { Highlight(row); });
    surface.OnLostFocus([this](int row) { Leave(row); });
  };
  for (const WindowTick& tick : kWindowTicks) connect(form_.*tick.boxes);
  for (auto* echoes : {&form_.tHor, &form_.tVert}) connect(*echoes);
  for (auto* spins : {&form_.udHor, &form_.udVer}) connect(*spins);
}

void WindowHighlight::ConnectSurroundings() {
  EventSource* const surfaces[] = {&form_.bName,    &form_.bOn,       &form_.bSlate,   &form_.bDblHeight,
                                   &form_.bSymbol,  &form_.bField,    &form_.bHor,     &form_.bVer,
                                   &form_.fAttribs, &form_.fDownConv, &form_.fVirtual, &form_.fWindows,
                                   &form_.fWinMess, &form_.pWinOut,   &form_};
  for (EventSource* surface : surfaces) surface->OnMouseMove([this] { ClearOthers(kNoIndex); });
  // The area right around the names also ends a rest on one of them.
  EventSource* const aroundNames[] = {&form_.fPosition, &form_.pWinIn};
  for (EventSource* surface : aroundNames) {
    surface->OnMouseMove([this] {
      form_.Timer1.SetEnabled(false);
      ClearOthers(kNoIndex);
    });
  }
}

void WindowHighlight::Rest(int row) {
  form_.Timer1.SetEnabled(false);
  restingRow_ = row;
  form_.Timer1.SetInterval(kHighlightRestMs);
  form_.Timer1.SetEnabled(true);
}

/// A rest highlights its row once, even if that fails: a timer that kept running would show the box again and
/// again, faster than anybody can close it.
void WindowHighlight::Rested() {
  Finally([this] { Highlight(restingRow_); }, [this] { form_.Timer1.SetEnabled(false); });
}

void WindowHighlight::Highlight(int row) {
  if (!form_.mnuInter.Checked()) return;
  ClearOthers(row);
  if (!IsHighlighted(row)) commands_.SendWindowInteractive(row, kHighlightOn);
}

/// Sends the end of the highlight once more to a row that counts as not highlighted, whatever the unit made
/// of an earlier message.
void WindowHighlight::Leave(int row) {
  if (form_.mnuInter.Checked() && !IsHighlighted(row)) commands_.SendWindowInteractive(row, kHighlightOff);
}

/// Clears all rows except `row`; kNoIndex excepts none. The windows may be replaced while a message is on its
/// way.
void WindowHighlight::ClearOthers(int row) {
  if (!form_.mnuInter.Checked()) return;
  for (int other = 0; other < static_cast<int>(vars_.CharWindows.size()); ++other) {
    if (other != row && IsHighlighted(other)) commands_.SendWindowInteractive(other, kHighlightOff);
  }
}

bool WindowHighlight::IsHighlighted(int row) const {
  return commands_.HasWindow(row) && At(vars_.CharWindows, row).Highlighted;
}

}  // namespace marlinset

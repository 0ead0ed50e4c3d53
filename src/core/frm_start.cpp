// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/frm_start.h"

#include <cstdlib>
#include <string>

#include "platform/ms_comm.h"

namespace marlinset {

FrmStart::FrmStart(TimerQueue& timers, Guard& guard)
    : Form("frmStart", guard),
      InterTime(timers, guard, "InterTime", 5000),
      dPause(timers, guard, "dPause", 10000),
      timeRes(timers, guard, "timeRes", 10000),
      TimerNew(timers, guard, "TimerNew", 10000),
      tClearStat(timers, guard, "tClearStat", 10000),
      Timer1(timers, guard, "Timer1", 250),
      AboutTimer1(timers, guard, "AboutTimer1", 1000) {
  for (const int i : oVITC.Indices()) oVITC(i).Join(vitcModes);
  for (const int i : oView.Indices()) oView(i).Join(views);
  SetCaptions();
  SetStartState();
}

// Here, since every file that ends a tool would compile the ends of all controls.
FrmStart::~FrmStart() = default;

void FrmStart::SetStartState() {
  mnuOff.SetChecked(true);
  mnuCom1.SetChecked(true);
  mnuCharOn.SetChecked(true);
  oVITC(0).SetValue(true);
  bSChanges.SetEnabled(false);
  bStop.SetEnabled(false);
  mnuUndo.SetEnabled(false);
  mnuRedo.SetEnabled(false);
  pComBut.SetBackColor(kRed);
  HideImages();
  for (const int i : {5, 6, 7}) {
    upVitc1(i).SetVisible(false);
    tLineNumber(i).SetVisible(false);
  }
  for (Control* tool : {static_cast<Control*>(&tInput), static_cast<Control*>(&bGetID),
                        static_cast<Control*>(&bSend), static_cast<Control*>(&bBroad)}) {
    tool->SetVisible(false);
  }
}

MenuItem& FrmStart::ComMenu(int port) {
  MenuItem* const items[] = {&mnuCom1, &mnuCom2, &mnuCom3, &mnuCom4};
  return *items[port - kLowestPort];
}

bool FrmStart::HasWindowRow(int row) const {
  bool whole = true;
  ForWindowRowOf(*this, [&](const auto& array) { whole = whole && array.Has(row); });
  return whole;
}

bool FrmStart::HasParameterRow(int row) {
  bool whole = true;
  ForParameterRow([&](const auto& array) { whole = whole && array.Has(row); });
  return whole;
}

void FrmStart::SetPlace(const WindowPlace& place) {
  place_ = place;
  Changed.Emit();
}

void FrmStart::SetDocks(std::string docks) {
  docks_ = std::move(docks);
  Changed.Emit();
}

void FrmStart::ShowTraffic(Color color) {
  pComBut.SetBackColor(color);
  HideImages();
}

void FrmStart::HideImages() {
  for (const int i : Image1.Indices()) Image1(i).SetVisible(false);
}

void FrmStart::ShowVideoPicture(int index) {
  StatBar(kVideoPanel).SetPicture(Image2(index).FullName());
}

void FrmStart::SetInteractive(bool interactive, bool polls) {
  InterTime.SetEnabled(polls);
  mnuInter.SetChecked(interactive);
  mnuOff.SetChecked(!interactive);
}

bool FrmStart::ModelIsQ() const {
  return StatBar(kModelPanel).Text().ends_with("7340Q");
}

}  // namespace marlinset

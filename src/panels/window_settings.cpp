// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/window_settings.h"

#include <algorithm>
#include <array>

#include "core/frm_start.h"
#include "core/load_arrays.h"
#include "core/variables.h"
#include "platform/platform.h"
#include "platform/settings_keys.h"

namespace marlinset {
namespace {

struct TimeOut {
  MenuItem FrmStart::*menu;
  int milliseconds;  ///< 0: never
};
constexpr std::array<TimeOut, 5> kTimeOuts = {{{&FrmStart::mnu10, 10000},
                                               {&FrmStart::mnu20, 20000},
                                               {&FrmStart::mnu30, 30000},
                                               {&FrmStart::mnu60, 60000},
                                               {&FrmStart::mnuNever, 0}}};
constexpr int kLastView = 5;
constexpr int kLastRememberedView = 4;

/// Room around the panel of the character windows, the largest one, in twips.
constexpr int kRoomBelow = 1500;
constexpr int kRoomBeside = 550;

}  // namespace

WindowSettings::WindowSettings(Platform& platform, Variables& variables, FrmStart& form,
                               ReferenceDatabase& database)
    : platform_(platform), vars_(variables), form_(form), database_(database) {
  form_.mnuCommD.OnClick([this] { setCommD(); });
  for (int i = 0; i < static_cast<int>(kTimeOuts.size()); ++i) {
    (form_.*At(kTimeOuts, i).menu).OnClick([this, i] { SetTimer(i + 1); });
  }
  form_.tClearStat.OnTick([this] { ClearStatus(); });
}

void WindowSettings::SetFromReg() {
  RestorePlace();
  form_.mnuCommD.SetChecked(SettingNumber(platform_.settings, kLinkToolsSetting) == 0);
  setCommD();
  const int page = SettingNumber(platform_.settings, kViewSetting);
  form_.oView(page >= 0 && page <= kLastView ? page : 0).SetValue(true);
  SetTimer(SettingNumber(platform_.settings, kTimeOutSetting));
}

void WindowSettings::RestorePlace() {
  const WindowMeasures& sizes = form_.measures;
  WindowPlace place;
  const auto measure = [this](const Setting& setting, int byDefault) {
    return std::max(0, SettingNumber(platform_.settings, setting.key, std::to_string(byDefault)));
  };
  place.height =
      measure(kHeightSetting, sizes.menuBarHeight + sizes.statusBarHeight + sizes.windowsHeight + kRoomBelow);
  place.width = measure(kWidthSetting, sizes.windowsWidth + kRoomBeside);
  place.top = measure(kTopSetting, (sizes.screenHeight - place.height) / 2);
  place.left = measure(kLeftSetting, (sizes.screenWidth - place.width) / 2);
  form_.SetPlace(place);
  form_.SetDocks(SettingText(platform_.settings, kDocksSetting));
}

void WindowSettings::PutToReg() {
  const auto save = [this](const Setting& setting, std::string_view value) {
    platform_.settings.SaveSetting(setting.key, value);
  };
  const WindowPlace& place = form_.Place();
  save(kHeightSetting, std::to_string(place.height));
  save(kWidthSetting, std::to_string(place.width));
  save(kTopSetting, std::to_string(place.top));
  save(kLeftSetting, std::to_string(place.left));
  if (!form_.Docks().empty()) save(kDocksSetting, form_.Docks());
  save(kProgramFolderSetting, vars_.AppPath);
  try {
    save(kDatabaseVersionSetting, database_.DatabaseVersion());
  } catch (const RuntimeError&) {
    // The database went away during the run; that must not keep the program from ending.
  }
  save(kProgramVersionSetting, MARLINSET_VERSION);
  save(kLinkToolsSetting, form_.mnuCommD.Checked() ? "1" : "0");
  for (int view = 1; view <= kLastRememberedView; ++view) {
    if (form_.oView(view).Value()) save(kViewSetting, std::to_string(view));
  }
  for (int i = 0; i < static_cast<int>(kTimeOuts.size()); ++i) {
    if ((form_.*At(kTimeOuts, i).menu).Checked()) save(kTimeOutSetting, std::to_string(i + 1));
  }
  save(kModelSetting, vars_.HardwareType);
}

void WindowSettings::setCommD() {
  const bool show = !form_.mnuCommD.Checked();
  form_.mnuCommD.SetChecked(show);
  Control* const tools[] = {&form_.tInput, &form_.bGetID, &form_.bSend, &form_.bBroad};
  for (Control* tool : tools) {
    tool->SetVisible(show);
    if (tool != &form_.tInput) tool->SetEnabled(show);
  }
}

void WindowSettings::SetTimer(int choice) {
  const int last = static_cast<int>(kTimeOuts.size());
  const TimeOut& timeOut = At(kTimeOuts, choice >= 1 && choice <= last ? choice - 1 : 0);
  for (const TimeOut& other : kTimeOuts) (form_.*other.menu).SetChecked(other.menu == timeOut.menu);
  if (timeOut.milliseconds > 0) form_.tClearStat.SetInterval(timeOut.milliseconds);
  form_.tClearStat.SetEnabled(timeOut.milliseconds > 0);
}

void WindowSettings::ClearStatus() {
  if (form_.mnuInter.Checked() || (busy_ && busy_())) return;
  for (const int panel : form_.StatBar.Indices()) form_.StatBar(panel).SetText("");
  form_.ShowVideoPicture(FrmStart::kVideoUnknown);
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/picture_rules.h"

#include "core/frm_start.h"
#include "core/variables.h"
#include "panels/remembered_tick.h"
#include "panels/window_rules.h"
#include "platform/file_dialog.h"
#include "platform/platform.h"
#include "platform/settings_keys.h"

namespace marlinset {

PictureRules::PictureRules(Platform& platform, const Variables& variables, FrmStart& form,
                           WindowRules& windows)
    : platform_(platform), vars_(variables), form_(form), windows_(windows) {
  RememberTick(platform_, form_.mnuPicture, kPictureSetting);
  RememberTick(platform_, form_.mnuSafe, kSafeFramesSetting);
  RememberTick(platform_, form_.mnuSlate, kSlateSetting);
  still_ = SettingText(platform_.settings, kStillSetting);
  form_.mnuNoStill.SetEnabled(!still_.empty());
  form_.mnuStill.OnClick([this] { AskForStill(); });
  form_.mnuNoStill.OnClick([this] { TakeStill({}); });
}

PicturePlan PictureRules::Plan() const {
  return PlanPicture(form_, vars_);
}

std::optional<MoveLimits> PictureRules::LimitsOf(int row) const {
  return MoveLimitsOf(form_, vars_, row);
}

void PictureRules::Move(int row, int left, int top) {
  windows_.Move(row, left, top);
}

void PictureRules::AskForStill() {
  const auto file = AskToOpen(platform_.fileDialog, {.CancelError = true,
                                                     .Filter = "Pictures|" + stillPatterns,
                                                     .Flags = kHideReadOnly,
                                                     .FileName = still_,
                                                     .InitDir = LastFolder(platform_.settings, vars_.AppPath),
                                                     .DialogTitle = "Background of the Picture"});
  if (file) TakeStill(*file);
}

void PictureRules::TakeStill(const std::string& file) {
  if (showStill) showStill(file);
  still_ = file;
  platform_.settings.SaveSetting(kStillSetting.key, still_);
  form_.mnuNoStill.SetEnabled(!still_.empty());
}

}  // namespace marlinset

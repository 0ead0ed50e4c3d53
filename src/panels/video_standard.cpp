// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/video_standard.h"

#include "core/frm_start.h"
#include "core/panel_setup.h"
#include "core/variables.h"

namespace marlinset {

VideoStandard::VideoStandard(Variables& variables, FrmStart& form, PanelSetup& panels)
    : vars_(variables), form_(form), panels_(panels) {
  form_.comVS.OnClick([this] { Click(); });
  form_.comVS.OnChange([this] { TakeTypingBack(); });
  for (auto* positions : {&form_.udVer, &form_.udHor}) {
    positions->OnSettle([this](int) { panels_.SettlePositionLimits(); });
  }
  form_.comVS.OnKey([this](int, KeyPress&) { TakeTypingBack(); });
}

void VideoStandard::ApplyStandardLimits() {
  panels_.FindCharMaxRow();
  for (int row = 0; row <= UBound(vars_.CharWindows); ++row) panels_.SetPositionLimits(row);
  panels_.SetLineLimits(PanelSetup::LineValues::kKeep);
}

void VideoStandard::Click() {
  if (form_.comVS.ListIndex() >= 0) vars_.VsLastIndex = static_cast<std::uint8_t>(form_.comVS.ListIndex());
  panels_.FillProcessModes();
  ApplyStandardLimits();
}

void VideoStandard::TakeTypingBack() {
  if (form_.comVS.ListCount() >= 1) form_.comVS.PutBack(vars_.VsLastIndex);
}

}  // namespace marlinset

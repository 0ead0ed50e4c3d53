// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/position_limits.h"

#include "core/choices.h"
#include "core/frm_start.h"
#include "core/variables.h"

namespace marlinset {
namespace {

constexpr int kHdHardware = 1000;
constexpr int kSdHardware = 200;

}  // namespace

bool IsOffered(const CharMaxPosRec& limits) {
  return limits.HardwareID == kHdHardware || limits.HardwareID == kSdHardware;
}

int PositionLimitsRow(const FrmStart& form, const Variables& variables) {
  const std::string& standard = form.comVS.Text();
  const std::string& size = BoxOf(form, ChoiceId::kFontSize).Text();
  int inForce = variables.CurCharMaxRow;
  int row = 0;
  for (const CharMaxPosRec& limits : variables.CharMaxPositions) {
    if (limits.VideoStandard == standard && limits.Description == size) inForce = row;
    ++row;
  }
  return inForce;
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "picture/geometry.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <string_view>
#include <utility>

#include "base/text.h"
#include "core/choices.h"
#include "core/font_sizes.h"
#include "core/frm_start.h"
#include "core/position_limits.h"
#include "core/variables.h"
#include "core/window_ticks.h"
#include "link/command_table.h"
#include "picture/samples.h"

namespace marlinset {
namespace {

constexpr auto kNarrowStandards = std::to_array<std::string_view>({"NTSC", "PAL", "525i/60", "625i/50"});

/// The row of limits in force, null if there is none.
const CharMaxPosRec* LimitsInForce(const FrmStart& form, const Variables& vars) {
  const int row = PositionLimitsRow(form, vars);
  return row >= 0 && row < static_cast<int>(vars.CharMaxPositions.size()) ? &At(vars.CharMaxPositions, row)
                                                                          : nullptr;
}

bool HasMessage(const FrmStart& form, const CharWindowRec& window) {
  return window.Name == kTextWindow && !form.tWinMess.Text().empty();
}

int Columns(const FrmStart& form, int row, const CharWindowRec& window) {
  int columns = TickedLength(form, row, window);
  if (HasMessage(form, window)) {
    columns += static_cast<int>(LengthOf(MessageText(form.tWinMess.Text()))) - window.Length;
  }
  return std::max(columns, 0);
}

CellRect PlaceOf(const FrmStart& form, int row, const CharWindowRec& window) {
  const FontSize& size = FontSizeInForce(form);
  return {window.Left, size.RowOf(window.Top) * size.step, Columns(form, row, window),
          size.step * (form.chDblSize(row).On() ? 2 : 1)};
}

PlannedWindow Planned(const FrmStart& form, int row, const CharWindowRec& window) {
  PlannedWindow planned;
  planned.row = row;
  planned.name = form.lName(row).Caption();
  planned.place = PlaceOf(form, row, window);
  planned.on = form.chOnOff(row).On();
  planned.slate = form.chSlate(row).On();
  SampleParts parts{.name = window.Name};
  if (HasMessage(form, window)) parts.message = MessageText(form.tWinMess.Text());
  if (form.chSym(row).On()) parts.symbol = window.SymbolLength;
  if (form.chField(row).On()) parts.field = window.FieldLength;
  planned.sample = SampleOf(parts, planned.place.columns);
  return planned;
}

/// The picture of the selected standard, or why there is none.
void PlanArea(const FrmStart& form, const Variables& vars, PicturePlan& plan) {
  const std::string& standard = form.comVS.Text();
  const CharMaxPosRec* inForce = LimitsInForce(form, vars);
  const auto fail = [&](std::string_view what) {
    plan.trouble = "The reference database has " + std::string(what) + " for " +
                   (standard.empty() ? "a setup without a video standard" : standard) + ".";
  };
  int top = 0;
  int bottom = 0;
  bool found = false;
  for (const CharMaxPosRec& limits : vars.CharMaxPositions) {
    if (limits.VideoStandard != standard || !IsOffered(limits)) continue;
    if (limits.MinVertPosn > limits.MaxVertPosn) return fail("limits of vertical positions turned round");
    const int end = limits.MaxVertPosn + FontSizeOf(limits.Description).step;
    top = found ? std::min<int>(top, limits.MinVertPosn) : limits.MinVertPosn;
    bottom = found ? std::max(bottom, end) : end;
    found = true;
  }
  if (!found || !inForce) return fail("no positions of character windows");
  if (inForce->MaxHorPosn < inForce->MinHorPosn) return fail("limits of horizontal positions turned round");
  if (inForce->MaxHorPosn < 1) return fail("no columns");
  plan.firstColumn = inForce->MinHorPosn;
  plan.area = CellRect{0, top, inForce->MaxHorPosn, bottom - top};
}

/// Styles are named "White on Black Box" or "Black with Outline": the colour before the word box is the
/// box's, the first other one the letters'. A box without a colour contrasts with the letters.
LetterLook LookOf(std::string_view style) {
  using Box = LetterLook::Box;
  static constexpr std::pair<std::string_view, Box> kColours[] = {
      {"BLACK", Box::kDark}, {"GREY", Box::kGrey}, {"GRAY", Box::kGrey}, {"WHITE", Box::kLight}};
  std::vector<Box> colours;
  LetterLook look;
  std::istringstream words(UpperOf(style));
  bool boxed = false;
  for (std::string word, before; words >> word; before = word) {
    for (const auto& [name, colour] : kColours) {
      if (word.starts_with(name)) colours.push_back(colour);
    }
    look.outlined = look.outlined || word.starts_with("OUTLINE");
    if (boxed || !word.starts_with("BOX")) continue;
    boxed = true;
    const auto isOfBox = [&before](const auto& colour) {
      return before.starts_with(colour.first) && !before.ends_with(',');
    };
    const auto* ofBox = std::ranges::find_if(kColours, isOfBox);
    if (ofBox == std::end(kColours)) continue;
    look.box = ofBox->second;
    colours.pop_back();
  }
  if (!colours.empty()) look.white = colours.front() != Box::kDark;
  if (colours.empty() && look.box == Box::kLight) look.white = false;
  if (boxed && look.box == Box::kNone) look.box = look.white ? Box::kDark : Box::kLight;
  return look;
}

}  // namespace

bool CellRect::Contains(const CellRect& other) const {
  return other.left >= left && other.top >= top && other.Right() <= Right() && other.Bottom() <= Bottom();
}

bool CellRect::Overlaps(const CellRect& other) const {
  return std::max(left, other.left) < std::min(Right(), other.Right()) &&
         std::max(top, other.top) < std::min(Bottom(), other.Bottom());
}

bool IsShown(const PlannedWindow& window, bool slate) {
  return window.on && (slate || !window.slate);
}

bool CoverEachOther(const PlannedWindow& one, const PlannedWindow& other) {
  return one.on && other.on && one.slate == other.slate && one.place.Overlaps(other.place);
}

const PlannedWindow* PicturePlan::Find(int row) const {
  const auto found = std::ranges::find(windows, row, &PlannedWindow::row);
  return found == windows.end() ? nullptr : &*found;
}

PicturePlan PlanPicture(const FrmStart& form, const Variables& variables) {
  PicturePlan plan;
  plan.wide = std::ranges::find(kNarrowStandards, form.comVS.Text()) == kNarrowStandards.end();
  plan.look = LookOf(BoxOf(form, ChoiceId::kCharStyle).Text());
  PlanArea(form, variables, plan);
  int row = 0;
  for (const CharWindowRec& window : variables.CharWindows) {
    if (form.HasWindowRow(row) && form.lName(row).Visible()) {
      plan.windows.push_back(Planned(form, row, window));
    }
    ++row;
  }
  return plan;
}

std::optional<MoveLimits> MoveLimitsOf(const FrmStart& form, const Variables& variables, int row) {
  const CharMaxPosRec* inForce = LimitsInForce(form, variables);
  const bool isThere = row >= 0 && row < static_cast<int>(variables.CharWindows.size());
  if (!inForce || !isThere || !form.HasWindowRow(row)) return std::nullopt;
  const FontSize& size = FontSizeInForce(form);
  const MoveLimits limits{.left = 0,
                          .right = inForce->MaxHorPosn - Columns(form, row, At(variables.CharWindows, row)),
                          .top = size.smallestRow * size.step,
                          .bottom = inForce->MaxVertPosn / size.step * size.step,
                          .step = size.step};
  if (limits.right < limits.left || limits.bottom < limits.top) return std::nullopt;
  return limits;
}

}  // namespace marlinset

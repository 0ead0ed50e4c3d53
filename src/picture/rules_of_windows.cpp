// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cstdlib>

#include "base/text.h"
#include "core/font_sizes.h"
#include "picture/remark_rules.h"

namespace marlinset {
namespace {

std::string Number(int number) {
  return std::to_string(number);
}

/// Why a window is not within the picture's columns; empty if it is.
std::string Sideways(const PlannedWindow& window, const PicturePlan& plan) {
  const CellRect& place = window.place;
  const std::string name = Quoted(window.name);
  const int first = std::max(plan.firstColumn, plan.area->left);
  const int last = plan.area->Right() - place.columns;
  if (place.left >= first && place.left <= last) return {};
  if (last < first) {
    return name + " is " + Number(place.columns) + " columns wide, more than the picture has for it: take " +
           "Symbol or Field off, or shorten its text.";
  }
  if (place.left < first) {
    return name + " begins left of the picture: set Horizontal to " + Number(first) + " or more.";
  }
  return name + " reaches beyond the right edge of the picture: set Horizontal to " + Number(last) +
         " or less.";
}

/// Why a window is not within the picture's height; empty if it is.
std::string UpOrDown(const PlannedWindow& window, const PicturePlan& plan, const FontSize& size) {
  const CellRect& place = window.place;
  const std::string name = Quoted(window.name);
  const int first = (plan.area->top + size.step - 1) / size.step * size.step;
  const int last = (plan.area->Bottom() - place.units) / size.step * size.step;
  if (place.top < plan.area->top) {
    return name + " begins above the picture: set Vertical to " + Number(first) + " or more.";
  }
  if (place.Bottom() <= plan.area->Bottom()) return {};
  if (last < std::max(first, size.smallestRow * size.step)) {
    return name + " is higher than the picture: switch Dbl Height off or choose a smaller font size.";
  }
  return name + " reaches below the picture: set Vertical to " + Number(last) + " or less.";
}

/// How to get to a row of the font size. The spin may still have the limits of another size, which the choice
/// of the video standard renews.
std::string RowAdvice(const SpinControl& vertical, int shown, int step) {
  const int first =
      vertical.Provisional() ? shown : std::max((vertical.Lowest() + step - 1) / step * step, shown);
  const int last = vertical.Provisional() ? shown : vertical.Highest() / step * step;
  if (first <= last || vertical.Provisional()) return "set Vertical to " + Number(first) + ".";
  return "choose the video standard again, then set Vertical to " + Number(shown) + ".";
}

}  // namespace

void FindOverlaps(const Setup& setup, Findings& found) {
  const std::vector<PlannedWindow>& windows = setup.plan.windows;
  for (auto first = windows.begin(); first != windows.end(); ++first) {
    for (auto second = first + 1; second != windows.end(); ++second) {
      if (!CoverEachOther(*first, *second)) continue;
      found.push_back(
          {{setup.form.chOnOff(first->row).FullName(), setup.form.chOnOff(second->row).FullName()},
           (first->slate ? "On the slate, " : "") + Quoted(first->name) + " and " + Quoted(second->name) +
               " cover each other: move one of them or switch it off."});
    }
  }
}

void FindOutside(const Setup& setup, Findings& found) {
  if (!setup.plan.area) return;
  const FontSize& size = FontSizeInForce(setup.form);
  for (const PlannedWindow& window : setup.plan.windows) {
    if (!window.on) continue;
    const std::string sideways = Sideways(window, setup.plan);
    const std::string vertical = UpOrDown(window, setup.plan, size);
    if (!sideways.empty()) {
      found.push_back({{setup.form.udHor(window.row).FullName()}, sideways});
    } else if (!vertical.empty()) {
      found.push_back({{setup.form.udVer(window.row).FullName()}, vertical});
    }
  }
}

void FindMovedRows(const Setup& setup, Findings& found) {
  const FontSize& size = FontSizeInForce(setup.form);
  for (const PlannedWindow& window : setup.plan.windows) {
    const SpinControl& vertical = setup.form.udVer(window.row);
    const int set = std::abs(vertical.Value());
    if (!window.on || window.place.top == set) continue;
    found.push_back({{vertical.FullName()},
                     "The unit shows " + Quoted(window.name) + " at " + Number(window.place.top) +
                         " instead of " + Number(set) + ", because the rows of this font size begin at " +
                         Number(size.smallestRow * size.step) + " and are " + Number(size.step) +
                         " apart: " + RowAdvice(vertical, window.place.top, size.step)});
  }
}

void FindEmptySlate(const Setup& setup, Findings& found) {
  if (!setup.form.chPrev.On()) return;
  if (std::ranges::any_of(setup.plan.windows, &PlannedWindow::slate)) return;
  found.push_back({{setup.form.chPrev.FullName()},
                   "The slate preview is on, but no window has a tick under Slate: tick the windows of the "
                   "slate, or switch the preview off."});
}

}  // namespace marlinset

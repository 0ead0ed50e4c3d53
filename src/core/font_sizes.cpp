// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/font_sizes.h"

#include <iterator>

#include "core/choices.h"
#include "core/frm_start.h"

namespace marlinset {
namespace {

constexpr FontSize kFontSizes[] = {{"Large (32 lines/field)", 4, 8}, {"Small (16 lines/field)", 2, 18}};
constexpr FontSize kOtherFontSize{"", 1, 37};

}  // namespace

const FontSize& FontSizeOf(std::string_view text) {
  const auto* found = std::ranges::find(kFontSizes, text, &FontSize::text);
  return found == std::end(kFontSizes) ? kOtherFontSize : *found;
}

const FontSize& FontSizeInForce(const FrmStart& form) {
  return FontSizeOf(BoxOf(form, ChoiceId::kFontSize).Text());
}

}  // namespace marlinset

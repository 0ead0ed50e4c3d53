// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/frm_start.h"
#include "core/variables.h"

// One table of the combo boxes whose entries come from the reference database. Defaults, messages, the marks
// of a send, files and print refer to its rows.

namespace marlinset {

/// A combo box whose selection goes to the unit as a code.
enum class ChoiceId {
  kInputTimeBits,
  kInputUserBits,
  kLtcTimeBits,
  kLtcUserBits,
  kVitc1TimeBits,
  kVitc1UserBits,
  kVitc2TimeBits,  ///< the second line has no user bits of its own
  kVitc3TimeBits,
  kVitc3UserBits,
  kAspectRatio,
  kSlateMode,
  kCharStyle,
  kFontSize,
  kSdiProgramOut,
  kProcessingMode,
  kVerticalFilter,
  kHorizontalFilter,
};

/// An entry of a vocabulary. Its description points into the reference array, which must outlive it.
struct VocabularyEntry {
  std::string_view description;
  int code = 0;  ///< on the wire
  bool offered = true;
};

/// The rows of one reference array, in its order.
template <auto kArray>
std::vector<VocabularyEntry> EntriesOf(const Variables& vars) {
  std::vector<VocabularyEntry> entries;
  for (const auto& row : vars.*kArray) {
    VocabularyEntry& entry = entries.emplace_back();
    entry.description = row.Description;
    if constexpr (requires { row.GenNumber; }) {
      entry.code = row.GenNumber;
    } else {
      entry.code = static_cast<int>(row.Code);
      entry.offered = !row.Ignore1;
    }
  }
  return entries;
}

/// What New does with a choice.
enum class OnNew {
  kFirst,   ///< offers the whole vocabulary again and selects the first entry
  kByRule,  ///< a routine of its own handles it
  kKeep,
};

struct Choice {
  ChoiceId id;
  std::string_view control;  ///< control array of its box; `index` is the element
  int index;
  std::vector<VocabularyEntry> (*vocabulary)(const Variables& vars);
  OnNew onNew = OnNew::kByRule;
  bool modelQ = false;  ///< only units of model Q have it
};

inline constexpr auto kChoices = [] {
  using enum ChoiceId;
  constexpr auto kSources = EntriesOf<&Variables::CodeSources>;
  constexpr auto kFilters = EntriesOf<&Variables::DownConverterFilters>;
  return std::to_array<Choice>({
      {kInputTimeBits, "comTB", 0, kSources},
      {kInputUserBits, "ComUB", 0, kSources},
      {kLtcTimeBits, "comTB", 1, kSources},
      {kLtcUserBits, "ComUB", 1, kSources},
      {kVitc1TimeBits, "comTB", 2, kSources},
      {kVitc1UserBits, "ComUB", 2, kSources},
      {kVitc2TimeBits, "comTB", 3, kSources},
      {kVitc3TimeBits, "comTB", 4, kSources},
      {kVitc3UserBits, "ComUB", 4, kSources},
      {kAspectRatio, "ComWin", FrmStart::kAspectRatio, EntriesOf<&Variables::DownConverterModes>,
       OnNew::kFirst},
      {kSlateMode, "ComWin", FrmStart::kSlateMode, EntriesOf<&Variables::SlateModes>, OnNew::kFirst},
      {kCharStyle, "ComWin", FrmStart::kCharStyle, EntriesOf<&Variables::CharStyles>, OnNew::kFirst},
      {kFontSize, "ComWin", FrmStart::kFontSize, EntriesOf<&Variables::CharSizes>},
      {kSdiProgramOut, "ComWin", FrmStart::kSdiProgramOut, EntriesOf<&Variables::SdiProgramOutputs>,
       OnNew::kKeep, true},
      {kProcessingMode, "ComDownConv", FrmStart::kProcessingMode,
       EntriesOf<&Variables::DownConverterProcessModes>, OnNew::kKeep, true},
      {kVerticalFilter, "ComDownConv", FrmStart::kVerticalFilter, kFilters, OnNew::kKeep, true},
      {kHorizontalFilter, "ComDownConv", FrmStart::kHorizontalFilter, kFilters, OnNew::kKeep, true},
  });
}();

constexpr const Choice& ChoiceOf(ChoiceId id) {
  return kChoices[static_cast<std::size_t>(id)];
}
static_assert(std::ranges::all_of(kChoices, [](const Choice& row) { return ChoiceOf(row.id).id == row.id; }),
              "the rows stand in the order of their ids");

/// The choice that a box offers; null for any other box.
const Choice* ChoiceOfBox(const ComboBox& box);

/// Throws NoSuchElement if the form lacks the box.
ComboBox& BoxOf(const FrmStart& form, ChoiceId id);

/// Whether a unit of this model has the choice.
constexpr bool UnitHas(const Choice& choice, bool modelQ) {
  return modelQ || !choice.modelQ;
}

/// The code of the last entry whose description equals the box's text; empty if there is none.
std::optional<int> CodeOf(const FrmStart& form, const Variables& vars, ChoiceId id);

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>
#include <tuple>
#include <type_traits>
#include <vector>

#include "core/read_rows.h"
#include "core/variables.h"

namespace marlinset {

/// An array of Variables and the table of the reference database that fills it. The record lists the columns.
template <class Rec>
struct ReferenceArray {
  std::string_view name;  ///< of the array, as scripts know it
  std::vector<Rec> Variables::*rows;
  std::string_view table;  ///< or a query
  RowFilter keep = EveryRow;
};
template <class Rec>
ReferenceArray(std::string_view, std::vector<Rec> Variables::*, std::string_view, RowFilter = EveryRow)
    -> ReferenceArray<Rec>;

/// All arrays of the reference database in loading order. At start, the first is loaded before the database
/// is checked, the others after that.
inline constexpr std::tuple kReferenceArrays{
    ReferenceArray{"OperatingModes", &Variables::OperatingModes, "Operating Mode"},
    ReferenceArray{"VideoStandards", &Variables::VideoStandards, "Video Standards"},
    ReferenceArray{"CharMaxPositions", &Variables::CharMaxPositions, "Character Max Positions"},
    ReferenceArray{"CharStyles", &Variables::CharStyles, "Character Styles"},
    ReferenceArray{"SlateModes", &Variables::SlateModes, "Virtual Slate Modes"},
    ReferenceArray{"DownConverterModes", &Variables::DownConverterModes, "Down Converter Modes"},
    ReferenceArray{"CharWindows", &Variables::CharWindows, "Character Windows", HasDevice},
    ReferenceArray{"CharSizes", &Variables::CharSizes, "Character Sizes"},
    ReferenceArray{"SystemParameters", &Variables::SystemParameters, "System Parameters"},
    ReferenceArray{"HelpMessages", &Variables::HelpMessages, "Help Messages"},
    ReferenceArray{"CodeSources", &Variables::CodeSources, "Code Sources"},
    ReferenceArray{"TimeCodeAssignments", &Variables::TimeCodeAssignments, "Time Code Assignments",
                   HasDeviceText},
    ReferenceArray{"DownConverterProcessModes", &Variables::DownConverterProcessModes,
                   "Down Converter Process Modes"},
    ReferenceArray{
        "DownConverterFilters", &Variables::DownConverterFilters,
        "Select * from [Down Converter Filters] where [Description] <> 'Custom' Order By [Order] "},
    ReferenceArray{"SdiProgramOutputs", &Variables::SdiProgramOutputs, "SDI Program Output"},
};

/// Table of the parameters that units no longer have. It has the columns of SystemParameters and fills no
/// array.
inline constexpr std::string_view kDeletedParameters = "Deleted Parameters";

/// Calls `visit` with each ReferenceArray in turn.
template <class Visit>
constexpr void ForEachReferenceArray(const Visit& visit) {
  std::apply([&](const auto&... array) { (visit(array), ...); }, kReferenceArrays);
}

/// The row of kReferenceArrays that fills `rows`.
template <class Rec>
constexpr ReferenceArray<Rec> ReferenceArrayOf(std::vector<Rec> Variables::*rows) {
  ReferenceArray<Rec> found{};
  ForEachReferenceArray([&](const auto& array) {
    if constexpr (std::is_same_v<decltype(array), const ReferenceArray<Rec>&>) {
      if (array.rows == rows) found = array;
    }
  });
  return found;
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

#include "controls/control.h"
#include "link/command_table.h"

namespace marlinset {

class FrmStart;

/// A control by name: a marked row may be gone by the time its mark is removed.
struct ControlName {
  std::string_view name;
  int index = kNoIndex;
};

/// Whether to take a step. `modelQ`: the unit is of model Q.
using StepCondition = bool (*)(const FrmStart& form, bool modelQ);

/// The controls that a step marks: none, one or several.
struct Marks {
  constexpr Marks() = default;
  constexpr Marks(std::string_view name, int index = kNoIndex) : one{name, index}, count(1) {}
  template <std::size_t kCount>
  constexpr Marks(const ControlName (&names)[kCount]) : several(names), count(kCount) {}
  std::span<const ControlName> All() const { return {several ? several : &one, count}; }

  ControlName one{};
  const ControlName* several = nullptr;
  std::size_t count = 0;
};

/// A message of a whole send, sent if its condition holds; otherwise `otherwise` is sent, if set. A command
/// that carries a choice marks its box, and goes only to units that have the choice.
struct SendStep {
  CommandId command;
  Marks marks = {};
  StepCondition condition = nullptr;  ///< none: always
  std::optional<CommandId> otherwise = {};
};

/// The controls that a step marks.
Marks MarksOf(const SendStep& step);
/// The command that a step sends with the panels as they are now, if any. `modelQ`: the unit is of model Q.
std::optional<CommandId> CommandIn(const SendStep& step, const FrmStart& form, bool modelQ);

/// The steps between the parameters and the windows, and those after the windows, in the order that the
/// unit's firmware relies on.
std::span<const SendStep> StepsBeforeWindows();
std::span<const SendStep> StepsAfterWindows();

}  // namespace marlinset

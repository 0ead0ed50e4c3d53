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

/// A control by name: a row that a mark stands on may be gone when the mark is taken off.
struct ControlName {
  std::string_view name;
  int index = kNoIndex;
};

/// When a step is taken.
using StepCondition = bool (*)(const FrmStart& form);

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

/// A message of a whole send, sent if its condition holds; where it does not, `otherwise` is, if there is
/// one. A command that carries a choice marks its box, and goes to units that have the choice.
struct SendStep {
  CommandId command;
  Marks marks = {};
  StepCondition condition = nullptr;  ///< none: always
  std::optional<CommandId> otherwise = {};
};

/// What a step marks.
Marks MarksOf(const SendStep& step);
/// What a step sends as the panels stand, if anything.
std::optional<CommandId> CommandIn(const SendStep& step, const FrmStart& form);

/// The order that the unit's firmware relies on: what goes between the parameters and the windows, and what
/// follows them.
std::span<const SendStep> StepsBeforeWindows();
std::span<const SendStep> StepsAfterWindows();

}  // namespace marlinset

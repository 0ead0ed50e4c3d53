// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/frm_start.h"
#include "core/variables.h"
#include "picture/geometry.h"

namespace marlinset {

// The rules behind the remarks: each looks at a setup and appends what it finds. remarks.cpp lists them, with
// their names and severities.

/// What a rule looks at.
struct Setup {
  const FrmStart& form;
  const Variables& vars;
  PicturePlan plan;
};

/// A remark but for its rule, which the table of rules adds.
struct Finding {
  std::vector<std::string> controls;  ///< as in Remark
  std::string text;
};
using Findings = std::vector<Finding>;

// Windows in the picture
void FindOverlaps(const Setup& setup, Findings& found);
void FindOutside(const Setup& setup, Findings& found);
void FindMovedRows(const Setup& setup, Findings& found);
void FindEmptySlate(const Setup& setup, Findings& found);

// Lines of the blanking, which carry VITC and the white flag
void FindLinesTwice(const Setup& setup, Findings& found);
void FindFlagLine(const Setup& setup, Findings& found);

// The text message
void FindEmptyText(const Setup& setup, Findings& found);
void FindCutText(const Setup& setup, Findings& found);
void FindStrangeCharacters(const Setup& setup, Findings& found);

// What a file does not keep
void FindLostNumbers(const Setup& setup, Findings& found);
void FindUnsavable(const Setup& setup, Findings& found);

}  // namespace marlinset

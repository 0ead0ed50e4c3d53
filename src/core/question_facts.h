// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace marlinset {

struct Platform;
struct Variables;

// Facts shown below a question, one on each line, so that nobody has to look behind the box to answer it.

/// Joins the facts in this order, without empty ones.
std::string Facts(std::initializer_list<std::string> facts);

/// Two lines: the setup's video standard, and the one that the unit has reported.
std::string StandardsFact(const std::string& ofSetup, const std::string& ofUnit);

/// Warns that after this answer ("Yes") the whole setup goes to the unit, and so into the picture.
std::string OnAirFact(std::string_view answer, std::string_view what = "the whole setup");

/// Names a file with its folder, introduced by `what`; empty without a name.
std::string FileFact(std::string_view what, const std::string& name);
/// The same for the open configuration, which may not be in a file yet.
std::string WorkFact(std::string_view what, const Platform& platform, const Variables& variables);

}  // namespace marlinset

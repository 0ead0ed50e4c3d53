// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace marlinset {

struct Platform;
struct Variables;

// What stands below a question, so that nobody has to look behind the box for it: a line for each fact.

/// The facts in this order; empty ones are left out.
std::string Facts(std::initializer_list<std::string> facts);

/// Two lines: the standard that the setup is composed for, and the one that the unit has reported.
std::string StandardsFact(const std::string& ofSetup, const std::string& ofUnit);

/// A whole setup goes to the unit, and so into the picture, after that answer ("Yes").
std::string OnAirFact(std::string_view answer);

/// A file by its name with folder, behind a word that tells what about it; empty without a name.
std::string FileFact(std::string_view what, const std::string& name);
/// The configuration in work, which may not be in a file yet.
std::string WorkFact(std::string_view what, const Platform& platform, const Variables& variables);

}  // namespace marlinset

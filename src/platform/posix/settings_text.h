// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <string>
#include <string_view>

namespace marlinset {

// The text of a settings file: sections in brackets, in them KEY=VALUE lines, comments behind ";" or in lines
// with "#". A value with blanks at its ends or one of ;,=" stands in double quotes; \" \\ \n \r \t \x0A
// escape; a comma outside of quotes separates the entries of a list. All in UTF-8. Keys and sections are
// found without regard to the case of the letters A to Z; of a key that stands there twice the last counts.

/// The letters A to Z made small, for a look-up.
std::string LookUpKey(std::string_view key);

/// The values of a section by their look-up keys. A list reads as one text, its entries separated by ", ".
std::map<std::string, std::string> ReadSettings(std::string_view text, std::string_view section);

/// The text with one value of a section changed or added, and everything else as it was.
std::string WithSetting(std::string_view text, std::string_view section, std::string_view key,
                        std::string_view value);

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <string>
#include <string_view>

namespace marlinset {

// The text of a settings file: sections in brackets with KEY=VALUE lines, comments after ";" or in lines with
// "#". A value is in double quotes if it has blanks at its ends or one of ;,= in it; \" \\ \n \r \t \x0A are
// escapes; a comma outside quotes separates the entries of a list. All in UTF-8. Keys and sections ignore the
// case of the letters A to Z; if a key occurs twice, the last one counts.

/// The key with the letters A to Z in lower case, for a look-up.
std::string LookUpKey(std::string_view key);

/// The values of a section by their look-up keys. A list reads as one text, its entries separated by ", ".
std::map<std::string, std::string> ReadSettings(std::string_view text, std::string_view section);

/// The text with one value of a section changed or added, and everything else unchanged.
std::string WithSetting(std::string_view text, std::string_view section, std::string_view key,
                        std::string_view value);

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace marlinset {

/// A text from outside, for example a name or a host, as a message may show it: it must not control the
/// terminal, leave its line, or reverse what is printed around it. A control character becomes \x and its two
/// digits; one that ends a line or sets the direction of writing becomes \u and its four digits.
std::string Printable(std::string_view text);
/// The same for a message of several lines, which stay lines.
std::string PrintableLines(std::string_view text);

}  // namespace marlinset

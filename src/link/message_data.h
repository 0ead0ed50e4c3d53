// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string>

#include "core/records.h"
#include "link/command_table.h"

// The routines that append data from the panels to a message. Rows of the command table name them.

namespace marlinset {

/// Appends the code of the entry that the choice's box shows.
void AddChoice(ChoiceId choice, const MessageSource& source, Message& message);
/// The code of the standard in comVS.
void AddStandard(const MessageSource& source, Message& message);
/// Parameter, class, and the value as 32 bits in two's complement, low byte first.
void AddParameter(const MessageSource& source, Message& message);
/// Number of VITC lines, 1 to 3. The option buttons' handler leaves the field empty; units in the field have
/// never received anything else from it, and take the lines from cmdVitcLines.
void AddVitcSource(const MessageSource& source, Message& message);
/// Three pairs of a line and its duplicate; a duplicate is 0 while duplicates are off. Sends all three,
/// however many lines are in use.
void AddVitcLines(const MessageSource& source, Message& message);
/// The line, twice.
void AddWhiteFlagLine(const MessageSource& source, Message& message);
/// Frames as 16 bits, high byte first.
void AddSlateDuration(const MessageSource& source, Message& message);
/// One byte for each character. A panel sizes the message by the uncut text, so empty fields follow the
/// characters of a text that was cut.
void AddText(const MessageSource& source, Message& message);
/// Processing mode, vertical and horizontal filter.
void AddDownConverterControl(const MessageSource& source, Message& message);
/// Number, flag byte, vertical row in units of the font size, horizontal position, total length.
///
///   flag byte  128 highlighted, 64 on, 32 slate, 16 double height, 4 symbol, 2 field digit
///
/// In the whole send, a window whose slate box is hidden has no slate.
void AddWindow(const MessageSource& source, Message& message);
/// Number and name of a window, to go behind the name of its message: " 3 'Video Timecode'".
std::string WindowTitle(const CharWindowRec& window);
/// What the last four fields of a window's message say, except the highlight: "on, row 20, column 4, 11 wide,
/// symbol".
std::string WindowWords(std::span<const PacketField> fields);

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

/// Call this before creating Qt's application object: if no display can be reached, it ends the program with
/// a message and exit status 1. Qt alone would abort.
void EndInWordsWithoutDisplay();

}  // namespace marlinset

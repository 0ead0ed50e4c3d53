// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace marlinset {

/// To be called before Qt's application object is made: where no display can be reached the program ends with
/// a message and exit status 1. Qt alone would abort.
void EndInWordsWithoutDisplay();

}  // namespace marlinset

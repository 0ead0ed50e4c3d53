// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace marlinset {

class Control;

/// The present name of an operating mode that an older tool wrote; any other text as it is.
std::string TranslateModeName(const std::string& text);

/// The present name of a time code or user bit source that an older tool wrote; any other text as it is.
/// "Video Recorder Time" has become three sources: which one, only the box tells that the text is for. Where
/// no box tells, the result is empty, so that the operator hears of it and chooses.
std::string TranslateCodeName(const std::string& text, const Control* box = nullptr);

}  // namespace marlinset

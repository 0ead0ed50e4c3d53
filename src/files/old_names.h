// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace marlinset {

class Control;

/// The present name of an operating mode that an older tool wrote; returns any other text unchanged.
std::string TranslateModeName(const std::string& text);

/// The present name of a time code or user bit source that an older tool wrote; returns any other text
/// unchanged. "Video Recorder Time" has become three sources, and only the box that the text is for decides
/// which. If no box decides, the result is empty, so that the operator is informed and chooses.
std::string TranslateCodeName(const std::string& text, const Control* box = nullptr);

}  // namespace marlinset

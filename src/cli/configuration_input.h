// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "files/qcf_document.h"

namespace marlinset {

/// Reads a configuration file. Throws std::runtime_error that says which file and what is wrong with it.
QcfDocument ReadConfiguration(const std::string& path);

}  // namespace marlinset

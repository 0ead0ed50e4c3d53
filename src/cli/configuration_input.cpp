// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/configuration_input.h"

#include <cstdint>
#include <stdexcept>
#include <vector>

#include "files/qcf_reader.h"
#include "platform/posix/file_failure.h"
#include "platform/posix/local_files.h"

namespace marlinset {

QcfDocument ReadConfiguration(const std::string& path) {
  LocalFiles files;
  std::vector<std::uint8_t> bytes;
  try {
    bytes = files.OpenForReading(path)->ReadAll();
  } catch (const RuntimeError& failure) {
    throw std::runtime_error(InOneLine(failure));
  }
  try {
    return ReadDocument(bytes);
  } catch (const QcfError& failure) {
    throw std::runtime_error(path + (failure.Which() == QcfError::Fault::kNoModel
                                         ? ": holds no configuration of a 7340"
                                         : ": is no configuration file"));
  } catch (const RuntimeError&) {
    throw std::runtime_error(path + ": is damaged");
  }
}

}  // namespace marlinset

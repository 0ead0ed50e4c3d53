// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/qcf_document.h"

#include <limits>

#include "base/runtime_error.h"

namespace marlinset {

std::int16_t LoadedParameterValue(std::int64_t stored) {
  std::int64_t value = 0;
  for (const unsigned shift : {24U, 16U, 8U, 0U}) {
    const std::int64_t byte = (stored >> shift) & 0xFF;
    value = value * (byte < 0x10 ? 0x10 : 0x100) + byte;
  }
  if (value > std::numeric_limits<std::int16_t>::max()) throw Overflow();
  return static_cast<std::int16_t>(value);
}

int FormatVersionOf(const QcfDocument& document) {
  if (document.entries.empty()) throw SubscriptOutOfRange();
  return static_cast<int>(std::get<std::int64_t>(document.entries.front().value) & 0xFF);
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
// Feeds the reader of configuration files any bytes: it refuses them, or they are written again as they were.
#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "files/qcf_listing.h"
#include "files/qcf_reader.h"
#include "files/qcf_writer.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace marlinset;
  try {
    const QcfDocument document = ReadDocument({data, size});
    for (const QcfComparison& line : Compare(document, document)) {
      if (line.difference != QcfDifference::kEqual) std::abort();
    }
    const std::vector<std::uint8_t> written = WriteDocument(document);
    if (!std::equal(written.begin(), written.end(), data, data + size)) std::abort();
  } catch (const RuntimeError&) {
    // Refused.
  }
  return 0;
}

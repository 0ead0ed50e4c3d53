// SPDX-License-Identifier: GPL-3.0-or-later
// Composes configuration files of any JSON: it is refused in words, or its file stays the same, byte for
// byte, when it is shown as JSON and composed again.
#include <cassert>
#include <cstdint>
#include <stdexcept>
#include <vector>

#include "cli/document_json.h"
#include "files/qcf_reader.h"
#include "files/qcf_writer.h"

namespace {

using namespace marlinset;
using Bytes = std::vector<std::uint8_t>;

Bytes ShownAndComposed(const QcfDocument& document) {
  const std::string shown = DocumentJson(document).dump(-1, ' ', false, Json::error_handler_t::replace);
  return WriteDocument(DocumentOfJson(ParseJson(shown)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  QcfDocument document;
  Bytes file;
  try {
    document = DocumentOfJson(ParseJson({data, data + size}));
  } catch (const std::runtime_error&) {
    return 0;  // Refused.
  }
  try {
    file = WriteDocument(document);
  } catch (const RuntimeError&) {
    return 0;  // A number does not fit its place in the file.
  }
  assert(ShownAndComposed(document) == file);
  try {
    document = ReadDocument(file);
  } catch (const RuntimeError&) {
    return 0;  // The JSON holds an identification of something else.
  }
  assert(ShownAndComposed(document) == file);
  return 0;
}

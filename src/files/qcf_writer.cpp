// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/qcf_writer.h"

#include <limits>
#include <string>

#include "base/program_title.h"
#include "base/runtime_error.h"
#include "base/text.h"

namespace marlinset {
namespace {

using Bytes = std::vector<std::uint8_t>;

void AppendByte(Bytes& bytes, std::int64_t number) {
  if (number < 0 || number > 255) throw Overflow();
  bytes.push_back(static_cast<std::uint8_t>(number));
}

void AppendU32(Bytes& bytes, std::int64_t number) {
  if (number < 0 || number > std::numeric_limits<std::uint32_t>::max()) throw Overflow();
  for (const unsigned shift : {24U, 16U, 8U, 0U}) {
    bytes.push_back(static_cast<std::uint8_t>((number >> shift) & 0xFF));
  }
}

void AppendBytes(Bytes& bytes, const Bytes& more) {
  bytes.insert(bytes.end(), more.begin(), more.end());
}

void AppendText(Bytes& bytes, const std::string& text) {
  const Bytes characters = ToCodePage(text);
  AppendCount(bytes, characters.size());
  AppendBytes(bytes, characters);
}

void AppendEntry(Bytes& bytes, const QcfEntry& entry);

void AppendRecords(Bytes& bytes, const std::vector<QcfRecord>& records) {
  AppendCount(bytes, records.size());
  for (const QcfRecord& record : records) {
    for (const QcfEntry& entry : record) AppendEntry(bytes, entry);
  }
}

void AppendEntry(Bytes& bytes, const QcfEntry& entry) {
  switch (entry.field->encoding) {
    case QcfEncoding::kByte:
      return AppendByte(bytes, std::get<std::int64_t>(entry.value));
    case QcfEncoding::kU32:
    case QcfEncoding::kValue:
      return AppendU32(bytes, std::get<std::int64_t>(entry.value));
    case QcfEncoding::kText:
      return AppendText(bytes, std::get<std::string>(entry.value));
    case QcfEncoding::kRecords:
      return AppendRecords(bytes, std::get<std::vector<QcfRecord>>(entry.value));
  }
}

}  // namespace

void AppendCount(Bytes& bytes, std::size_t count) {
  std::array<int, 4> digits{};
  for (; count > 16777216; count -= 16777216) ++digits[0];
  for (; count > 65536; count -= 65536) ++digits[1];
  for (; count >= 256; count -= 256) ++digits[2];
  digits[3] = static_cast<int>(count);
  for (const int digit : digits) AppendByte(bytes, digit);
}

Bytes OwnIdentification() {
  Bytes block{kQcfModels};
  AppendCount(block, 1);
  AppendU32(block, kQcfModel);
  block.push_back(kQcfTitle);
  AppendText(block, std::string(kProgramTitle));
  block.push_back(kQcfToolVersion);
  AppendText(block, MARLINSET_VERSION);
  return block;
}

Bytes IdentificationBlock(const QcfDocument& document) {
  Bytes block;
  AppendCount(block, document.identification.size());
  AppendBytes(block, document.identification);
  return block;
}

Bytes ConfigurationBlock(const QcfDocument& document) {
  Bytes fields;
  for (const QcfEntry& entry : document.entries) AppendEntry(fields, entry);
  Bytes block;
  if (document.configurationLength) {
    AppendU32(block, *document.configurationLength);
  } else {
    AppendCount(block, fields.size());
  }
  AppendBytes(block, fields);
  return block;
}

bool CanBeWritten(const QcfEntry& entry) {
  Bytes bytes;
  try {
    AppendEntry(bytes, entry);
    return true;
  } catch (const RuntimeError&) {
    return false;
  }
}

Bytes WriteDocument(const QcfDocument& document) {
  Bytes file(kQcfSignature.begin(), kQcfSignature.end());
  AppendBytes(file, IdentificationBlock(document));
  AppendBytes(file, ConfigurationBlock(document));
  AppendBytes(file, document.tail);
  return file;
}

}  // namespace marlinset

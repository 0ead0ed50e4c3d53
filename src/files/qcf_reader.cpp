// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/qcf_reader.h"

#include <algorithm>
#include <limits>

#include "base/text.h"
#include "files/qcf_writer.h"

namespace marlinset {
namespace {

constexpr std::size_t kIdentificationLengthAt = kQcfSignature.size();
constexpr std::size_t kIdentificationAt = kIdentificationLengthAt + 4;
constexpr std::int64_t kLargest = std::numeric_limits<std::int32_t>::max();

/// The bytes of a record whose texts are empty.
std::size_t LeastSize(std::span<const QcfField> fields, int version) {
  std::size_t size = 0;
  for (const QcfField& field : fields) {
    if (field.since <= version) size += field.encoding == QcfEncoding::kByte ? 1 : 4;
  }
  return size;
}

/// Throws Overflow for a position that the tools in the field could not count to.
std::size_t Counted(std::size_t position) {
  if (position > static_cast<std::size_t>(kLargest)) throw Overflow();
  return position;
}

}  // namespace

QcfReader::QcfReader(std::span<const std::uint8_t> bytes) : bytes_(bytes) {
  CheckSignature();
  const std::size_t highest = bytes_.size() - 1;
  const std::uint32_t length = NumberAt(kIdentificationLengthAt);
  if (length > highest) throw SubscriptOutOfRange();
  const std::size_t end = kIdentificationAt + length;
  identification_ = bytes_.subspan(kIdentificationAt);
  identification_ = identification_.first(std::min<std::size_t>(length, identification_.size()));
  FindModel();
  configurationLength_ = NumberAt(end);
  if (configurationLength_ > highest) throw SubscriptOutOfRange();
  version_ = NumberAt(end + 4);
  if (FormatVersion() < 1 || FormatVersion() > kQcfVersion) throw QcfError(QcfError::Fault::kHeader);
  position_ = end + 8;
}

void QcfReader::CheckSignature() const {
  for (std::size_t i = 0; i < kQcfSignature.size(); ++i) {
    if (ByteAt(i) != kQcfSignature[i]) throw QcfError(QcfError::Fault::kHeader);
  }
}

/// Walks the items of the identification block. Accepts a block without a list of models.
void QcfReader::FindModel() {
  const std::size_t end = kIdentificationAt + NumberAt(kIdentificationLengthAt);
  bool found = false;
  for (std::size_t at = kIdentificationAt; at < end; ++at) {
    switch (ByteAt(at)) {
      case kQcfModels:
        SkipModels(at, found);
        if (!found) throw QcfError(QcfError::Fault::kNoModel);
        break;
      case kQcfTitle:
      case kQcfToolVersion:
      case kQcfReserved:
        at = Counted(at + 4 + LengthAt(at + 1));
        break;
      default:
        break;
    }
  }
}

/// Moves `at` to the last byte of the list.
void QcfReader::SkipModels(std::size_t& at, bool& found) const {
  const std::size_t count = LengthAt(at + 1);
  at += 4;
  for (std::size_t i = 0; i < count; ++i, at += 4) {
    if (NumberAt(at + 1) == kQcfModel) found = true;
  }
}

std::uint8_t QcfReader::ByteAt(std::size_t at) const {
  if (at >= bytes_.size()) throw SubscriptOutOfRange();
  return bytes_[at];
}

std::uint32_t QcfReader::NumberAt(std::size_t at) const {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < 4; ++i) number = (number << 8U) | ByteAt(at + i);
  return number;
}

std::size_t QcfReader::LengthAt(std::size_t at) const {
  return Counted(NumberAt(at));
}

QcfValue QcfReader::Read(const QcfField& field) {
  switch (field.encoding) {
    case QcfEncoding::kByte:
      return std::int64_t{ByteAt(position_++)};
    case QcfEncoding::kU32:
    case QcfEncoding::kValue:
      position_ += 4;
      return std::int64_t{NumberAt(position_ - 4)};
    case QcfEncoding::kText:
      return ReadText();
    case QcfEncoding::kRecords:
      return ReadRecords(field);
  }
  throw SubscriptOutOfRange();
}

std::string QcfReader::ReadText() {
  const std::size_t length = LengthAt(position_);
  const std::size_t begin = position_ + 4;
  if (length > bytes_.size() - begin) throw SubscriptOutOfRange();
  position_ = begin + length;
  const auto text = bytes_.subspan(begin, length);
  return FromCodePage({text.begin(), text.end()});
}

/// Rejects a count that the rest of the file cannot hold before it allocates memory for it.
std::vector<QcfRecord> QcfReader::ReadRecords(const QcfField& field) {
  const std::size_t count = LengthAt(position_);
  position_ += 4;
  if (count == 0 || count > Rest().size() / LeastSize(field.record, FormatVersion())) {
    throw SubscriptOutOfRange();
  }
  std::vector<QcfRecord> records(count);
  for (QcfRecord& record : records) record = ReadRecord(field);
  return records;
}

QcfRecord QcfReader::ReadRecord(const QcfField& field) {
  QcfRecord record;
  for (const QcfField& part : field.record) {
    if (part.since <= FormatVersion()) record.push_back({&part, Read(part)});
  }
  return record;
}

QcfDocument ReadDocument(std::span<const std::uint8_t> bytes) {
  QcfReader reader(bytes);
  QcfDocument document;
  document.identification.assign(reader.Identification().begin(), reader.Identification().end());
  for (const QcfField& field : QcfFields()) {
    if (field.use == QcfUse::kVersion) {
      document.entries.push_back({&field, std::int64_t{reader.VersionNumber()}});
    } else if (field.since <= reader.FormatVersion()) {
      document.entries.push_back({&field, reader.Read(field)});
    }
  }
  document.tail.assign(reader.Rest().begin(), reader.Rest().end());
  const std::size_t block = reader.Position() - kIdentificationAt - document.identification.size() - 4;
  if (reader.ConfigurationLength() != block) document.configurationLength = reader.ConfigurationLength();
  return document;
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/packed_fields.h"

namespace marlinset {
namespace {

constexpr unsigned kBits = 7;
constexpr std::uint64_t kMore = 1U << kBits;

void AppendBits(std::string& bytes, std::uint64_t bits) {
  for (; bits >= kMore; bits >>= kBits) bytes += static_cast<char>(bits | kMore);
  bytes += static_cast<char>(bits);
}

std::uint64_t TakeBits(std::string_view& bytes) {
  std::uint64_t bits = 0;
  for (unsigned shift = 0; !bytes.empty(); shift += kBits) {
    const auto byte = static_cast<std::uint8_t>(bytes.front());
    bytes.remove_prefix(1);
    bits |= (byte & (kMore - 1)) << shift;
    if ((byte & kMore) == 0) break;
  }
  return bits;
}

}  // namespace

void AppendCount(std::string& bytes, std::size_t count) {
  AppendBits(bytes, count);
}

std::size_t TakeCount(std::string_view& bytes) {
  return static_cast<std::size_t>(TakeBits(bytes));
}

/// The sign goes into the lowest bit, so that small numbers are short whatever their sign.
void FieldPacker::Number(std::int64_t number) {
  const std::uint64_t sign = number < 0 ? ~std::uint64_t{0} : 0;
  const std::uint64_t bits = (static_cast<std::uint64_t>(number) << 1U) ^ sign;
  std::size_t size = 0;
  for (std::uint64_t rest = bits; rest != 0; rest >>= kBits) ++size;
  AppendCount(bytes_, size);
  if (size > 0) AppendBits(bytes_, bits);
}

void FieldPacker::Text(std::string_view text) {
  AppendCount(bytes_, text.size());
  bytes_ += text;
}

void FieldPacker::Texts(const std::vector<std::string>& texts) {
  FieldPacker list;
  for (const std::string& text : texts) list.Text(text);
  Text(list.bytes_);
}

std::string_view FieldReader::Field() {
  const std::size_t size = TakeCount(rest_);
  const std::string_view field = rest_.substr(0, size);
  rest_.remove_prefix(field.size());
  return field;
}

std::int64_t FieldReader::Number() {
  std::string_view field = Field();
  const std::uint64_t bits = TakeBits(field);
  const std::uint64_t sign = (bits & 1U) != 0 ? ~std::uint64_t{0} : 0;
  return static_cast<std::int64_t>((bits >> 1U) ^ sign);
}

std::vector<std::string> FieldReader::Texts() {
  std::vector<std::string> texts;
  FieldReader list(Field());
  while (!list.AtEnd()) texts.push_back(list.Text());
  return texts;
}

}  // namespace marlinset

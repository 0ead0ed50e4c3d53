// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/qcf_listing.h"

#include <map>
#include <set>
#include <utility>

#include "base/text.h"
#include "files/qcf_identification.h"
#include "files/qcf_values.h"
#include "files/unique_names.h"

namespace marlinset {
namespace {

constexpr std::int64_t kSixteenBits = 0x10000;
constexpr std::int64_t kFirstNegative = 0x8000;

std::string TextOfValue(const SingleValue& value) {
  const auto* text = std::get_if<std::string>(&value);
  return text ? Quoted(*text) : std::to_string(std::get<std::int64_t>(value));
}

std::string TextOfItem(const QcfItem& item) {
  if (const auto* text = std::get_if<std::string>(&item.content)) return Quoted(*text);
  std::string models;
  for (const std::string& model : std::get<std::vector<std::string>>(item.content)) {
    models += (models.empty() ? "" : ", ") + model;
  }
  return models;
}

std::string NameOfItem(const QcfItem& item) {
  for (const auto& [tag, name] : QcfItemNames()) {
    if (tag == item.tag) return std::string(name);
  }
  return {};
}

void AddIdentification(const std::vector<std::uint8_t>& block, std::vector<QcfLine>& lines) {
  const std::string name(kIdentificationName);
  const auto items = IdentificationItems(block);
  if (!items) return lines.push_back({name, HexOfBytes(block)});
  UniqueNames names;
  for (const QcfItem& item : *items) {
    lines.push_back({names.Unused(name + " / " + NameOfItem(item)), TextOfItem(item)});
  }
}

}  // namespace

std::string HexOfBytes(std::span<const std::uint8_t> bytes) {
  std::string hex;
  for (const std::uint8_t byte : bytes) hex += HexByte(byte);
  return hex;
}

std::int64_t ShownParameterValue(std::int64_t stored) {
  return stored >= kFirstNegative && stored < kSixteenBits ? stored - kSixteenBits : stored;
}

std::int64_t StoredOfShown(std::int64_t shown) {
  return shown < 0 ? shown + kSixteenBits : shown;
}

std::vector<QcfLine> ListingOf(const QcfDocument& document) {
  std::vector<QcfLine> lines;
  AddIdentification(document.identification, lines);
  for (QcfNamedValue& value : ValuesOf(document)) {
    lines.push_back({std::move(value.name), TextOfValue(value.value)});
  }
  if (document.configurationLength) {
    lines.push_back({std::string(kLengthName), std::to_string(*document.configurationLength)});
  }
  if (!document.tail.empty()) lines.push_back({std::string(kTailName), HexOfBytes(document.tail)});
  return lines;
}

std::vector<QcfComparison> Compare(const QcfDocument& left, const QcfDocument& right) {
  const std::vector<QcfLine> leftLines = ListingOf(left);
  const std::vector<QcfLine> rightLines = ListingOf(right);
  std::map<std::string_view, const QcfLine*> rightByName;
  for (const QcfLine& line : rightLines) rightByName.emplace(line.name, &line);
  std::vector<QcfComparison> result;
  std::set<std::string_view> paired;
  for (const QcfLine& line : leftLines) {
    const auto other = rightByName.find(line.name);
    if (other == rightByName.end()) {
      result.push_back({QcfDifference::kOnlyLeft, line.name, line.text, ""});
      continue;
    }
    paired.insert(line.name);
    const bool equal = other->second->text == line.text;
    result.push_back(
        {equal ? QcfDifference::kEqual : QcfDifference::kChanged, line.name, line.text, other->second->text});
  }
  for (const QcfLine& line : rightLines) {
    if (!paired.contains(line.name)) result.push_back({QcfDifference::kOnlyRight, line.name, "", line.text});
  }
  return result;
}

}  // namespace marlinset

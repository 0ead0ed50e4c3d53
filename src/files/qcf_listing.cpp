// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/qcf_listing.h"

#include <algorithm>
#include <map>
#include <set>

#include "base/text.h"
#include "files/qcf_identification.h"

namespace marlinset {
namespace {

constexpr std::int64_t kSixteenBits = 0x10000;
constexpr std::int64_t kFirstNegative = 0x8000;

std::string Quoted(const std::string& text) {
  return '"' + text + '"';
}

std::string TextOfEntry(const QcfEntry& entry) {
  if (const auto* text = std::get_if<std::string>(&entry.value)) return Quoted(*text);
  const std::int64_t number = std::get<std::int64_t>(entry.value);
  return std::to_string(entry.field->encoding == QcfEncoding::kValue ? ShownParameterValue(number) : number);
}

/// The name or number that identifies a record.
std::string KeyOf(const QcfRecord& record) {
  if (const auto* name = std::get_if<std::string>(&record.front().value)) return *name;
  return TextOfEntry(record[0]) + "." + TextOfEntry(record[1]);
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

class Lister {
 public:
  void AddIdentification(const std::vector<std::uint8_t>& block) {
    const std::string name(kIdentificationName);
    const auto items = IdentificationItems(block);
    if (!items) return Add(name, HexOfBytes(block));
    for (const QcfItem& item : *items) Add(Unused(name + " / " + NameOfItem(item)), TextOfItem(item));
  }
  void AddEntry(const QcfEntry& entry) {
    const auto* records = std::get_if<std::vector<QcfRecord>>(&entry.value);
    if (!records) return Add(std::string(entry.field->name), TextOfEntry(entry));
    for (const QcfRecord& record : *records) AddRecord(entry.field->name, record);
  }
  void Add(std::string name, std::string text) { lines_.push_back({std::move(name), std::move(text)}); }
  std::vector<QcfLine> Take() { return std::move(lines_); }

 private:
  void AddRecord(std::string_view list, const QcfRecord& record) {
    const std::string prefix = Unused(std::string(list) + " / " + KeyOf(record));
    for (const QcfEntry& part : record)
      Add(prefix + " / " + std::string(part.field->name), TextOfEntry(part));
  }

  /// Numbers further records of the same name, and those whose own name is such a numbered one.
  std::string Unused(const std::string& name) {
    std::string unused = name;
    for (int& number = occurrences_[name]; !used_.insert(unused).second;) {
      number = std::max(number, 1) + 1;
      unused = name + " (" + std::to_string(number) + ")";
    }
    return unused;
  }

  std::vector<QcfLine> lines_;
  std::map<std::string, int> occurrences_;
  std::set<std::string> used_;
};

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
  Lister lister;
  lister.AddIdentification(document.identification);
  for (const QcfEntry& entry : document.entries) lister.AddEntry(entry);
  if (document.configurationLength) {
    lister.Add(std::string(kLengthName), std::to_string(*document.configurationLength));
  }
  if (!document.tail.empty()) lister.Add(std::string(kTailName), HexOfBytes(document.tail));
  return lister.Take();
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

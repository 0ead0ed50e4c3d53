// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/qcf_listing.h"

#include <map>
#include <set>

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

/// What a record is known by.
std::string KeyOf(const QcfRecord& record) {
  if (const auto* name = std::get_if<std::string>(&record.front().value)) return *name;
  return TextOfEntry(record[0]) + "." + TextOfEntry(record[1]);
}

class Lister {
 public:
  void Add(const QcfEntry& entry) {
    const auto* records = std::get_if<std::vector<QcfRecord>>(&entry.value);
    if (!records) {
      lines_.push_back({std::string(entry.field->name), TextOfEntry(entry)});
      return;
    }
    for (const QcfRecord& record : *records) AddRecord(entry.field->name, record);
  }
  std::vector<QcfLine> Take() { return std::move(lines_); }

 private:
  /// A second record of the same name gets a number behind it.
  void AddRecord(std::string_view list, const QcfRecord& record) {
    std::string prefix = std::string(list) + " / " + KeyOf(record);
    const int occurrence = ++occurrences_[prefix];
    if (occurrence > 1) prefix += " (" + std::to_string(occurrence) + ")";
    for (const QcfEntry& part : record) {
      lines_.push_back({prefix + " / " + std::string(part.field->name), TextOfEntry(part)});
    }
  }

  std::vector<QcfLine> lines_;
  std::map<std::string, int> occurrences_;
};

}  // namespace

std::int64_t ShownParameterValue(std::int64_t stored) {
  return stored >= kFirstNegative && stored < kSixteenBits ? stored - kSixteenBits : stored;
}

std::int64_t StoredOfShown(std::int64_t shown) {
  return shown < 0 ? shown + kSixteenBits : shown;
}

std::vector<QcfLine> ListingOf(const QcfDocument& document) {
  Lister lister;
  for (const QcfEntry& entry : document.entries) lister.Add(entry);
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

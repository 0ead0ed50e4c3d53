// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/qcf_values.h"

#include "files/qcf_listing.h"
#include "files/unique_names.h"

namespace marlinset {
namespace {

SingleValue SingleOf(const QcfEntry& entry) {
  if (const auto* text = std::get_if<std::string>(&entry.value)) return *text;
  const std::int64_t number = std::get<std::int64_t>(entry.value);
  return entry.field->encoding == QcfEncoding::kValue ? ShownParameterValue(number) : number;
}

/// The name or number that identifies a record.
std::string KeyOf(const QcfRecord& record) {
  if (const auto* name = std::get_if<std::string>(&record.front().value)) return *name;
  const auto number = [&](std::size_t part) {
    return std::to_string(std::get<std::int64_t>(record[part].value));
  };
  return number(kClassPart) + "." + number(kNumberPart);
}

}  // namespace

std::vector<QcfNamedValue> ValuesOf(const QcfDocument& document) {
  std::vector<QcfNamedValue> values;
  UniqueNames names;
  for (const QcfEntry& entry : document.entries) {
    const std::string name(entry.field->name);
    const auto* records = std::get_if<std::vector<QcfRecord>>(&entry.value);
    if (!records) {
      values.push_back({.name = name, .value = SingleOf(entry), .field = entry.field});
      continue;
    }
    int number = 0;
    for (const QcfRecord& record : *records) {
      const std::string owner = names.Unused(name + " / " + KeyOf(record));
      for (const QcfEntry& part : record) {
        values.push_back({.name = owner + " / " + std::string(part.field->name),
                          .value = SingleOf(part),
                          .field = part.field,
                          .owner = owner,
                          .record = number});
      }
      ++number;
    }
  }
  return values;
}

}  // namespace marlinset

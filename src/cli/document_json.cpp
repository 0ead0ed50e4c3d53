// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/document_json.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <set>
#include <sstream>
#include <stdexcept>

#include "base/runtime_error.h"
#include "base/text.h"
#include "files/qcf_identification.h"
#include "files/qcf_listing.h"
#include "files/qcf_writer.h"

namespace marlinset {
namespace {

constexpr const char* kLoadedAs = "loaded as";

std::runtime_error Wrong(std::string_view where, const std::string& what) {
  return std::runtime_error(Quoted(where) + " " + what);
}

std::vector<std::uint8_t> BytesOf(std::string_view name, const Json& json) {
  const std::string hex = json.is_string() ? json.get<std::string>() : "?";
  std::vector<std::uint8_t> bytes(hex.size() / 2);
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const char* begin = hex.data() + 2 * i;
    if (std::from_chars(begin, begin + 2, bytes[i], 16).ptr != begin + 2)
      throw Wrong(name, "is not hexadecimal");
  }
  if (hex.size() % 2 != 0) throw Wrong(name, "is not hexadecimal");
  return bytes;
}

/// Files store one byte for each character.
std::string TextOf(std::string_view name, const Json& json) {
  auto text = json.get<std::string>();
  const auto isHeld = [](const std::string& part) { return FromCodePage(ToCodePage(part)) == part; };
  if (isHeld(text)) return text;
  std::string_view rest = text;
  while (isHeld(LeftOf(rest, 1))) rest.remove_prefix(LeftOf(rest, 1).size());
  throw Wrong(name, "holds \"" + LeftOf(rest, 1) + "\", which code page 1252 does not have");
}

Json IdentificationJson(const std::vector<std::uint8_t>& block) {
  const auto items = IdentificationItems(block);
  if (!items) return HexOfBytes(block);
  Json list = Json::array();
  for (const QcfItem& item : *items) {
    for (const auto& [tag, name] : QcfItemNames()) {
      if (tag != item.tag) continue;
      Json& entry = list.emplace_back(Json::object());
      std::visit([&, key = std::string(name)](const auto& content) { entry[key] = content; }, item.content);
    }
  }
  return list;
}

std::vector<std::string> ModelsOf(const Json& json) {
  for (const Json& model : json) {
    if (!model.is_string() || !IsModel(model.get<std::string>())) {
      throw Wrong(kIdentificationName, "holds a model that is not four hexadecimal digits");
    }
  }
  return json.get<std::vector<std::string>>();
}

QcfItem ItemOf(const Json& json) {
  for (const auto& [tag, name] : QcfItemNames()) {
    if (!json.is_object() || json.size() != 1 || !json.contains(name)) continue;
    const Json& content = json.front();
    if (tag != kQcfModels && content.is_string()) return {tag, TextOf(name, content)};
    if (tag == kQcfModels && content.is_array()) return {tag, ModelsOf(content)};
  }
  throw Wrong(kIdentificationName, "holds something unknown");
}

std::vector<std::uint8_t> IdentificationBytes(const Json& json) {
  if (json.is_string()) return BytesOf(kIdentificationName, json);
  if (!json.is_array()) throw Wrong(kIdentificationName, "is no list");
  std::vector<QcfItem> items;
  for (const Json& item : json) items.push_back(ItemOf(item));
  return IdentificationOf(items);
}

void AddEntries(Json& json, const QcfRecord& entries);

/// The number for which a load takes a parameter's value, if it differs.
void AddLoadedAs(Json& json, std::int64_t stored) {
  try {
    const std::int16_t loaded = LoadedParameterValue(stored);
    if (loaded != ShownParameterValue(stored)) json[kLoadedAs] = loaded;
  } catch (const RuntimeError&) {
    json[kLoadedAs] = nullptr;
  }
}

void AddEntry(Json& json, const QcfEntry& entry) {
  const std::string name(entry.field->name);
  if (const auto* records = std::get_if<std::vector<QcfRecord>>(&entry.value)) {
    Json list = Json::array();
    for (const QcfRecord& record : *records) AddEntries(list.emplace_back(Json::object()), record);
    json[name] = std::move(list);
  } else if (const auto* text = std::get_if<std::string>(&entry.value)) {
    json[name] = *text;
  } else if (entry.field->encoding == QcfEncoding::kValue) {
    const std::int64_t stored = std::get<std::int64_t>(entry.value);
    json[name] = ShownParameterValue(stored);
    AddLoadedAs(json, stored);
  } else {
    json[name] = std::get<std::int64_t>(entry.value);
  }
}

void AddEntries(Json& json, const QcfRecord& entries) {
  for (const QcfEntry& entry : entries) AddEntry(json, entry);
}

std::int64_t NumberOf(const QcfField& field, const Json& json) {
  if (!json.is_number_integer()) throw Wrong(field.name, "is no whole number");
  const bool isValue = field.encoding == QcfEncoding::kValue;
  const std::int64_t lowest = isValue ? std::numeric_limits<std::int16_t>::min() : 0;
  const std::int64_t highest = field.encoding == QcfEncoding::kByte
                                   ? std::numeric_limits<std::uint8_t>::max()
                                   : std::int64_t{std::numeric_limits<std::uint32_t>::max()};
  const bool tooLarge = json.is_number_unsigned() && json.get<std::uint64_t>() > std::uint64_t(highest);
  const auto number = tooLarge ? highest + 1 : json.get<std::int64_t>();
  if (number < lowest || number > highest) {
    throw Wrong(field.name, "is not from " + std::to_string(lowest) + " to " + std::to_string(highest));
  }
  return isValue ? StoredOfShown(number) : number;
}

/// Reads the fields of one object; refuses unknown keys.
class ObjectReader {
 public:
  ObjectReader(const Json& json, std::string_view name) : json_(json), name_(name) {
    if (!json.is_object()) throw Wrong(name, "is no object");
  }
  const Json& Take(std::string_view key) {
    const Json* value = TakeIfThere(key);
    if (!value) throw Wrong(key, "is missing in " + std::string(name_));
    return *value;
  }
  const Json* TakeIfThere(std::string_view key) {
    taken_.emplace_back(key);
    const auto found = json_.find(std::string(key));
    return found == json_.end() ? nullptr : &*found;
  }
  void Finish() const {
    for (const auto& item : json_.items()) {
      if (std::find(taken_.begin(), taken_.end(), item.key()) == taken_.end()) {
        throw Wrong(item.key(), "is no field of " + std::string(name_));
      }
    }
  }

 private:
  const Json& json_;
  std::string_view name_;
  std::vector<std::string> taken_;
};

QcfRecord RecordOf(const QcfField& list, const Json& json, int version);

QcfValue ValueOf(const QcfField& field, const Json& json, int version) {
  switch (field.encoding) {
    case QcfEncoding::kText:
      if (!json.is_string()) throw Wrong(field.name, "is no text");
      return TextOf(field.name, json);
    case QcfEncoding::kRecords: {
      if (!json.is_array() || json.empty()) throw Wrong(field.name, "is no list with something in it");
      std::vector<QcfRecord> records;
      for (const Json& record : json) records.push_back(RecordOf(field, record, version));
      return records;
    }
    default:
      return NumberOf(field, json);
  }
}

QcfRecord RecordOf(const QcfField& list, const Json& json, int version) {
  ObjectReader object(json, list.name);
  QcfRecord record;
  for (const QcfField& part : list.record) {
    if (part.since <= version) record.push_back({&part, ValueOf(part, object.Take(part.name), version)});
  }
  object.TakeIfThere(kLoadedAs);
  object.Finish();
  return record;
}

/// The byte, counted from 1, at which a text in quotation marks begins whose last mark is the byte `end`.
/// Marks inside it have a backslash before them.
std::size_t BeginOfText(std::string_view json, std::size_t end) {
  std::size_t mark = json.rfind('"', end - 2);
  while (mark > 0 && mark != std::string_view::npos && json[mark - 1] == '\\')
    mark = json.rfind('"', mark - 1);
  return mark + 1;
}

/// "3, column 7" for a place that counts bytes from 1.
std::string LineAndColumn(std::string_view text, std::size_t byte) {
  const std::string_view before = text.substr(0, byte > 0 ? byte - 1 : 0);
  const auto line = std::count(before.begin(), before.end(), '\n') + 1;
  return std::to_string(line) + ", column " + std::to_string(before.size() - (before.rfind('\n') + 1) + 1);
}

}  // namespace

Json DocumentJson(const QcfDocument& document) {
  Json json = {{kIdentificationName, IdentificationJson(document.identification)}};
  if (document.configurationLength) json[kLengthName] = *document.configurationLength;
  AddEntries(json, document.entries);
  if (!document.tail.empty()) json[kTailName] = HexOfBytes(document.tail);
  return json;
}

Json ParseJson(const std::string& text) {
  constexpr std::size_t kMostKeys = 100;
  std::vector<std::set<std::string>> objects;  // the keys so far of the enclosing objects
  std::string wrong;
  std::istringstream stream(text);
  const auto place = [&] {
    const auto read = stream.rdbuf()->pubseekoff(0, std::ios::cur, std::ios::in);
    return "line " + LineAndColumn(text, BeginOfText(text, static_cast<std::size_t>(read)));
  };
  const auto watch = [&](int /*depth*/, Json::parse_event_t event, const Json& parsed) {
    if (!wrong.empty()) return false;
    if (event == Json::parse_event_t::object_start) objects.emplace_back();
    if (event == Json::parse_event_t::object_end) objects.pop_back();
    if (event != Json::parse_event_t::key) return true;
    const auto key = parsed.get<std::string>();
    if (!objects.back().insert(key).second) wrong = Quoted(key) + " is given twice: again in " + place();
    if (objects.back().size() > kMostKeys)
      wrong = "an object has more keys than any configuration: see " + place();
    return wrong.empty();
  };
  try {
    Json json = Json::parse(stream, watch);
    if (wrong.empty()) return json;
  } catch (const Json::parse_error& error) {
    if (wrong.empty()) wrong = "is no JSON: line " + LineAndColumn(text, error.byte);
  } catch (const Json::exception&) {
    if (wrong.empty()) wrong = "is no JSON that can be read: a number is too large";
  }
  throw std::runtime_error(wrong);
}

QcfDocument DocumentOfJson(const Json& json) {
  ObjectReader object(json, "the configuration");
  QcfDocument document;
  document.identification = IdentificationBytes(object.Take(kIdentificationName));
  if (const Json* length = object.TakeIfThere(kLengthName)) {
    document.configurationLength =
        static_cast<std::uint32_t>(NumberOf({.name = kLengthName, .encoding = QcfEncoding::kU32}, *length));
  }
  int version = kQcfVersion;
  for (const QcfField& field : QcfFields()) {
    if (field.since > version) continue;
    document.entries.push_back({&field, ValueOf(field, object.Take(field.name), version)});
    if (field.use != QcfUse::kVersion) continue;
    version = FormatVersionOf(document);
    if (version < 1 || version > kQcfVersion) throw Wrong(field.name, "is unknown");
  }
  if (const Json* tail = object.TakeIfThere(kTailName)) document.tail = BytesOf(kTailName, *tail);
  object.Finish();
  return document;
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/comparison.h"

#include <map>
#include <set>
#include <span>
#include <utility>

#include "core/frm_start.h"
#include "core/variables.h"
#include "exchange/quiet_panels.h"
#include "files/panel_document.h"
#include "files/qcf_listing.h"
#include "files/qcf_reader.h"
#include "platform/file_system.h"
#include "platform/platform.h"

namespace marlinset {
namespace {

struct Group {
  std::string_view control;
  int index;  ///< kNoIndex: any element
  std::string_view name;
};
constexpr std::string_view kSources = "Time Code and User Bits";
constexpr std::string_view kLines = "VITC and White Flag";
constexpr std::string_view kCharacters = "Characters, Slate and Text";
constexpr std::string_view kConverter = "Down Converter";
constexpr Group kGroups[] = {
    {"comVS", kNoIndex, "Video Standard"},
    {"comTB", kNoIndex, kSources},
    {"ComUB", kNoIndex, kSources},
    {"upVitc1", kNoIndex, kLines},
    {"chVITC", kNoIndex, kLines},
    {"chDups", kNoIndex, kLines},
    {"chSync", kNoIndex, kLines},
    {"chEnable", kNoIndex, kLines},
    {"UpDown1", kNoIndex, kLines},
    {"ComWin", FrmStart::kAspectRatio, kConverter},
    {"ComWin", FrmStart::kSdiProgramOut, kConverter},
    {"ComDownConv", kNoIndex, kConverter},
};

constexpr const char* kDamaged = "It is damaged.";

constexpr const char* kRefused = "This file cannot be compared.";

RuntimeError Refused(const std::string& path, const std::string& reason) {
  return {kErrFileFormat, kRefused, path + "\n" + reason};
}

std::vector<std::uint8_t> BytesIn(FileSystem& files, const std::string& path) {
  try {
    return files.OpenForReading(path)->ReadAll();
  } catch (const RuntimeError& failure) {
    throw RuntimeError(failure.Number(), kRefused, failure.Remedy());
  }
}

QcfDocument DocumentIn(const std::string& path, std::span<const std::uint8_t> bytes) {
  try {
    return ReadDocument(bytes);
  } catch (const QcfError& failure) {
    throw Refused(path, failure.Which() == QcfError::Fault::kNoModel ? "It holds no configuration of a 7340."
                                                                     : "It is no configuration file.");
  } catch (const RuntimeError&) {
    throw Refused(path, kDamaged);
  }
}

/// The values of a configuration, found by name.
class ValueTable {
 public:
  explicit ValueTable(std::vector<QcfNamedValue> values) : values_(std::move(values)) {
    for (const QcfNamedValue& value : values_) {
      places_.emplace(value.name, &value);
      owners_.insert(value.owner);
    }
  }
  const std::vector<QcfNamedValue>& All() const { return values_; }
  const QcfNamedValue* Find(std::string_view name) const {
    const auto found = places_.find(name);
    return found == places_.end() ? nullptr : found->second;
  }
  /// Whether it has this window or parameter; every configuration has what is neither.
  bool HasOwner(const std::string& owner) const { return owner.empty() || owners_.contains(owner); }

 private:
  std::vector<QcfNamedValue> values_;
  std::map<std::string_view, const QcfNamedValue*> places_;
  std::set<std::string_view> owners_;
};

/// What a load reads, of a parameter that it does not keep because the database has dropped it since.
SingleValue ReadValue(const QcfNamedValue& value) {
  if (value.field->encoding != QcfEncoding::kValue) return value.value;
  return std::int64_t{LoadedParameterValue(StoredOfShown(std::get<std::int64_t>(value.value)))};
}

/// The panels after a load of the file. Throws RuntimeError if it cannot be loaded.
QcfDocument LoadedDocument(QuietPanels& panels, const OtherFile& other) {
  for (const QcfEntry& entry : other.document.entries) {
    if (entry.field->control == "comVS") panels.SelectStandard(std::get<std::string>(entry.value));
  }
  const LoadOutcome outcome = panels.Load(other.bytes);
  if (outcome.end == LoadOutcome::End::kIncomplete) throw Refused(other.path, outcome.failure);
  if (outcome.end != LoadOutcome::End::kLoaded) throw Refused(other.path, kDamaged);
  return panels.Document();
}

/// Collects what differs.
class Differences {
 public:
  /// `tables` know the descriptions of parameters, the first one best.
  explicit Differences(std::vector<const ValueTable*> tables) : tables_(std::move(tables)) {}
  void Add(const QcfNamedValue& value, std::optional<SingleValue> here, std::optional<SingleValue> there) {
    if (value.field->use == QcfUse::kOperatingMode || here == there) return;
    rows_.push_back({.name = value.name,
                     .group = GroupOf(*value.field),
                     .about = DescriptionOf(value),
                     .here = std::move(here),
                     .there = std::move(there)});
  }
  std::vector<ComparedValue> Take() { return std::move(rows_); }

 private:
  std::string DescriptionOf(const QcfNamedValue& value) const {
    for (const ValueTable* table : tables_) {
      if (const QcfNamedValue* found = table->Find(value.owner + " / Description"))
        return TextOf(found->value);
    }
    return {};
  }

  std::vector<const ValueTable*> tables_;
  std::vector<ComparedValue> rows_;
};

}  // namespace

std::string_view GroupOf(const QcfField& field) {
  if (IsPartOf(QcfUse::kWindows, field)) return "Windows";
  if (IsPartOf(QcfUse::kParameters, field)) return "Parameters";
  if (field.use == QcfUse::kVitcOption) return kLines;
  for (const Group& group : kGroups) {
    if (group.control == field.control && (group.index == kNoIndex || group.index == field.index)) {
      return group.name;
    }
  }
  return kCharacters;
}

std::string TextOf(const SingleValue& value) {
  const auto* text = std::get_if<std::string>(&value);
  return text ? *text : std::to_string(std::get<std::int64_t>(value));
}

OtherFile Comparison::Read(const std::string& path) const {
  OtherFile other{.path = path, .bytes = BytesIn(platform_.files, path), .document = {}};
  other.document = DocumentIn(path, other.bytes);
  With(other);  // some files are sound and cannot be loaded all the same
  return other;
}

std::vector<ComparedValue> Comparison::With(const OtherFile& other) const {
  QuietPanels panels(platform_, vars_, form_);
  const ValueTable loaded(ValuesOf(LoadedDocument(panels, other)));
  const ValueTable file(ValuesOf(other.document));
  const ValueTable here(ValuesOf(DocumentOfPanels(vars_, form_)));
  Differences differences({&here, &loaded, &file});
  for (const QcfNamedValue& value : here.All()) {
    if (!file.HasOwner(value.owner)) {
      differences.Add(value, value.value, std::nullopt);
    } else if (const QcfNamedValue* given = loaded.Find(value.name)) {
      differences.Add(value, value.value, given->value);
    } else if (const QcfNamedValue* read = file.Find(value.name)) {
      differences.Add(value, value.value, ReadValue(*read));
    }
  }
  for (const QcfNamedValue& value : loaded.All()) {
    if (file.HasOwner(value.owner) && !here.HasOwner(value.owner)) {
      differences.Add(value, std::nullopt, value.value);
    }
  }
  for (const QcfNamedValue& value : file.All()) {
    if (!loaded.HasOwner(value.owner) && !here.HasOwner(value.owner)) {
      differences.Add(value, std::nullopt, ReadValue(value));
    }
  }
  return differences.Take();
}

}  // namespace marlinset

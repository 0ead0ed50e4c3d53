// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/rack.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <iterator>
#include <stdexcept>
#include <utility>

#include "base/text.h"
#include "cli/document_json.h"
#include "cli/rack_look.h"
#include "platform/device_address.h"
#include "platform/posix/file_failure.h"
#include "platform/posix/file_place.h"
#include "platform/posix/file_reader.h"

namespace marlinset {
namespace {

/// The members of a unit, all of them texts.
struct Member {
  const char* name;
  const char* meaning;
  std::string RackUnit::*value;
};
constexpr std::array<Member, 3> kMembers{{
    {"name", "what the unit is called", &RackUnit::name},
    {"port", "its device or address", &RackUnit::port},
    {"file", "the configuration to send", &RackUnit::file},
}};

bool HasControl(const std::string& text) {
  return std::any_of(text.begin(), text.end(),
                     [](unsigned char letter) { return letter < ' ' || letter == 0x7F; });
}

/// What is wrong with a member; empty if nothing is.
std::string FaultOf(const Member& member, const Json& unit) {
  const std::string quoted = Quoted(member.name);
  if (!unit.contains(member.name)) return "has no " + quoted + ", " + member.meaning;
  const Json& value = unit[member.name];
  if (!value.is_string()) return quoted + " is no text";
  const auto text = value.get<std::string>();
  if (Trim(text).empty()) return quoted + " is empty";
  return HasControl(text) ? quoted + " holds a control character" : std::string();
}

/// Reads the units one by one and notes what is wrong with each.
class RackReader {
 public:
  RackReader(std::filesystem::path folder, Rack& rack) : folder_(std::move(folder)), rack_(rack) {}

  void Read(const Json& json) {
    if (!json.is_object()) return Note("is no object with a list of \"units\"");
    for (const auto& item : json.items()) {
      if (item.key() != "units")
        Note("has " + Quoted(item.key()) + ", which is no member of a rack: that has \"units\"");
    }
    if (!json.contains("units")) return Note("has no list of \"units\"");
    const Json& units = json["units"];
    if (!units.is_array()) return Note("has \"units\" that are no list");
    if (units.empty()) return Note("has an empty list of \"units\"");
    for (const Json& unit : units) ReadUnit(unit);
  }

 private:
  void Note(const std::string& reason) { rack_.mistakes.push_back({0, "", reason}); }

  /// Every unit takes its place in the list, so that the numbers of those behind it stay right.
  void ReadUnit(const Json& json) {
    RackUnit& unit = rack_.units.emplace_back();
    const auto note = [&](const std::string& reason) {
      rack_.mistakes.push_back({rack_.units.size(), unit.name, reason});
    };
    if (!json.is_object()) return note("is no object with \"name\", \"port\" and \"file\"");
    for (const Member& member : kMembers) {
      const std::string fault = FaultOf(member, json);
      if (fault.empty()) unit.*member.value = json[member.name].get<std::string>();
      if (!fault.empty()) note(fault);
    }
    for (const auto& item : json.items()) {
      const bool known = std::any_of(kMembers.begin(), kMembers.end(),
                                     [&](const Member& member) { return item.key() == member.name; });
      if (!known) note(Quoted(item.key()) + " is no member of a unit");
    }
    if (IsAddress(unit.port)) {
      if (const std::string fault = AddressFault(unit.port); !fault.empty()) note("\"port\": " + fault);
    } else {
      unit.port = FromFolder(unit.port);
    }
    unit.file = FromFolder(unit.file);
  }

  std::string FromFolder(const std::string& path) const {
    return path.empty() ? path : (folder_ / path).string();
  }

  std::filesystem::path folder_;
  Rack& rack_;
};

}  // namespace

std::string RackMistake::Text() const {
  if (unit == 0) return reason;
  return "unit " + std::to_string(unit) + (name.empty() ? "" : " (" + name + ")") + ": " + reason;
}

Rack ReadRack(const std::string& path, const CommonOptions& options) {
  Rack rack;
  const auto stream = OwnStream(path);
  try {
    const std::string text = stream ? ReadStream(*stream, path) : ReadText(path);
    const auto folder =
        stream ? std::filesystem::current_path() : std::filesystem::absolute(path).parent_path();
    RackReader(folder, rack).Read(ParseJson(text));
  } catch (const RuntimeError& failure) {
    rack.mistakes.push_back({0, "", "cannot be read: " + ReasonOf(failure)});
  } catch (const std::runtime_error& wrong) {
    rack.mistakes.push_back({0, "", wrong.what()});
  }
  LookForTwins(rack);
  TryToLoad(rack, options);
  std::stable_sort(rack.mistakes.begin(), rack.mistakes.end(),
                   [](const RackMistake& a, const RackMistake& b) { return a.unit < b.unit; });
  return rack;
}

void KeepOnly(const std::vector<std::string>& names, Rack& rack) {
  if (names.empty() || rack.units.empty()) return;
  std::vector<RackUnit> kept;
  const auto named = [&](const RackUnit& unit) {
    return std::find(names.begin(), names.end(), unit.name) != names.end();
  };
  std::copy_if(rack.units.begin(), rack.units.end(), std::back_inserter(kept), named);
  for (const std::string& name : names) {
    const bool there =
        std::any_of(kept.begin(), kept.end(), [&](const RackUnit& unit) { return unit.name == name; });
    if (!there) rack.mistakes.push_back({0, name, "has no unit " + Quoted(name) + ", which --only names"});
  }
  rack.units = std::move(kept);
}

}  // namespace marlinset

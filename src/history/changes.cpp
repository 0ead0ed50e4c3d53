// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/changes.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "controls/packed_fields.h"

namespace marlinset {
namespace {

using Fields = std::vector<std::string_view>;

void Split(const std::optional<std::string>& state, Fields& fields) {
  fields.clear();
  for (FieldReader reader(state ? *state : std::string_view()); !reader.AtEnd();) {
    fields.push_back(reader.Field());
  }
}

std::string Packed(const Fields& fields) {
  FieldPacker packer;
  for (const std::string_view field : fields) packer.Text(field);
  return packer.Bytes();
}

/// What a change of one thing holds: the state before, the state after, or the state before and behind it the
/// fields that differ.
enum class Sides : std::size_t { kBefore, kAfter, kBoth };
constexpr std::size_t kSides = 3;

/// A text is written once; later ones refer to its place. One of a byte or two is shorter than a reference.
constexpr std::size_t kShortestShared = 3;

class Writer {
 public:
  Writer(std::string& bytes, std::size_t things) : bytes_(bytes) { places_.reserve(2 * things); }

  void Write(const Change& change) {
    const Sides sides = !change.after ? Sides::kBefore : !change.before ? Sides::kAfter : Sides::kBoth;
    Split(change.before ? change.before : change.after, first_);
    AppendCount(bytes_, change.thing);
    AppendCount(bytes_, first_.size() * kSides + static_cast<std::size_t>(sides));
    for (const std::string_view field : first_) WriteText(field);
    if (sides == Sides::kBoth) {
      Split(change.after, second_);
      WriteDiffering();
    }
  }

 private:
  void WriteDiffering() {
    std::size_t differing = 0;
    for (std::size_t i = 0; i < first_.size(); ++i) differing += first_[i] == second_[i] ? 0 : 1;
    AppendCount(bytes_, differing);
    for (std::size_t i = 0; i < first_.size(); ++i) {
      if (first_[i] == second_[i]) continue;
      AppendCount(bytes_, i);
      WriteText(second_[i]);
    }
  }
  void WriteText(std::string_view text) {
    if (text.size() >= kShortestShared) {
      const auto [place, isNew] = places_.try_emplace(text, bytes_.size());
      if (!isNew) return AppendCount(bytes_, place->second * 2 + 1);
    }
    AppendCount(bytes_, text.size() * 2);
    bytes_ += text;
  }

  std::string& bytes_;
  Fields first_, second_;
  std::unordered_map<std::string_view, std::size_t> places_;
};

class Reader {
 public:
  explicit Reader(const std::string& bytes) : all_(bytes), rest_(bytes) {}

  bool AtEnd() const { return rest_.empty(); }
  Change Read() {
    Change change{.thing = static_cast<ThingKey>(TakeCount(rest_)), .before = {}, .after = {}};
    const std::size_t head = TakeCount(rest_);
    const auto sides = static_cast<Sides>(head % kSides);
    Fields fields(head / kSides);
    for (std::string_view& field : fields) field = ReadText();
    if (sides != Sides::kAfter) change.before = Packed(fields);
    if (sides == Sides::kBoth) ReadDiffering(fields);
    if (sides != Sides::kBefore) change.after = Packed(fields);
    return change;
  }

 private:
  void ReadDiffering(Fields& fields) {
    for (std::size_t count = TakeCount(rest_); count > 0; --count) {
      const std::size_t place = TakeCount(rest_);
      fields.at(place) = ReadText();
    }
  }
  std::string_view ReadText() {
    const std::size_t head = TakeCount(rest_);
    if (head % 2 == 0) {
      const std::string_view text = rest_.substr(0, head / 2);
      rest_.remove_prefix(text.size());
      return text;
    }
    std::string_view shared = all_.substr(head / 2);
    const std::size_t size = TakeCount(shared) / 2;
    return shared.substr(0, size);
  }

  std::string_view all_;
  std::string_view rest_;
};

}  // namespace

Changes Joined(Changes first, Changes second) {
  if (first.empty()) return second;
  std::unordered_map<ThingKey, std::size_t> places;
  for (std::size_t i = 0; i < first.size(); ++i) places[first[i].thing] = i;
  for (Change& change : second) {
    const auto [place, isNew] = places.try_emplace(change.thing, first.size());
    if (isNew) {
      first.push_back(std::move(change));
    } else {
      first[place->second].after = std::move(change.after);
    }
  }
  std::erase_if(first, [](const Change& change) { return change.before == change.after; });
  return first;
}

bool AreApart(const Changes& first, const Changes& second) {
  std::unordered_set<ThingKey> things;
  for (const Change& change : first) things.insert(change.thing);
  return std::ranges::none_of(second, [&](const Change& change) { return things.contains(change.thing); });
}

Changes Reversed(Changes changes) {
  for (Change& change : changes) std::swap(change.before, change.after);
  return changes;
}

Difference::Difference(const Changes& changes) {
  Writer writer(bytes_, changes.size());
  for (const Change& change : changes) writer.Write(change);
  bytes_.shrink_to_fit();
}

Changes Difference::Expand() const {
  Changes changes;
  for (Reader reader(bytes_); !reader.AtEnd();) changes.push_back(reader.Read());
  return changes;
}

}  // namespace marlinset

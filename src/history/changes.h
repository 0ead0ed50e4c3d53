// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace marlinset {

/// A thing of the configuration that has a state: a control, a record, the remembered selections.
using ThingKey = std::uint32_t;

/// How a thing was and how it is, as packed fields; nothing where it did not exist.
struct Change {
  ThingKey thing;
  std::optional<std::string> before;
  std::optional<std::string> after;
};
using Changes = std::vector<Change>;

/// Both in one, `second` being what came after `first`. A thing that is back as it was is left out.
Changes Joined(Changes first, Changes second);

/// Whether no thing is in both.
bool AreApart(const Changes& first, const Changes& second);

/// The way back.
Changes Reversed(Changes changes);

/// Changes in few bytes: each text is written once, and of a thing that was there before and after only what
/// differs is written twice.
class Difference {
 public:
  Difference() = default;
  explicit Difference(const Changes& changes);
  Changes Expand() const;
  bool Empty() const { return bytes_.empty(); }
  std::size_t Size() const { return bytes_.capacity(); }

 private:
  std::string bytes_;
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace marlinset {

/// An item of the identification block: model numbers ("7340"), or a text.
struct QcfItem {
  std::uint8_t tag;
  std::variant<std::vector<std::string>, std::string> content;
};

/// The names of the items in listings and JSON, by tag.
struct QcfItemName {
  std::uint8_t tag;
  std::string_view name;
};
std::span<const QcfItemName> QcfItemNames();

/// Whether a text is a model number: four hexadecimal digits, with capital letters.
bool IsModel(std::string_view text);

/// The items of an identification block; empty unless it consists only of complete items that this tool
/// knows.
std::optional<std::vector<QcfItem>> IdentificationItems(std::span<const std::uint8_t> block);

/// The block of these items. Throws TypeMismatch for a model number that is not one.
std::vector<std::uint8_t> IdentificationOf(const std::vector<QcfItem>& items);

}  // namespace marlinset

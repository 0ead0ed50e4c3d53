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

/// What the items are called in listings and JSON, by their tags.
struct QcfItemName {
  std::uint8_t tag;
  std::string_view name;
};
std::span<const QcfItemName> QcfItemNames();

/// A model number as it is written: four hexadecimal digits, the letters large.
bool IsModel(std::string_view text);

/// The items of an identification block, nothing when it does not consist of whole items that this tool
/// knows.
std::optional<std::vector<QcfItem>> IdentificationItems(std::span<const std::uint8_t> block);

/// The block of these items. Failure 13 for a model number that is none.
std::vector<std::uint8_t> IdentificationOf(const std::vector<QcfItem>& items);

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/qcf_identification.h"

#include <algorithm>
#include <string_view>

#include "base/runtime_error.h"
#include "base/text.h"
#include "files/qcf_writer.h"

namespace marlinset {
namespace {

constexpr std::string_view kDigits = "0123456789ABCDEF";
constexpr std::size_t kModelDigits = 4;
constexpr QcfItemName kItemNames[] = {
    {kQcfModels, "models"}, {kQcfTitle, "title"}, {kQcfToolVersion, "version"}, {kQcfReserved, "reserved"}};

bool IsText(std::uint8_t tag) {
  return tag == kQcfTitle || tag == kQcfToolVersion || tag == kQcfReserved;
}

std::size_t NumberAt(std::span<const std::uint8_t> block, std::size_t at) {
  std::size_t number = 0;
  for (std::size_t i = 0; i < 4; ++i) number = (number << 8U) | block[at + i];
  return number;
}

/// One digit for each byte; empty if a byte is not a digit.
std::optional<std::string> ModelText(std::span<const std::uint8_t> digits) {
  std::string text;
  for (const std::uint8_t digit : digits) {
    if (digit >= kDigits.size()) return std::nullopt;
    text += kDigits[digit];
  }
  return text;
}

/// Removes the item at the beginning of `block` and returns it.
std::optional<QcfItem> TakeItem(std::span<const std::uint8_t>& block) {
  if (block.size() < 5 || (block[0] != kQcfModels && !IsText(block[0]))) return std::nullopt;
  const std::uint8_t tag = block[0];
  const std::size_t size = NumberAt(block, 1) * (tag == kQcfModels ? kModelDigits : 1);
  if (size > block.size() - 5) return std::nullopt;
  const auto content = block.subspan(5, size);
  block = block.subspan(5 + size);
  if (tag != kQcfModels) return QcfItem{tag, FromCodePage({content.begin(), content.end()})};
  std::vector<std::string> models;
  for (std::size_t at = 0; at < size; at += kModelDigits) {
    const auto model = ModelText(content.subspan(at, kModelDigits));
    if (!model) return std::nullopt;
    models.push_back(*model);
  }
  return QcfItem{tag, std::move(models)};
}

}  // namespace

std::span<const QcfItemName> QcfItemNames() {
  return kItemNames;
}

bool IsModel(std::string_view text) {
  return text.size() == kModelDigits && text.find_first_not_of(kDigits) == std::string_view::npos;
}

std::optional<std::vector<QcfItem>> IdentificationItems(std::span<const std::uint8_t> block) {
  std::vector<QcfItem> items;
  while (!block.empty()) {
    auto item = TakeItem(block);
    if (!item) return std::nullopt;
    items.push_back(std::move(*item));
  }
  return items;
}

std::vector<std::uint8_t> IdentificationOf(const std::vector<QcfItem>& items) {
  std::vector<std::uint8_t> block;
  for (const QcfItem& item : items) {
    block.push_back(item.tag);
    if (const auto* text = std::get_if<std::string>(&item.content)) {
      const auto bytes = ToCodePage(*text);
      AppendCount(block, bytes.size());
      block.insert(block.end(), bytes.begin(), bytes.end());
      continue;
    }
    const auto& models = std::get<std::vector<std::string>>(item.content);
    AppendCount(block, models.size());
    for (const std::string& model : models) {
      if (!IsModel(model)) throw TypeMismatch();
      for (const char digit : model) block.push_back(static_cast<std::uint8_t>(kDigits.find(digit)));
    }
  }
  return block;
}

}  // namespace marlinset

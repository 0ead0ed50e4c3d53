// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace marlinset {

/// Packs numbers and texts in a row: the state of a control or of a record at one moment. Each field knows
/// its length, so that a row can be split without knowing what it describes. Two rows of one kind are equal
/// if their bytes are.
class FieldPacker {
 public:
  void Number(std::int64_t number);
  void Text(std::string_view text);
  void Texts(const std::vector<std::string>& texts);
  const std::string& Bytes() const { return bytes_; }
  void Clear() { bytes_.clear(); }

 private:
  std::string bytes_;
};

/// Reads such a row, whose bytes must outlive the reader, in the order in which it was packed.
class FieldReader {
 public:
  explicit FieldReader(std::string_view bytes) : rest_(bytes) {}
  bool AtEnd() const { return rest_.empty(); }
  /// The bytes of the next field, whatever it holds.
  std::string_view Field();
  std::int64_t Number();
  std::string Text() { return std::string(Field()); }
  std::vector<std::string> Texts();

 private:
  std::string_view rest_;
};

/// Appends a number in seven bits a byte, lowest first.
void AppendCount(std::string& bytes, std::size_t count);
/// Takes such a number off the front.
std::size_t TakeCount(std::string_view& bytes);

}  // namespace marlinset

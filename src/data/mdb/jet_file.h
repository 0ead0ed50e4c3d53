// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "base/runtime_error.h"
#include "data/mdb/libmdb.h"

namespace marlinset {

/// An Access file, open for reading, page by page. The library takes numbers in the file on trust and runs
/// past its buffers, or for ever, when they are wrong. So everything that it is going to use of a page is
/// looked at here and in jet_table.h before it is called. Every doubt is failure 3343.
class JetFile {
 public:
  static constexpr int kPageSize = 4096;  ///< of Access 2000 to 2003

  explicit JetFile(const std::string& path);

  MdbHandle* Handle() const { return handle_.get(); }

  /// Makes `page` the library's current one. Failure 3343 beyond the end of the file.
  void ReadPage(std::uint32_t page);
  /// Failure 3343 for a number that is no page of the file; the first page is the header.
  void CheckPage(std::uint32_t page) const;

  /// The current page and little-endian numbers in it. Failure 3343 outside the page.
  std::span<const std::uint8_t> Page() const { return {Handle()->pg_buf, kPageSize}; }
  int Byte(int offset) const;
  int Int16(int offset) const;
  std::uint32_t Int32(int offset) const;

  /// Failure 3343 unless `holds`; `reason` is told to the operator.
  void Check(bool holds, std::string_view reason) const;

 private:
  struct Close {
    void operator()(MdbHandle* handle) const { mdb_close(handle); }
  };

  std::string path_;
  std::uint32_t pages_ = 0;
  std::unique_ptr<MdbHandle, Close> handle_;
};

}  // namespace marlinset

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

/// An Access file, open for reading page by page. The library trusts the numbers in the file and, if they are
/// wrong, runs past its buffers or for ever. So JetFile and jet_table.h check everything on a page that the
/// library is going to use, before it is called. Any doubt throws kErrBadDatabase.
class JetFile {
 public:
  static constexpr int kPageSize = 4096;  ///< of Access 2000 to 2003

  explicit JetFile(const std::string& path);

  MdbHandle* Handle() const { return handle_.get(); }

  /// Makes `page` the library's current one. Throws kErrBadDatabase beyond the end of the file.
  void ReadPage(std::uint32_t page);
  /// Throws kErrBadDatabase if the file has no such page; the first page is the header.
  void CheckPage(std::uint32_t page) const;

  /// The current page and little-endian numbers in it. Throws kErrBadDatabase outside the page.
  std::span<const std::uint8_t> Page() const { return {Handle()->pg_buf, kPageSize}; }
  int Byte(int offset) const;
  int Int16(int offset) const;
  std::uint32_t Int32(int offset) const;

  /// Throws kErrBadDatabase unless `holds`; the operator sees `reason`.
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

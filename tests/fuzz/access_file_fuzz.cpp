// SPDX-License-Identifier: GPL-3.0-or-later
// Gives the engine for Access files damaged copies of ACCESS_SAMPLE. The input is a list of edits: page,
// offset (high byte, low byte), count, then so many bytes. An edit beyond the last page cuts the file off.
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <span>
#include <string>

#include "base/runtime_error.h"
#include "core/reference_arrays.h"
#include "data/file_engine.h"
#include "data/mdb/mdb_engine.h"

namespace {

using Bytes = std::span<const std::uint8_t>;
constexpr std::size_t kPage = 4096;

/// A file in memory that Restore makes sound again.
class Copy {
 public:
  Copy() {
    std::ifstream in(ACCESS_SAMPLE, std::ios::binary);
    sample_.assign(std::istreambuf_iterator<char>(in), {});
    if (sample_.size() < kPage || file_ < 0) std::abort();
    Write(0, sample_);
  }

  std::string Path() const { return "/proc/self/fd/" + std::to_string(file_); }

  void Edit(Bytes edits) {
    constexpr std::size_t kHead = 4;
    while (edits.size() > kHead) {
      const std::size_t at = edits[0] * kPage + (edits[1] % 16 * 256U + edits[2]);
      const Bytes bytes = edits.subspan(kHead).first(std::min<std::size_t>(edits[3], edits.size() - kHead));
      edits = edits.subspan(kHead + bytes.size());
      if (at + bytes.size() > sample_.size()) {
        Resize(at % sample_.size());
      } else {
        Write(at, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
      }
    }
  }
  void Restore() {
    Resize(sample_.size());
    Write(0, sample_);
  }

 private:
  void Write(std::size_t at, std::string_view bytes) const {
    if (pwrite(file_, bytes.data(), bytes.size(), static_cast<off_t>(at)) !=
        static_cast<ssize_t>(bytes.size())) {
      std::abort();
    }
  }
  void Resize(std::size_t size) const {
    if (ftruncate(file_, static_cast<off_t>(size)) != 0) std::abort();
  }

  int file_ = memfd_create("copy", 0);
  std::string sample_;
};

void ReadEverything(const std::string& path) {
  using namespace marlinset;
  const auto database = MdbEngine().OpenDatabase(path);
  const auto read = [&](std::string_view table) {
    try {
      database->OpenRecordset(table);
    } catch (const RuntimeError&) {
      // This table is refused; the next may be sound.
    }
  };
  ForEachReferenceArray([&](const auto& array) { read(array.table); });
  for (const std::string_view table : {kDeletedParameters, std::string_view("General")}) read(table);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Copy copy;
  copy.Edit({data, size});
  try {
    ReadEverything(copy.Path());
  } catch (const marlinset::RuntimeError&) {
    // Refused.
  }
  copy.Restore();
  return 0;
}

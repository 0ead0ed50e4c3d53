// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "base/runtime_error.h"
#include "files/qcf_document.h"

namespace marlinset {

/// A file that is not a configuration of this tool. Every other failure of a reader means that the file is
/// damaged: SubscriptOutOfRange beyond its end, Overflow for a number that is too large.
class QcfError : public RuntimeError {
 public:
  enum class Fault {
    kHeader,   ///< the file has another signature or format version
    kNoModel,  ///< the configurations in the file are for other models
  };
  explicit QcfError(Fault fault) : RuntimeError(kErrFileFormat, "Invalid file format"), fault_(fault) {}
  Fault Which() const { return fault_; }

 private:
  Fault fault_;
};

/// Reads a configuration file from its bytes, field by field; independent of panels and disks.
class QcfReader {
 public:
  /// Reads up to and including the format version.
  explicit QcfReader(std::span<const std::uint8_t> bytes);

  /// 1 or 2.
  int FormatVersion() const { return static_cast<int>(version_ & 0xFFU); }
  /// All four bytes of the version; only the last of them counts.
  std::uint32_t VersionNumber() const { return version_; }
  std::span<const std::uint8_t> Identification() const { return identification_; }
  std::uint32_t ConfigurationLength() const { return configurationLength_; }

  /// Reads the next field, which must be `field`. Reads all records of a field, or none.
  QcfValue Read(const QcfField& field);

  /// Offset of what is read next, and the bytes from there on.
  std::size_t Position() const { return position_; }
  std::span<const std::uint8_t> Rest() const { return bytes_.subspan(position_); }

 private:
  void CheckSignature() const;
  void FindModel();
  void SkipModels(std::size_t& at, bool& found) const;
  std::uint8_t ByteAt(std::size_t at) const;
  std::uint32_t NumberAt(std::size_t at) const;
  std::size_t LengthAt(std::size_t at) const;
  std::string ReadText();
  std::vector<QcfRecord> ReadRecords(const QcfField& field);
  QcfRecord ReadRecord(const QcfField& field);

  std::span<const std::uint8_t> bytes_;
  std::size_t position_ = 0;
  std::span<const std::uint8_t> identification_;
  std::uint32_t configurationLength_ = 0;
  std::uint32_t version_ = 0;
};

/// Reads a complete file.
QcfDocument ReadDocument(std::span<const std::uint8_t> bytes);

}  // namespace marlinset

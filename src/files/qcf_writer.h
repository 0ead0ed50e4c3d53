// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "files/qcf_document.h"

namespace marlinset {

/// The first bytes of every configuration file: "QCF" 0 0 1.
inline constexpr std::array<std::uint8_t, 6> kQcfSignature = {0x51, 0x43, 0x46, 0x00, 0x00, 0x01};

// Tags of the items of the identification block. A U32 follows each tag: the number of models, or the length
// of the text.
inline constexpr std::uint8_t kQcfModels = 0x01;
inline constexpr std::uint8_t kQcfTitle = 0x02;
inline constexpr std::uint8_t kQcfToolVersion = 0x03;
inline constexpr std::uint8_t kQcfReserved = 0xFF;  ///< skipped like a text, never written

/// The model 7340, one byte for each digit.
inline constexpr std::uint32_t kQcfModel = 0x07030400;

/// What this tool writes into the identification block: model, title, version.
std::vector<std::uint8_t> OwnIdentification();

/// Appends a length or count as four bytes, made by subtracting full steps while the rest is greater than a
/// step, as the tools in the field do. Throws Overflow for every positive multiple of 65536, whose bytes
/// would have to reach 256.
void AppendCount(std::vector<std::uint8_t>& bytes, std::size_t count);

/// The blocks of a file, each preceded by its length. Throw Overflow for a byte outside 0 to 255, and for
/// lengths like AppendCount.
std::vector<std::uint8_t> IdentificationBlock(const QcfDocument& document);
std::vector<std::uint8_t> ConfigurationBlock(const QcfDocument& document);

/// Whether a file can hold the value, a record's parts included.
bool CanBeWritten(const QcfEntry& entry);

/// The complete file.
std::vector<std::uint8_t> WriteDocument(const QcfDocument& document);

}  // namespace marlinset

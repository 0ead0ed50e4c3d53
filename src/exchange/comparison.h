// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/qcf_document.h"
#include "files/qcf_values.h"

namespace marlinset {

class FrmStart;
struct Platform;
struct Variables;

/// A value that differs between the panels ("here") and something else ("there"). Nothing on a side that
/// lacks the window or parameter.
struct ComparedValue {
  std::string name;        ///< as QcfNamedValue names it
  std::string_view group;  ///< what it belongs to, in an operator's words: "Windows"
  std::string about = {};  ///< description of the parameter, empty for anything else
  std::optional<SingleValue> here;
  std::optional<SingleValue> there;

  /// Nothing that the panels could take over.
  bool OneSided() const { return !here || !there; }
};

/// What a value belongs to, in an operator's words.
std::string_view GroupOf(const QcfField& field);

/// A number in decimal, a text as it is.
std::string TextOf(const SingleValue& value);

/// Another configuration file, read once: what is compared and what is taken over stay the same whatever
/// becomes of the file.
struct OtherFile {
  std::string path;
  std::vector<std::uint8_t> bytes;
  QcfDocument document;
};

/// Compares the panels with other configurations. Leaves everything as it is: panels, the file dialog, the
/// present folder, settings.
class Comparison {
 public:
  Comparison(const Platform& platform, const Variables& variables, const FrmStart& form)
      : platform_(platform), vars_(variables), form_(form) {}

  /// Reads a file of any format version. Throws RuntimeError if it cannot be read, is no configuration, is
  /// damaged, or cannot be loaded into panels; the remedy names the file.
  OtherFile Read(const std::string& path) const;

  /// What differs, in the order of the panels, then what only the file has. A value is compared as a load
  /// under the present operating mode would give it: old names translated, texts that a box does not offer
  /// replaced, lines brought into the standard's range. Whether there is a window or parameter, the file
  /// itself says, whatever a load would add. Operating mode and identification are not compared.
  std::vector<ComparedValue> With(const OtherFile& other) const;

 private:
  const Platform& platform_;
  const Variables& vars_;
  const FrmStart& form_;
};

}  // namespace marlinset

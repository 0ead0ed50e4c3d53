// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/qcf_fields.h"

#include <algorithm>

#include "base/runtime_error.h"

namespace marlinset {
namespace {

using enum QcfEncoding;
using enum QcfUse;

constexpr QcfField Combo(std::string_view name, std::string_view control, int index, std::string_view missing,
                         QcfUse use = kCombo) {
  return {.name = name,
          .encoding = kText,
          .use = use,
          .control = control,
          .index = index,
          .missing = missing,
          .fallback = index};
}

constexpr QcfField Since(int version, QcfField field) {
  field.since = version;
  return field;
}

constexpr QcfField FallingBackTo(int element, QcfField field) {
  field.fallback = element;
  return field;
}

constexpr QcfField Byte(std::string_view name, std::string_view control, int index = kNoIndex,
                        QcfUse use = kPlain) {
  return {.name = name, .encoding = kByte, .use = use, .control = control, .index = index};
}

constexpr QcfField Part(std::string_view name, QcfEncoding encoding, std::string_view control = {}) {
  return {.name = name, .encoding = encoding, .control = control};
}

// The position is a byte although limits of windows may go beyond it.
constexpr QcfField kWindow[] = {
    Part("Name", kText, "lName"),     Part("Slate", kByte, "chSlate"),
    Part("On", kByte, "chOnOff"),     Part("Field", kByte, "chField"),
    Part("Symbol", kByte, "chSym"),   Since(2, Part("Double Height", kByte, "chDblSize")),
    Part("Vertical", kByte, "udVer"), Part("Horizontal", kByte, "udHor"),
};

constexpr QcfField kParameter[] = {
    Part("Class", kByte),
    Part("Parameter", kByte),
    Part("Description", kText),
    Part("Value", kValue),
};

// Operators know the messages as they stand: three boxes share one, and unknown user bits of the first VITC
// line reset the user bits of the LTC output.
constexpr std::string_view kNoFilter = "Horizontal Filter not found, auto set to default";

constexpr QcfField kFields[] = {
    {.name = "format version", .encoding = kU32, .use = kVersion},
    {.name = "operating mode", .encoding = kText, .use = kOperatingMode},
    Combo("video standard", "comVS", kNoIndex, "Video Standard not found, auto set to default"),
    Byte("VITC selection", "", kNoIndex, kVitcOption),
    Byte("characters on", "mnuCharOn", kNoIndex, kInserter),
    Combo("input time bits", "comTB", 0, "Input Time Bits not found, auto set to default", kSource),
    Combo("input user bits", "ComUB", 0, "Input User Bits not found, auto set to default", kSource),
    Combo("output LTC time bits", "comTB", 1, "Output LTC Time Bit not found, auto set to default",
          kSourceOfBox),
    Combo("output LTC user bits", "ComUB", 1, "Output LTC User Bit not found, auto set to default", kSource),
    Combo("output VITC1 time bits", "comTB", 2, "Output VITC1 Time Bit not found, auto set to default",
          kSourceOfBox),
    FallingBackTo(1, Combo("output VITC1 user bits", "ComUB", 2,
                           "Output VITC1 User Bit not found, auto set to default", kSourceOfBox)),
    Byte("VITC1 first line", "upVitc1", 1, kVitcLine),
    Byte("VITC1 second line", "upVitc1", 5, kVitcLine),
    Combo("output VITC2 time bits", "comTB", 3, "Output VITC2 Time Bit not found, auto set to default",
          kSource),
    Byte("VITC2 first line", "upVitc1", 2, kVitcLine),
    Byte("VITC2 second line", "upVitc1", 6, kVitcLine),
    Combo("output VITC3 time bits", "comTB", 4, "Output VITC3 Time Bit not found, auto set to default",
          kSource),
    Combo("output VITC3 user bits", "ComUB", 4, "Output VITC3 User Bit not found, auto set to default",
          kSource),
    Byte("VITC3 first line", "upVitc1", 3, kVitcLine),
    Byte("VITC3 second line", "upVitc1", 7, kVitcLine),
    Byte("VITC on", "chVITC"),
    Byte("duplicate lines", "chDups"),
    Byte("sync lines", "chSync"),
    Byte("white flag enable", "chEnable"),
    Byte("white flag line", "UpDown1"),
    Combo("window style", "ComWin", 2, "Window Style not found, auto set to default"),
    Combo("font size", "ComWin", 3, "Font Size not found, auto set to default", kFontSize),
    {.name = "slate duration", .encoding = kU32, .use = kPlain, .control = "UDDur"},
    Combo("slate mode", "ComWin", 1, "Slate Mode not found, auto set to default"),
    Byte("preview", "chPrev"),
    {.name = "text message", .encoding = kText, .use = kPlain, .control = "tWinMess"},
    Combo("down converter mode", "ComWin", 0, "Downconverter Mode not found, auto set to default"),
    Since(2, Combo("processing mode", "ComDownConv", 0,
                   "Downconverter Processing Mode not found, auto set to default")),
    Since(2, Combo("vertical filter", "ComDownConv", 1, kNoFilter)),
    Since(2, Combo("horizontal filter", "ComDownConv", 2, kNoFilter)),
    Since(2, Combo("SDI program output", "ComWin", 4, kNoFilter)),
    {.name = "character windows", .encoding = kRecords, .use = kWindows, .record = kWindow},
    {.name = "system parameters", .encoding = kRecords, .use = kParameters, .record = kParameter},
};

}  // namespace

std::span<const QcfField> QcfFields() {
  return kFields;
}

const QcfField& QcfFieldOf(QcfUse use) {
  const auto* found = std::find_if(std::begin(kFields), std::end(kFields),
                                   [use](const QcfField& field) { return field.use == use; });
  if (found == std::end(kFields)) throw SubscriptOutOfRange();
  return *found;
}

}  // namespace marlinset

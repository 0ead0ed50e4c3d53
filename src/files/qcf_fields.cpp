// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/qcf_fields.h"

#include <algorithm>

#include "base/runtime_error.h"
#include "core/choices.h"
#include "core/window_ticks.h"

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

constexpr QcfField Combo(std::string_view name, ChoiceId choice, std::string_view missing,
                         QcfUse use = kCombo) {
  return Combo(name, ChoiceOf(choice).control, ChoiceOf(choice).index, missing, use);
}

constexpr QcfField Since(int version, QcfField field) {
  field.since = version;
  return field;
}

constexpr QcfField FallingBackTo(ChoiceId choice, QcfField field) {
  field.fallback = ChoiceOf(choice).index;
  return field;
}

constexpr QcfField Byte(std::string_view name, std::string_view control, int index = kNoIndex,
                        QcfUse use = kPlain) {
  return {.name = name, .encoding = kByte, .use = use, .control = control, .index = index};
}

constexpr QcfField Part(std::string_view name, QcfEncoding encoding, std::string_view control = {}) {
  return {.name = name, .encoding = encoding, .control = control};
}

constexpr QcfField Identity(QcfField field) {
  field.identifies = true;
  return field;
}

constexpr QcfField Tick(std::string_view name, TickId tick) {
  return Part(name, kByte, TickOf(tick).control);
}

// The position is a byte although the limits of windows may exceed one.
constexpr QcfField kWindow[] = {
    Identity(Part("Name", kText, "lName")),
    Tick("Slate", TickId::kSlate),
    Tick("On", TickId::kOn),
    Tick("Field", TickId::kField),
    Tick("Symbol", TickId::kSymbol),
    Since(2, Tick("Double Height", TickId::kDoubleHeight)),
    Part("Vertical", kByte, "udVer"),
    Part("Horizontal", kByte, "udHor"),
};

constexpr QcfField kParameter[] = {
    Identity(Part("Class", kByte, "lClass")),
    Identity(Part("Parameter", kByte, "lParam")),
    Part("Description", kText, "lDesc"),
    Part("Value", kValue, "udVal"),
};

// Operators know these messages: three boxes share one, and unknown user bits of the first VITC line reset
// the user bits of the LTC output.
constexpr std::string_view kNoFilter = "Horizontal Filter not found, auto set to default";

constexpr QcfField kFields[] = {
    {.name = "format version", .encoding = kU32, .use = kVersion},
    {.name = "operating mode", .encoding = kText, .use = kOperatingMode},
    Combo("video standard", "comVS", kNoIndex, "Video Standard not found, auto set to default"),
    Byte("VITC selection", "", kNoIndex, kVitcOption),
    Byte("characters on", "mnuCharOn", kNoIndex, kInserter),
    Combo("input time bits", ChoiceId::kInputTimeBits, "Input Time Bits not found, auto set to default",
          kSource),
    Combo("input user bits", ChoiceId::kInputUserBits, "Input User Bits not found, auto set to default",
          kSource),
    Combo("output LTC time bits", ChoiceId::kLtcTimeBits,
          "Output LTC Time Bit not found, auto set to default", kSourceOfBox),
    Combo("output LTC user bits", ChoiceId::kLtcUserBits,
          "Output LTC User Bit not found, auto set to default", kSource),
    Combo("output VITC1 time bits", ChoiceId::kVitc1TimeBits,
          "Output VITC1 Time Bit not found, auto set to default", kSourceOfBox),
    FallingBackTo(ChoiceId::kLtcUserBits,
                  Combo("output VITC1 user bits", ChoiceId::kVitc1UserBits,
                        "Output VITC1 User Bit not found, auto set to default", kSourceOfBox)),
    Byte("VITC1 first line", "upVitc1", 1, kVitcLine),
    Byte("VITC1 second line", "upVitc1", 5, kVitcLine),
    Combo("output VITC2 time bits", ChoiceId::kVitc2TimeBits,
          "Output VITC2 Time Bit not found, auto set to default", kSource),
    Byte("VITC2 first line", "upVitc1", 2, kVitcLine),
    Byte("VITC2 second line", "upVitc1", 6, kVitcLine),
    Combo("output VITC3 time bits", ChoiceId::kVitc3TimeBits,
          "Output VITC3 Time Bit not found, auto set to default", kSource),
    Combo("output VITC3 user bits", ChoiceId::kVitc3UserBits,
          "Output VITC3 User Bit not found, auto set to default", kSource),
    Byte("VITC3 first line", "upVitc1", 3, kVitcLine),
    Byte("VITC3 second line", "upVitc1", 7, kVitcLine),
    Byte("VITC on", "chVITC"),
    Byte("duplicate lines", "chDups"),
    Byte("sync lines", "chSync"),
    Byte("white flag enable", "chEnable"),
    Byte("white flag line", "UpDown1"),
    Combo("window style", ChoiceId::kCharStyle, "Window Style not found, auto set to default"),
    Combo("font size", ChoiceId::kFontSize, "Font Size not found, auto set to default", kFontSize),
    {.name = "slate duration", .encoding = kU32, .use = kPlain, .control = "UDDur"},
    Combo("slate mode", ChoiceId::kSlateMode, "Slate Mode not found, auto set to default"),
    Byte("preview", "chPrev"),
    {.name = "text message", .encoding = kText, .use = kPlain, .control = "tWinMess"},
    Combo("down converter mode", ChoiceId::kAspectRatio, "Downconverter Mode not found, auto set to default"),
    Since(2, Combo("processing mode", ChoiceId::kProcessingMode,
                   "Downconverter Processing Mode not found, auto set to default")),
    Since(2, Combo("vertical filter", ChoiceId::kVerticalFilter, kNoFilter)),
    Since(2, Combo("horizontal filter", ChoiceId::kHorizontalFilter, kNoFilter)),
    Since(2, Combo("SDI program output", ChoiceId::kSdiProgramOut, kNoFilter)),
    {.name = "character windows", .encoding = kRecords, .use = kWindows, .record = kWindow},
    {.name = "system parameters", .encoding = kRecords, .use = kParameters, .record = kParameter},
};
static_assert(std::ranges::all_of(kFields, [](const QcfField& field) { return field.since <= kQcfVersion; }),
              "files must say that they have the field");
static_assert(kFields[std::size(kFields) - 2].use == kWindows && std::rbegin(kFields)->use == kParameters,
              "a load ends with the parameters");

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

bool IsPartOf(QcfUse list, const QcfField& field) {
  const auto parts = QcfFieldOf(list).record;
  return std::any_of(parts.begin(), parts.end(), [&](const QcfField& part) { return &part == &field; });
}

}  // namespace marlinset

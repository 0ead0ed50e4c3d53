// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

// The rows of the reference database in memory. A field has its column's name without blanks and slashes;
// core/record_columns.cpp maps columns to fields.

namespace marlinset {

template <class Rec>
struct RecordColumn;  // core/record_columns.h
/// The columns that feed a record, in the order in which they are read. One column may feed several fields.
template <class Rec>
using RecordColumns = std::span<const RecordColumn<Rec>>;

/// A video standard, identified everywhere by its description ("1080i/60").
struct VideoStandardRec {
  static const RecordColumns<VideoStandardRec> kColumns;
  std::string Description;
  double Code = 0;
  double Order = 0;
  bool Ignore1 = false;
  std::int16_t FrameRate = 0;
  std::int16_t Vitc1Min = 0;  ///< limits of first VITC line and white flag, in lines of a field
  std::int16_t Vitc1Max = 0;
  std::int16_t Vitc1Default1 = 0;  ///< default of the white flag line
  std::int16_t Vitc1Default2 = 0;  ///< default of the first VITC line and of its duplicate
  std::int16_t Vitc2Line1Min = 0;
  std::int16_t Vitc2Line1Max = 0;
  std::int16_t Vitc2Line1Default1 = 0;
  std::int16_t Vitc2Line1Default2 = 0;
  std::int16_t Vitc2Line2Min = 0;  ///< limits of the second VITC line and of its duplicate
  std::int16_t Vitc2Line2Max = 0;
  std::int16_t Vitc2Line2Default1 = 0;  ///< default of the second line at first start
  std::int16_t Vitc2Line2Default2 = 0;
  std::int16_t Vitc3Min = 0;  ///< limits of the third VITC line and of its duplicate
  std::int16_t Vitc3Max = 0;
  std::int16_t Vitc3Default1 = 0;  ///< default of the third line at first start
  std::int16_t Vitc3Default2 = 0;
  std::int16_t AncMin = 0;
  std::int16_t AncMax = 0;
  std::int16_t AncDefault = 0;
};

/// Limits of a character window's position for one video standard and font size.
struct CharMaxPosRec {
  static const RecordColumns<CharMaxPosRec> kColumns;
  std::string Description;  ///< the font size
  std::string VideoStandard;
  std::int16_t HardwareID = 0;  ///< the list of font sizes takes only rows with 1000 or 200
  std::int16_t MinVertPosn = 0;
  std::int16_t MaxVertPosn = 0;
  std::int16_t MinHorPosn = 0;
  std::int16_t MaxHorPosn = 0;
};

struct CharStyleRec {
  static const RecordColumns<CharStyleRec> kColumns;
  std::string CharStyleID;
  std::string Description;
  std::int16_t Code = 0;
  std::int16_t Order = 0;
  bool Ignore1 = false;
};

struct CharSizeRec {
  static const RecordColumns<CharSizeRec> kColumns;
  std::string CharSizeID;
  std::string Description;
  std::int16_t Code = 0;
  bool Ignore1 = false;
};

/// An entry of a list, with its code on the wire: slate modes, down converter modes.
struct CodedItemRec {
  static const RecordColumns<CodedItemRec> kColumns;
  std::string Description;
  std::int16_t Code = 0;
  bool Ignore1 = false;
};

/// A processing mode of the down converter, offered for one video standard.
struct DownConvProcessRec {
  static const RecordColumns<DownConvProcessRec> kColumns;
  std::int16_t Order = 0;
  std::string Description;
  std::int16_t Code = 0;
  std::string VideoStandard;
  bool Ignore1 = false;
};

/// An entry of a list that its table orders: down converter filters, SDI program outputs.
struct OrderedCodeRec {
  static const RecordColumns<OrderedCodeRec> kColumns;
  std::int16_t Order = 0;
  std::string Description;
  std::int16_t Code = 0;
  bool Ignore1 = false;
};

/// A source of time code or user bits that a box can offer.
struct CodeSourceRec {
  static const RecordColumns<CodeSourceRec> kColumns;
  std::string FieldValue;  ///< all rows with one value form the list of one box
  std::string Description;
  std::int16_t GenNumber = 0;  ///< the code on the wire
  std::string DropFrame;
};

/// Which list feeds which box of the routing panels in one operating mode.
struct TimeCodeAssignmentRec {
  static const RecordColumns<TimeCodeAssignmentRec> kColumns;
  std::string Name;  ///< operating mode
  std::int16_t Order = 0;
  std::int16_t VITCMode = 0;  ///< 1, 2 or 3: number of VITC lines that the row enables
  std::string FieldName;      ///< the box ("VITC1T")
  std::string FieldValue;     ///< the list
  bool Ignore1 = false;
};

struct OperatingModeRec {
  static const RecordColumns<OperatingModeRec> kColumns;
  std::string ModeId;
  std::string Name;
  std::int16_t Order = 0;
  std::string Description;
  bool Ignore1 = false;
};

struct HelpMessageRec {
  static const RecordColumns<HelpMessageRec> kColumns;
  std::int16_t ModuleIdent = 0;
  std::int16_t MessageNumber = 0;
  std::string MessageText;
};

/// A character window of the unit. The check boxes of its row hold its flags; its position is both here and
/// in the row's spins.
struct CharWindowRec {
  static const RecordColumns<CharWindowRec> kColumns;
  std::string Name;
  std::int16_t Number = 0;  ///< on the wire
  bool On = false;
  std::int16_t Top = 0;     ///< vertical position in force, in units of eight lines of a field
  std::int16_t Left = 0;    ///< horizontal position in force, in characters
  std::int16_t Length = 0;  ///< base width in characters
  bool SlateOn = false;
  bool SymbolOn = false;
  std::int16_t SymbolLength = 0;  ///< extra characters with the symbol; 0: the window has none
  bool FieldOn = false;
  std::int16_t FieldLength = 0;  ///< extra characters with the field digit; 0: the window has none
  std::int16_t DefaultHorPosn = 0;
  std::int16_t DefaultVertPosn = 0;
  bool DefaultOnOff = false;
  bool DefaultSlateOnOff = false;
  bool DefaultSymbolOnOff = false;
  bool DefaultFieldOnOff = false;
  bool Ignore1 = false;
  bool Highlighted = false;  ///< of the last highlight message; not in the database
  bool DoubleHeight = false;
};

/// The name of the window that shows the text message.
inline constexpr std::string_view kTextWindow = "Text";

/// A numeric parameter of the unit; class and parameter number identify it on the wire and in files.
struct SystemParameterRec {
  static const RecordColumns<SystemParameterRec> kColumns;
  std::int16_t Class = 0;
  std::int16_t Parameter = 0;
  std::string Description;
  std::int16_t Value = 0;
};

/// What identifies a parameter.
struct ParameterKey {
  int parameterClass = 0;
  int number = 0;
  bool operator<(const ParameterKey& other) const {
    return parameterClass != other.parameterClass ? parameterClass < other.parameterClass
                                                  : number < other.number;
  }
  bool operator==(const ParameterKey& other) const = default;
};

inline ParameterKey KeyOf(const SystemParameterRec& parameter) {
  return {parameter.Class, parameter.Parameter};
}

/// Parameters of classes 1 and 25 are internal to the unit: no visible row shows them, and they are not sent
/// one by one.
constexpr bool IsInternalClass(int parameterClass) {
  return parameterClass == 1 || parameterClass == 25;
}

}  // namespace marlinset

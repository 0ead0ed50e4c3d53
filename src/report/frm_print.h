// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "controls/control_array.h"
#include "controls/control_types.h"
#include "controls/form.h"

namespace marlinset {

/// The printed page without paper: read-only copies of the main window's panels. A new one has the state of
/// page 1: all panels shown but the parameters.
class FrmPrint : public Form {
 public:
  explicit FrmPrint(Guard& guard);

  /// 0 to 9 time bits and user bits of input, LTC and VITC lines; 10 white flag line; 11 to 16 VITC lines and
  /// their duplicates; the others have names.
  ControlArray<TextBox> tOutbox{*this, "tOutbox", {0,  1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12,
                                                   13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25}};
  static constexpr int kAspectRatio = 17, kStyle = 18, kFontSize = 19, kSlateMode = 20, kVitcCount = 21;
  static constexpr int kPort = 22, kStandard = 23, kDateAndTime = 24, kName = 25;
  Label lPage{*this, "lPage"};
  /// 0 to 4 beside the time bits of the same number.
  ControlArray<Label> ltimeBits{*this, "ltimeBits", {0, 1, 2, 3, 4}};
  /// 0 to 4 beside the user bits of the same number, then those of three places in tOutbox.
  ControlArray<Label> lUserBits{*this, "lUserBits", {0, 1, 2, 3, 4, 5, 6, 7}};
  static constexpr int kVitcCountLabel = 5, kPortLabel = 6, kStandardLabel = 7;
  /// 0 white flag line; 1 to 3 VITC lines; 4 style; 5 font size; 6 slate mode; 7 slate duration; 8 aspect
  /// ratio; 9 to 11 beside TxtNew.
  ControlArray<Label> lMisc{*this, "lMisc", {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}};
  static constexpr int kModelLabels[] = {9, 10, 11};

  Frame fCodes{*this, "fCodes"}, fOutputs{*this, "fOutputs"}, fLTCOut{*this, "fLTCOut"};
  Frame fVITC1{*this, "fVITC1"}, fVITC2{*this, "fVITC2"}, fVITC3{*this, "fVITC3"}, fWhite{*this, "fWhite"};
  CheckBox chVITC{*this, "chVITC"}, chDups{*this, "chDups"}, chSync{*this, "chSync"};
  CheckBox chEnable{*this, "chEnable"};

  Frame fAttribs{*this, "fAttribs"}, fVirtual{*this, "fVirtual"}, fWinMess{*this, "fWinMess"};
  ControlArray<TextBox> tLineNumber{*this, "tLineNumber", {4}};  ///< slate duration in frames
  CheckBox chPrev{*this, "chPrev"};
  TextBox tWinMess{*this, "tWinMess"};
  Frame fDownConv{*this, "fDownConv"}, fSDIProgramOut{*this, "fSDIProgramOut"};
  ControlArray<TextBox> TxtNew{*this, "TxtNew", {0, 1, 2}};  ///< processing mode, vertical, horizontal filter
  TextBox TxtSDI{*this, "TxtSDI"};

  Frame fPosition{*this, "fPosition"};
  ControlArray<Label> lHead{*this, "lHead", {0, 1, 2, 3, 4, 5, 6, 7}};  ///< heads of the window rows
  ControlArray<Label> lName{*this, "lName", {}};
  ControlArray<CheckBox> chSlate{*this, "chSlate", {}}, chOnOff{*this, "chOnOff", {}};
  ControlArray<CheckBox> chField{*this, "chField", {}}, chSym{*this, "chSym", {}};
  ControlArray<CheckBox> chDblSize{*this, "chDblSize", {}};
  ControlArray<TextBox> tVert{*this, "tVert", {}}, tHor{*this, "tHor", {}};

  Frame fParameters{*this, "fParameters"};
  Button bClass{*this, "bClass"}, bParam{*this, "bParam"}, bDesc{*this, "bDesc"}, bValue{*this, "bValue"};
  ControlArray<Label> lClass{*this, "lClass", {}}, lParam{*this, "lParam", {}}, lDesc{*this, "lDesc", {}};
  ControlArray<TextBox> tVal{*this, "tVal", {}};

  /// Adds row `row` to the window table, shown.
  void LoadWindowRow(int row);
  void HideWindowRow(int row);
  /// Adds row `row` to the parameter table, shown.
  void LoadParameterRow(int row);
  /// Turns a new form into page 2: the parameters instead of all other panels.
  void ShowParametersOnly();

 private:
  std::vector<Control*> WindowRow(int row);
};

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <utility>

#include "controls/control_array.h"
#include "controls/control_types.h"
#include "controls/form.h"
#include "controls/timer.h"

namespace marlinset {

/// Position and size of the main window. Settings store them in twips: 1/1440 inch, 15 to a pixel of a 96 dpi
/// screen.
struct WindowPlace {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  bool operator==(const WindowPlace&) const = default;
};

/// Measures that decide where the main window first appears, in twips. Whoever shows the window measures
/// them; the values here are for a tool without a screen.
struct WindowMeasures {
  int menuBarHeight = 330;
  int statusBarHeight = 330;
  int windowsWidth = 15000;  ///< of the panel fWindows
  int windowsHeight = 8500;
  int screenWidth = 28800;
  int screenHeight = 16200;
};

/// The main window, independent of any screen. Its panels are the working configuration: selected texts,
/// ticks and spin values are what is sent, saved and printed. frm_start_captions.cpp holds captions and tool
/// tips.
class FrmStart : public Form {
 public:
  FrmStart(TimerQueue& timers, Guard& guard);
  ~FrmStart() override;

  // File
  MenuItem mnuNew{*this, "mnuNew"}, mnuOpen{*this, "mnuOpen"}, mnuSav{*this, "mnuSav"};
  MenuItem mnuSave{*this, "mnuSave"};  ///< Save As
  MenuItem mnuCompare{*this, "mnuCompare"};
  MenuItem mnuPrint{*this, "mnuPrint"}, mnuPreview{*this, "mnuPreview"}, mnuExport{*this, "mnuExport"};
  MenuItem mnuImport{*this, "mnuImport"}, mnuExportCsv{*this, "mnuExportCsv"};
  MenuItem mnuImportPar{*this, "mnuImportPar"}, mnuImportWin{*this, "mnuImportWin"};
  MenuItem mnuExportPar{*this, "mnuExportPar"}, mnuExportWin{*this, "mnuExportWin"};
  MenuItem mnuExit{*this, "mnuExit"};
  // Edit
  MenuItem mnuUndo{*this, "mnuUndo"}, mnuRedo{*this, "mnuRedo"};
  // Mode
  MenuItem mnuMode{*this, "mnuMode"}, mnuInter{*this, "mnuInter"}, mnuOff{*this, "mnuOff"};
  // View
  MenuItem mnuPicture{*this, "mnuPicture"}, mnuTraffic{*this, "mnuTraffic"};
  MenuItem mnuStill{*this, "mnuStill"},
      mnuNoStill{*this, "mnuNoStill"};                              ///< behind the windows of the picture
  MenuItem mnuSafe{*this, "mnuSafe"}, mnuSlate{*this, "mnuSlate"};  ///< what the picture shows
  // Options
  MenuItem mnuCom1{*this, "mnuCom1"}, mnuCom2{*this, "mnuCom2"}, mnuCom3{*this, "mnuCom3"};
  MenuItem mnuCom4{*this, "mnuCom4"};
  /// The entry of a port, 1 to 4.
  MenuItem& ComMenu(int port);
  MenuItem mnuPorts{*this, "mnuPorts"};
  MenuItem mnuHardwareType{*this, "mnuHardwareType"};
  MenuItem mnuHD7340{*this, "mnuHD7340"}, mnuHD7340Q{*this, "mnuHD7340Q"};
  MenuItem mnuAuto{*this, "mnuAuto"}, mnuMan{*this, "mnuMan"};
  MenuItem mnuChar{*this, "mnuChar"}, mnuCharOn{*this, "mnuCharOn"}, mnuCharOff{*this, "mnuCharOff"};
  MenuItem mnuStat{*this, "mnuStat"};
  MenuItem mnu10{*this, "mnu10"}, mnu20{*this, "mnu20"}, mnu30{*this, "mnu30"}, mnu60{*this, "mnu60"};
  MenuItem mnuNever{*this, "mnuNever"}, mnuCommD{*this, "mnuCommD"};
  // Parameters, Help
  MenuItem mnuAddParameter{*this, "mnuAddParameter"}, mnuRemoveParameter{*this, "mnuRemoveParameter"};
  MenuItem mnuContents{*this, "mnuContents"}, mnuAbout{*this, "mnuAbout"};
  MenuItem mnuGuide{*this, "mnuGuide"};  ///< the window opens the guide; no rule is involved

  // Tool bar
  Frame CoolBar1{*this, "CoolBar1"}, fComBut{*this, "fComBut"}, fVITC{*this, "fVITC"};
  Frame fControl{*this, "fControl"}, fView{*this, "fView"};
  PictureBox pComBut{*this, "pComBut"};  ///< traffic: red closed, green traffic, yellow answer awaited
  ControlArray<PictureBox> Image1{*this, "Image1", {0, 1, 2, 3, 4}};  ///< frames of the heartbeat
  ControlArray<PictureBox> Image2{*this, "Image2", {0, 1, 2}};        ///< presence of video
  Label tVITC{*this, "tVITC"};
  OptionGroup vitcModes;
  ControlArray<OptionButton> oVITC{*this, "oVITC", {0, 1, 2}};
  Button bOpen{*this, "bOpen"}, bClose{*this, "bClose"}, bSConfig{*this, "bSConfig"};
  Button bSChanges{*this, "bSChanges"};
  Button bStop{*this, "bStop"};       ///< ends a send after the message under way
  Label lRemarks{*this, "lRemarks"};  ///< how many remarks there are on the setup; empty for none
  Button bSend{*this, "bSend"}, bBroad{*this, "bBroad"}, bGetID{*this, "bGetID"};
  OptionGroup views;
  ControlArray<OptionButton> oView{*this, "oView", {0, 1, 2, 3, 4, 5}};
  ComboBox comVS{*this, "comVS"};

  // Bottom of the window
  TextBox tInput{*this, "tInput"};  ///< log of received bytes
  ControlArray<StatusPanel> StatBar{*this, "StatBar", {1, 2, 3, 4}};

  // The six panels
  Frame fCodes{*this, "fCodes"}, fOutputs{*this, "fOutputs"}, fWindows{*this, "fWindows"};
  Frame fParameters{*this, "fParameters"}, fOptions{*this, "fOptions"};
  Frame fDownConverter{*this, "fDownConverter"};

  // Routing: 0 input, 1 LTC output, 2 to 4 VITC lines
  ControlArray<Label> ltimeBits{*this, "ltimeBits", {0, 1, 2, 3, 4}};
  ControlArray<Label> lUserBits{*this, "lUserBits", {0, 1, 2, 3, 4}};
  ControlArray<ComboBox> comTB{*this, "comTB", {0, 1, 2, 3, 4}};
  ControlArray<ComboBox> ComUB{*this, "ComUB", {0, 1, 2, 3, 4}};

  // Outputs
  Frame fLTCOut{*this, "fLTCOut"}, fVITC1{*this, "fVITC1"}, fVITC2{*this, "fVITC2"};
  Frame fVITC3{*this, "fVITC3"}, fWhite{*this, "fWhite"};
  CheckBox chVITC{*this, "chVITC"}, chDups{*this, "chDups"}, chSync{*this, "chSync"};
  ControlArray<SpinControl> upVitc1{*this, "upVitc1", {1, 2, 3, 5, 6, 7}};  ///< 5 to 7: duplicate lines
  ControlArray<TextBox> tLineNumber{*this, "tLineNumber", {0, 1, 2, 3, 4, 5, 6, 7}};
  CheckBox chEnable{*this, "chEnable"};
  SpinControl UpDown1{*this, "UpDown1"};  ///< white flag line

  // Windows
  Frame fPosition{*this, "fPosition"}, fAttribs{*this, "fAttribs"}, fVirtual{*this, "fVirtual"};
  Frame fWinMess{*this, "fWinMess"};
  PictureBox pWinOut{*this, "pWinOut"}, pWinTools{*this, "pWinTools"}, pWinIn{*this, "pWinIn"};
  Button bName{*this, "bName"}, bOn{*this, "bOn"}, bSlate{*this, "bSlate"}, bDblHeight{*this, "bDblHeight"};
  Button bSymbol{*this, "bSymbol"}, bField{*this, "bField"}, bHor{*this, "bHor"}, bVer{*this, "bVer"};
  ControlArray<Label> lName{*this, "lName", {0}};
  ControlArray<CheckBox> chOnOff{*this, "chOnOff", {0}}, chSlate{*this, "chSlate", {0}};
  ControlArray<CheckBox> chDblSize{*this, "chDblSize", {0}}, chSym{*this, "chSym", {0}};
  ControlArray<CheckBox> chField{*this, "chField", {0}};
  ControlArray<TextBox> tVert{*this, "tVert", {0}}, tHor{*this, "tHor", {0}};
  ControlArray<SpinControl> udVer{*this, "udVer", {0}}, udHor{*this, "udHor", {0}};
  Line Line1{*this, "Line1"};
  ControlArray<Line> Line2{*this, "Line2", {0}};
  /// Runs `action` with each array that has an element for a window's row.
  template <class Action>
  void ForWindowRow(Action action) {
    ForWindowRowOf(*this, action);
  }
  /// Whether all these arrays have an element for a window's row.
  bool HasWindowRow(int row) const;
  ScrollBar VScroll1{*this, "VScroll1"};
  /// 0 aspect ratio, 1 slate mode, 2 character style, 3 font size, 4 SDI program output
  ControlArray<ComboBox> ComWin{*this, "ComWin", {0, 1, 2, 3, 4}};
  SpinControl UDDur{*this, "UDDur"};  ///< slate duration in frames
  CheckBox chPrev{*this, "chPrev"};
  TextBox tWinMess{*this, "tWinMess"};

  // Parameters
  PictureBox pParOut{*this, "pParOut"}, pParTools{*this, "pParTools"}, pParIn{*this, "pParIn"};
  /// Captions of `bValue`: the radix in which the list shows its values.
  static constexpr const char* kDecimalHead = "Value (Dec)";
  static constexpr const char* kHexadecimalHead = "Value (Hex)";
  Button bClass{*this, "bClass"}, bParam{*this, "bParam"}, bDesc{*this, "bDesc"}, bValue{*this, "bValue"};
  ControlArray<Label> lClass{*this, "lClass", {0}}, lParam{*this, "lParam", {0}};
  ControlArray<Label> lDesc{*this, "lDesc", {0}};
  ControlArray<TextBox> tVal{*this, "tVal", {0}};
  ControlArray<SpinControl> udVal{*this, "udVal", {0}};
  Line lPara1{*this, "lPara1"};
  ControlArray<Line> lPara2{*this, "lPara2", {0}};
  /// Runs `action` with each array that has an element for a row of the list.
  template <class Action>
  void ForParameterRow(Action action) {
    action(lClass);
    action(lParam);
    action(lDesc);
    action(tVal);
    action(udVal);
    action(lPara2);
  }
  /// Whether all these arrays have an element for a parameter's row.
  bool HasParameterRow(int row);
  ScrollBar VScroll2{*this, "VScroll2"};

  // DownConverter
  Frame fDownConv{*this, "fDownConv"}, fProcessingMode{*this, "fProcessingMode"};
  Frame fFilters{*this, "fFilters"}, fSDIProgramOut{*this, "fSDIProgramOut"};
  /// 0 processing mode, 1 vertical filter, 2 horizontal filter
  ControlArray<ComboBox> ComDownConv{*this, "ComDownConv", {0, 1, 2}};

  // Timers; intervals in milliseconds at the start
  Timer InterTime;    ///< 5000: poll of interactive mode
  Timer dPause;       ///< 10000: wait for an acknowledgement; 100 after the first Get ID
  Timer timeRes;      ///< 10000: wait for a reply, 100 while one is awaited
  Timer TimerNew;     ///< 10000: wait for a slow acknowledgement
  Timer tClearStat;   ///< 10000: clears the status bar while off line
  Timer Timer1;       ///< 250: the mouse rests on a window's name
  Timer AboutTimer1;  ///< 1000: wait for the firmware text

  const WindowPlace& Place() const { return place_; }
  /// Moves the window.
  void SetPlace(const WindowPlace& place);
  /// Records that the operator has moved the window; raises no event.
  void NotePlace(const WindowPlace& place) { place_ = place; }
  WindowMeasures measures;
  /// How panels are docked at the main window, as the program that shows it describes that; empty: as at
  /// first.
  const std::string& Docks() const { return docks_; }
  void SetDocks(std::string docks);
  /// The operator has moved a panel; nobody needs to be told.
  void NoteDocks(std::string docks) { docks_ = std::move(docks); }

  /// Shows the state of the link on the indicator (red, green or yellow) and hides the heartbeat.
  void ShowTraffic(Color color);
  /// Hides the five frames of the heartbeat.
  void HideImages();
  // Indices of Image2.
  static constexpr int kVideoPresent = 0, kNoVideo = 1, kVideoUnknown = 2;
  /// Shows a picture of Image2 in panel 3 of the status bar.
  void ShowVideoPicture(int index);
  /// Ticks interactive mode or off line in the menu. `polls` starts or stops polling the unit.
  void SetInteractive(bool interactive, bool polls);
  /// Whether panel 4 ends in "7340Q": such a unit has the down converter's processing modes and the program
  /// output.
  bool ModelIsQ() const;
  // Indices of the panels of StatBar.
  static constexpr int kExchangePanel = 1;  ///< result of the last exchange: "Sent", "Ack In", "Local Mode"
  static constexpr int kStandardPanel = 2;  ///< the unit's video standard, or the state of the port
  static constexpr int kVideoPanel = 3;     ///< presence of video, with a picture; progress of a send
  static constexpr int kModelPanel = 4;     ///< the unit's model
  // Indices of ComWin and ComDownConv.
  static constexpr int kAspectRatio = 0, kSlateMode = 1, kCharStyle = 2, kFontSize = 3, kSdiProgramOut = 4;
  static constexpr int kProcessingMode = 0, kVerticalFilter = 1, kHorizontalFilter = 2;
  // Indices of tLineNumber that echo no VITC line.
  static constexpr int kWhiteFlagEcho = 0, kSlateDurationEcho = 4;
  /// Row of the window that shows the text message.
  static constexpr int kTextWindowRow = 13;
  /// Height of a row of the tables of windows and parameters, and of the headings above it, in the sheets'
  /// units.
  static constexpr int kRowHeight = 255;
  /// The six spins of the VITC lines: first, second and third line, then their duplicates.
  static constexpr int kVitcLineIndices[] = {1, 2, 3, 5, 6, 7};

 private:
  template <class Form, class Action>
  static void ForWindowRowOf(Form& form, Action action) {
    action(form.lName);
    action(form.chSlate);
    action(form.chOnOff);
    action(form.chField);
    action(form.chSym);
    action(form.tVert);
    action(form.udVer);
    action(form.tHor);
    action(form.udHor);
    action(form.chDblSize);
    action(form.Line2);
  }
  void SetCaptions();
  void SetStartState();

  WindowPlace place_;
  std::string docks_;
};

}  // namespace marlinset

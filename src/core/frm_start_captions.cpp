// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/program_title.h"
#include "core/frm_start.h"

namespace marlinset {
namespace {

struct CaptionRow {
  const char* control;
  int index;
  const char* caption;
  const char* toolTip = "";
};

/// Captions as operators know them.
constexpr CaptionRow kCaptions[] = {
    {"mnuNew", kNoIndex, "New"},
    {"mnuOpen", kNoIndex, "Open..."},
    {"mnuSav", kNoIndex, "Save"},
    {"mnuSave", kNoIndex, "Save As..."},
    {"mnuPrint", kNoIndex, "Print"},
    {"mnuPreview", kNoIndex, "Print preview..."},
    {"mnuExport", kNoIndex, "Export as PDF..."},
    {"mnuExit", kNoIndex, "Exit"},
    {"mnuUndo", kNoIndex, "Undo"},
    {"mnuRedo", kNoIndex, "Redo"},
    {"mnuMode", kNoIndex, "Mode"},
    {"mnuInter", kNoIndex, "Interactive"},
    {"mnuOff", kNoIndex, "Off"},
    {"mnuPicture", kNoIndex, "Picture"},
    {"mnuStill", kNoIndex, "Background...", "A still behind the windows of the picture"},
    {"mnuNoStill", kNoIndex, "No Background"},
    {"mnuSafe", kNoIndex, "Safe Frames", "Frames of 90 % and 80 %"},
    {"mnuSlate", kNoIndex, "Slate", "Shows the windows of the virtual slate too"},
    {"mnuCom1", kNoIndex, "Com 1"},
    {"mnuCom2", kNoIndex, "Com 2"},
    {"mnuCom3", kNoIndex, "Com 3"},
    {"mnuCom4", kNoIndex, "Com 4"},
    {"mnuHardwareType", kNoIndex, "Hardware Type"},
    {"mnuHD7340", kNoIndex, "HD7340"},
    {"mnuHD7340Q", kNoIndex, "HD7340Q"},
    {"mnuAuto", kNoIndex, "Auto"},
    {"mnuMan", kNoIndex, "Manual"},
    {"mnuChar", kNoIndex, "Char Inserter"},
    {"mnuCharOn", kNoIndex, "Char On"},
    {"mnuCharOff", kNoIndex, "Char Off"},
    {"mnuStat", kNoIndex, "Stat Bar TimeOut"},
    {"mnu10", kNoIndex, "10 seconds"},
    {"mnu20", kNoIndex, "20 seconds"},
    {"mnu30", kNoIndex, "30 seconds"},
    {"mnu60", kNoIndex, "60 seconds"},
    {"mnuNever", kNoIndex, "Never"},
    {"mnuCommD", kNoIndex, "Comm Dialog On Off"},
    {"mnuAddParameter", kNoIndex, "Add New Parameter ..."},
    {"mnuRemoveParameter", kNoIndex, "Remove Parameter ..."},
    {"mnuContents", kNoIndex, "Contents"},
    {"mnuGuide", kNoIndex, "User Guide"},
    {"mnuAbout", kNoIndex, "About"},
    {"pComBut", kNoIndex, "", "Communications Indicator"},
    {"Image1", 0, "", "Interactive Mode Enabled"},
    {"Image1", 1, "", "Interactive Mode Enabled"},
    {"Image1", 2, "", "Interactive Mode Enabled"},
    {"Image1", 3, "", "Interactive Mode Enabled"},
    {"Image1", 4, "", "Interactive Mode Enabled"},
    {"Image2", 0, "", "Video Presence Indicator"},
    {"Image2", 1, "", "No Video Present"},
    {"Image2", 2, "", "Video Presence Indicator"},
    {"tVITC", kNoIndex, "VITC Mode (Lines):"},
    {"oVITC", 0, "1"},
    {"oVITC", 1, "2"},
    {"oVITC", 2, "3"},
    {"bOpen", kNoIndex, "Open"},
    {"bClose", kNoIndex, "Close"},
    {"bSConfig", kNoIndex, "Send Setup"},
    {"bSChanges", kNoIndex, "Send Changes", "Send what the unit does not hold yet"},
    {"lRemarks", kNoIndex, "", "What there is to remark on this setup"},
    {"bSend", kNoIndex, "Send"},
    {"bBroad", kNoIndex, "Broad"},
    {"bGetID", kNoIndex, "Get ID"},
    {"oView", 0, "Inputs", "Display 7340 Input Options"},
    {"oView", 1, "Outputs", "Display 7340 Output Options"},
    {"oView", 2, "Windows", "Display 7340 Character Window Setups"},
    {"oView", 3, "Parameters", "Display Optional Parameter Values"},
    {"oView", 4, "Options"},
    {"oView", 5, "DownConverter"},
    {"comVS", kNoIndex, "", "Video Standard of Current configuration"},
    {"fCodes", kNoIndex, "Inputs"},
    {"fOutputs", kNoIndex, "Outputs"},
    {"fWindows", kNoIndex, "Windows"},
    {"fParameters", kNoIndex, "Parameters"},
    {"fOptions", kNoIndex, "Options"},
    {"fDownConverter", kNoIndex, "DownConverter"},
    {"ltimeBits", 0, "Time Bits:"},
    {"ltimeBits", 1, "Time Bits:"},
    {"ltimeBits", 2, "Time Bits:"},
    {"ltimeBits", 3, "Time Bits:"},
    {"ltimeBits", 4, "Time Bits:"},
    {"lUserBits", 0, "User Bits:"},
    {"lUserBits", 1, "User Bits:"},
    {"lUserBits", 2, "User Bits:"},
    {"lUserBits", 3, "User Bits:"},
    {"lUserBits", 4, "User Bits:"},
    {"fLTCOut", kNoIndex, "LTC"},
    {"fVITC1", kNoIndex, "VITC 1st Line"},
    {"fVITC2", kNoIndex, "VITC 2nd Line"},
    {"fVITC3", kNoIndex, "VITC 3rd Line"},
    {"fWhite", kNoIndex, "White Flag"},
    {"chVITC", kNoIndex, "VITC Enabled"},
    {"chDups", kNoIndex, "Encode Duplicate VITC Lines"},
    {"chSync", kNoIndex, "Synchronize Line Numbers"},
    {"chEnable", kNoIndex, "Enabled"},
    {"UpDown1", kNoIndex, "Line Number"},
    {"fPosition", kNoIndex, "Position"},
    {"bName", kNoIndex, "Name", "What the window shows"},
    {"bOn", kNoIndex, "On/Off", "The window is in the picture"},
    {"bSlate", kNoIndex, "Slate", "The window is part of the virtual slate"},
    {"bDblHeight", kNoIndex, "Dbl Height", "Characters of double height"},
    {"bSymbol", kNoIndex, "Symbol", "A sign beside the value"},
    {"bField", kNoIndex, "Field", "The digit of the field after the frames"},
    {"bHor", kNoIndex, "Horizontal", "Character position of the left edge"},
    {"bVer", kNoIndex, "Vertical", "Video line of the upper edge"},
    {"fAttribs", kNoIndex, "Attributes"},
    {"ComWin", FrmStart::kAspectRatio, "Aspect Ratio:"},
    {"ComWin", FrmStart::kSlateMode, "Mode:"},
    {"ComWin", FrmStart::kCharStyle, "Style:"},
    {"ComWin", FrmStart::kFontSize, "Font Size:"},
    {"ComWin", FrmStart::kSdiProgramOut, "SDI Program Out"},
    {"fVirtual", kNoIndex, "Virtual Slate"},
    {"UDDur", kNoIndex, "Duration (frs):"},
    {"chPrev", kNoIndex, "Preview"},
    {"fWinMess", kNoIndex, "Text Window Message"},
    {"bClass", kNoIndex, "Class", "Sort List by Class/Parameter"},
    {"bParam", kNoIndex, "Parameter", "Number of the parameter within its class"},
    {"bDesc", kNoIndex, "Description", "Sort List by Description"},
    {"bValue", kNoIndex, FrmStart::kDecimalHead, "Toggle Dec or Hex View"},
    {"fDownConv", kNoIndex, "Aspect Ratio:"},
    {"fProcessingMode", kNoIndex, "Processing Mode:"},
    {"fFilters", kNoIndex, "Filters:"},
    {"ComDownConv", FrmStart::kProcessingMode, "Processing Mode:"},
    {"ComDownConv", FrmStart::kVerticalFilter, "Vertical Filter"},
    {"ComDownConv", FrmStart::kHorizontalFilter, "Horizontal Filter"},
    {"fSDIProgramOut", kNoIndex, "SDI Program Out"},
};

}  // namespace

void FrmStart::SetCaptions() {
  SetCaption(std::string(kProgramTitle));
  for (const CaptionRow& row : kCaptions) {
    Control* control = Find(row.control, row.index);
    if (!control) throw NoSuchElement(row.index);
    control->SetCaption(row.caption);
    control->SetToolTip(row.toolTip);
  }
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/scope.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "core/frm_start.h"

namespace marlinset {
namespace {

template <std::size_t kCount>
bool Contains(const std::array<std::string_view, kCount>& names, std::string_view name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

/// Heads that show how the parameter list is sorted, and the radix of its values.
constexpr auto kHeads = std::to_array<std::string_view>({"bClass", "bParam", "bDesc", "bValue"});
constexpr auto kSettingMenus = std::to_array<std::string_view>({"mnuCharOn", "mnuCharOff"});

/// What shows the link, the model of the unit, and which panel is in front.
constexpr auto kShowOther = std::to_array<std::string_view>(
    {"tInput",   "pComBut",        "Image1",         "Image2",          "CoolBar1", "fComBut",  "fVITC",
     "fControl", "fView",          "oView",          "fCodes",          "fOutputs", "fWindows", "fParameters",
     "fOptions", "fDownConverter", "fSDIProgramOut", "fProcessingMode", "fFilters", "lRemarks"});

constexpr auto kPassedOver = std::to_array<std::string_view>(
    {"bOpen",        "bClose",       "bSConfig",     "bSChanges",    "bSend",     "bBroad",   "bGetID",
     "bClass",       "bParam",       "bDesc",        "bValue",       "oView",     "VScroll1", "VScroll2",
     "mnuSav",       "mnuSave",      "mnuPrint",     "mnuPreview",   "mnuExport", "mnuExit",  "mnuUndo",
     "mnuRedo",      "mnuInter",     "mnuCom1",      "mnuCom2",      "mnuCom3",   "mnuCom4",  "mnuHD7340",
     "mnuHD7340Q",   "mnuAuto",      "mnuMan",       "mnu10",        "mnu20",     "mnu30",    "mnu60",
     "mnuImportPar", "mnuImportWin", "mnuExportPar", "mnuExportWin", "mnuNever",  "mnuCommD", "mnuAbout",
     "mnuPorts",     "mnuTraffic",   "bStop"});

/// Where the row of a control's element is named.
enum class Row { kNone, kWindow, kParameter };

struct ControlWords {
  std::string_view control;
  std::string_view words;
  int index = kNoIndex;  ///< kNoIndex: of any element
  Row row = Row::kNone;
};
constexpr ControlWords kWords[] = {
    {"mnuNew", "New"},
    {"mnuOpen", "Open"},
    {"mnuRecent", "Open"},
    {"mnuOff", "Mode Off"},
    {"cmdUpdate", "Add Parameter"},
    {"Command2", "Remove Parameter"},
    {"comVS", "Video Standard"},
    {"oVITC", "VITC Mode"},
    {"comTB", "Input Time Bits", 0},
    {"comTB", "LTC Time Bits", 1},
    {"comTB", "VITC 1st Line Time Bits", 2},
    {"comTB", "VITC 2nd Line Time Bits", 3},
    {"comTB", "VITC 3rd Line Time Bits", 4},
    {"ComUB", "Input User Bits", 0},
    {"ComUB", "LTC User Bits", 1},
    {"ComUB", "VITC 1st Line User Bits", 2},
    {"ComUB", "VITC 2nd Line User Bits", 3},
    {"ComUB", "VITC 3rd Line User Bits", 4},
    {"chVITC", "VITC Enabled"},
    {"chDups", "Duplicate VITC Lines"},
    {"upVitc1", "VITC Line 1", 1},
    {"upVitc1", "VITC Line 2", 2},
    {"upVitc1", "VITC Line 3", 3},
    {"upVitc1", "Duplicate of VITC Line 1", 5},
    {"upVitc1", "Duplicate of VITC Line 2", 6},
    {"upVitc1", "Duplicate of VITC Line 3", 7},
    {"tLineNumber", "Line Number"},
    {"chEnable", "White Flag"},
    {"UpDown1", "White Flag Line"},
    {"lName", "Position", kNoIndex, Row::kWindow},
    {"chOnOff", "On/Off", kNoIndex, Row::kWindow},
    {"chSlate", "Slate", kNoIndex, Row::kWindow},
    {"chDblSize", "Double Height", kNoIndex, Row::kWindow},
    {"chSym", "Symbol", kNoIndex, Row::kWindow},
    {"chField", "Field", kNoIndex, Row::kWindow},
    {"udVer", "Vertical", kNoIndex, Row::kWindow},
    {"tVert", "Vertical", kNoIndex, Row::kWindow},
    {"udHor", "Horizontal", kNoIndex, Row::kWindow},
    {"tHor", "Horizontal", kNoIndex, Row::kWindow},
    {"ComWin", "Aspect Ratio", FrmStart::kAspectRatio},
    {"ComWin", "Slate Mode", FrmStart::kSlateMode},
    {"ComWin", "Character Style", FrmStart::kCharStyle},
    {"ComWin", "Font Size", FrmStart::kFontSize},
    {"UDDur", "Slate Duration"},
    {"chPrev", "Slate Preview"},
    {"tWinMess", "Text Window Message"},
    {"udVal", "", kNoIndex, Row::kParameter},
    {"tVal", "", kNoIndex, Row::kParameter},
    {"ComDownConv", "Processing Mode", FrmStart::kProcessingMode},
};

const std::string& RowName(const ControlWords& words, int index, const FrmStart& form) {
  static const std::string none;
  const ControlArray<Label>& names = words.row == Row::kWindow ? form.lName : form.lDesc;
  return words.row != Row::kNone && names.Has(index) ? names(index).Caption() : none;
}

}  // namespace

bool BelongsToConfiguration(const Control& control) {
  switch (control.Kind()) {
    case ControlKind::kStatusPanel:
      return false;
    case ControlKind::kButton:
      return Contains(kHeads, control.Name());
    case ControlKind::kMenuItem:
      return Contains(kSettingMenus, control.Name());
    default:
      return !Contains(kShowOther, control.Name());
  }
}

bool IsPassedOver(const Control& control) {
  return Contains(kPassedOver, control.Name());
}

bool JoinsQuickChanges(const Control& control) {
  return control.Kind() == ControlKind::kSpin || control.Kind() == ControlKind::kTextBox;
}

bool OpensFile(const Control& control) {
  return control.Name() == "mnuOpen" || control.Name() == "mnuRecent";
}

std::string NameOfAction(const Control& control, const FrmStart& form) {
  const auto found = std::find_if(std::begin(kWords), std::end(kWords), [&](const ControlWords& words) {
    return words.control == control.Name() && (words.index == kNoIndex || words.index == control.Index());
  });
  if (found == std::end(kWords)) {
    return control.Caption().empty() ? control.FullName() : control.Caption();
  }
  const std::string& row = RowName(*found, control.Index(), form);
  if (row.empty()) return found->words.empty() ? control.FullName() : std::string(found->words);
  return found->words.empty() ? row : std::string(found->words) + " of " + row;
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/frm_print.h"

namespace marlinset {
namespace {

struct CaptionRow {
  const char* control;
  const char* caption;
  int index = kNoIndex;
};

constexpr CaptionRow kCaptions[] = {
    {"fCodes", "Inputs"},
    {"fOutputs", "Active Outputs"},
    {"fLTCOut", "LTC"},
    {"fVITC1", "VITC 1st Line"},
    {"fVITC2", "VITC 2nd Line"},
    {"fVITC3", "VITC 3rd Line"},
    {"fWhite", "White Flag"},
    {"chVITC", "VITC Enabled"},
    {"chDups", "Encode Duplicate VITC Lines"},
    {"chSync", "Synchronize Line Numbers"},
    {"chEnable", "Enabled"},
    {"fAttribs", "Attributes"},
    {"fVirtual", "Virtual Slate"},
    {"chPrev", "Preview"},
    {"fWinMess", "Text Window Message"},
    {"fDownConv", "Down Converter"},
    {"fSDIProgramOut", "SDI Program Out"},
    {"fPosition", "Active Window Position"},
    {"fParameters", "Parameters"},
    {"bClass", "Class"},
    {"bParam", "Parameter"},
    {"bDesc", "Description"},
    {"bValue", "Value (Dec)"},
    {"lPage", "Page 1 of 2"},
    {"lUserBits", "VITC Mode:", FrmPrint::kVitcCountLabel},
    {"lUserBits", "Com Port:", FrmPrint::kPortLabel},
    {"lUserBits", "Video Standard:", FrmPrint::kStandardLabel},
    {"lMisc", "Line Number", 0},
    {"lMisc", "Line Numbers", 1},
    {"lMisc", "Line Numbers", 2},
    {"lMisc", "Line Numbers", 3},
    {"lMisc", "Style:", 4},
    {"lMisc", "Font Size:", 5},
    {"lMisc", "Mode:", 6},
    {"lMisc", "Duration (frs):", 7},
    {"lMisc", "Aspect Ratio:", 8},
    {"lMisc", "Processing Mode:", 9},
    {"lMisc", "V. Filter:", 10},
    {"lMisc", "H. Filter:", 11},
    {"lHead", "Name", 0},
    {"lHead", "Slate", 1},
    {"lHead", "On/Off", 2},
    {"lHead", "Field", 3},
    {"lHead", "Symbol", 4},
    {"lHead", "Dbl Height", 5},
    {"lHead", "Vertical Filter", 6},
    {"lHead", "Horizontal Filter", 7},
};

}  // namespace

FrmPrint::FrmPrint(Guard& guard) : Form("frmPrint", guard) {
  for (const CaptionRow& row : kCaptions) {
    Control* control = Find(row.control, row.index);
    if (!control) throw NoSuchElement(row.index);
    control->SetCaption(row.caption);
  }
  for (const int i : ltimeBits.Indices()) {
    ltimeBits(i).SetCaption("Time Bits:");
    lUserBits(i).SetCaption("User Bits:");
  }
  fParameters.SetVisible(false);
}

std::vector<Control*> FrmPrint::WindowRow(int row) {
  return {&lName(row), &chSlate(row),   &chOnOff(row), &chField(row),
          &chSym(row), &chDblSize(row), &tVert(row),   &tHor(row)};
}

void FrmPrint::LoadWindowRow(int row) {
  lName.Load(row);
  for (auto* boxes : {&chSlate, &chOnOff, &chField, &chSym, &chDblSize}) boxes->Load(row);
  tVert.Load(row);
  tHor.Load(row);
  for (Control* control : WindowRow(row)) control->SetVisible(true);
}

void FrmPrint::HideWindowRow(int row) {
  for (Control* control : WindowRow(row)) control->SetVisible(false);
}

void FrmPrint::LoadParameterRow(int row) {
  for (auto* labels : {&lClass, &lParam, &lDesc}) labels->Load(row).SetVisible(true);
  tVal.Load(row).SetVisible(true);
}

void FrmPrint::ShowParametersOnly() {
  Control* const panels[] = {&fAttribs, &fPosition, &fCodes,    &fOutputs,
                             &fVirtual, &fWinMess,  &fDownConv, &fSDIProgramOut};
  for (Control* panel : panels) panel->SetVisible(false);
  for (const int i : {kVitcCount, kPort, kStandard}) tOutbox(i).SetVisible(false);
  for (const int i : {kVitcCountLabel, kPortLabel, kStandardLabel}) lUserBits(i).SetVisible(false);
  fParameters.SetVisible(true);
  lPage.SetCaption("Page 2 of 2");
}

}  // namespace marlinset

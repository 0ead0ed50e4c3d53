// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/sample_panels.h"

#include <algorithm>

#include "core/frm_start.h"
#include "core/variables.h"

namespace marlinset {
namespace {

// Of rows with the same description the last counts.
void FillTables(Variables& vars) {
  vars.CharStyles = {{"A", "White on black", 1, 1, false},
                     {"B", "Black on white", 2, 2, false},
                     {"C", "White on black", 3, 3, false}};
  vars.CharSizes = {{"L", "Large (32 lines/field)", 1, false},
                    {"S", "Small (16 lines/field)", 2, false},
                    {"T", "Tiny (8 lines/field)", 3, false}};
  vars.SlateModes = {{"Off", 2, false}, {"On at Event Start", 4, false}};
  vars.DownConverterModes = {{"Letterbox", 5, false}, {"Crop", 6, false}};
  vars.DownConverterProcessModes = {{1, "Interlaced", 1, "1080i/60", false},
                                    {2, "Film", 6, "1080p/24", false}};
  vars.DownConverterFilters = {{1, "Soft", 1, false}, {2, "Sharp", 9, false}};
  vars.SdiProgramOutputs = {{1, "HD", 1, false}, {2, "SD", 7, false}};
  vars.CodeSources = {{"T", "LTC Reader Time", 1, ""},
                      {"T", "Film Data", 8, ""},
                      {"U", "LTC Reader Bits", 3, ""},
                      {"U", "Film Data", 9, ""},
                      {"T", "VITC Reader Time", 12, ""}};
}

void FillRows(Variables& vars, FrmStart& form) {
  vars.SystemParameters = {{1, 5, "Serial number", 77},
                           {2, 7, "Display brightness", 300},
                           {3, 2, "Genlock phase", -1},
                           {25, 1, "Trim", 9}};
  vars.CharWindows = {{.Name = "Video Timecode",
                       .Number = 1,
                       .Top = 40,
                       .Left = 5,
                       .Length = 11,
                       .SymbolLength = 3,
                       .FieldLength = 2},
                      {.Name = "Keycode", .Number = 3, .Top = 30, .Left = 0, .Length = 20},
                      {.Name = "Text", .Number = 14, .Top = 200, .Left = 6, .Length = 16, .SymbolLength = 1}};
  for (const int i : {1, 2, 3}) form.lDesc.Load(i);
  for (const int i : {1, 2}) {
    form.ForWindowRow([i](auto& array) { array.Load(i).SetVisible(i == 2); });
  }
  // 0: field digit, double height, slate, on. 1: slate, which does not count while hidden. 2: symbol, on.
  for (CheckBox* box : {&form.chField(0), &form.chDblSize(0), &form.chSlate(0), &form.chOnOff(0),
                        &form.chSlate(1), &form.chSym(2), &form.chOnOff(2)}) {
    box->SetValue(1);
  }
}

}  // namespace

void SelectText(ComboBox& box, const std::string& text) {
  const auto found = std::find(box.List().begin(), box.List().end(), text);
  const auto index = static_cast<int>(found - box.List().begin());
  if (found == box.List().end()) box.AddItem(text);
  box.SetListIndex(index);
}

void FillSamplePanels(Variables& vars, FrmStart& form) {
  FillTables(vars);
  FillRows(vars, form);
  SelectText(form.comTB(0), "LTC Reader Time");
  SelectText(form.ComUB(0), "LTC Reader Bits");
  SelectText(form.comTB(1), "VITC Reader Time");
  SelectText(form.ComUB(1), "Film Data");
  SelectText(form.comTB(2), "Film Data");
  SelectText(form.ComUB(2), "LTC Reader Bits");
  SelectText(form.comTB(3), "VITC Reader Time");
  SelectText(form.comTB(4), "A source that no table has");
  SelectText(form.ComUB(4), "LTC Reader Time");
  for (const char* standard : {"2160p", "525i/60", "720p/60", "1080i/60"}) SelectText(form.comVS, standard);
  SelectText(form.ComWin(0), "Letterbox");
  SelectText(form.ComWin(1), "On at Event Start");
  SelectText(form.ComWin(2), "White on black");
  SelectText(form.ComWin(3), "Small (16 lines/field)");
  SelectText(form.ComWin(4), "SD");
  SelectText(form.ComDownConv(0), "Film");
  SelectText(form.ComDownConv(1), "Sharp");
  SelectText(form.ComDownConv(2), "Soft");
  form.oVITC(1).SetValue(true);
  for (const int line : {1, 2, 3}) {
    form.upVitc1(line).SetValue(13 + line);
    form.upVitc1(line + 4).SetValue(33 + line);
  }
  for (CheckBox* box : {&form.chVITC, &form.chDups, &form.chEnable}) box->SetValue(1);
  form.UpDown1.SetValue(21);
  form.UDDur.SetValue(300);
  form.tWinMess.SetText("take 3 é");
}

}  // namespace marlinset

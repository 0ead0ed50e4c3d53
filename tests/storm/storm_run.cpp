// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/storm/storm_run.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "files/qcf_document.h"
#include "link/replies.h"
#include "tests/storm/twin.h"

namespace marlinset {
namespace {

constexpr int kFewestSteps = 20;

bool ComesBackFromAFile(int parameterValue) {
  return parameterValue >= 0 && LoadedParameterValue(parameterValue) == parameterValue;
}

/// Brings the panels to values that come back from a file: a load moves lines, and files hold neither every
/// parameter's value nor undecided characters nor a text that was typed into a box of fixed choices.
void MendPanels(FrmStart& form) {
  for (const int first : {1, 5}) {
    form.upVitc1(first).SetValue(form.upVitc1(first).Lowest());
    form.upVitc1(first).SetValue(form.upVitc1(first).Lowest() + 2);
  }
  for (const int row : form.udVal.Indices()) {
    if (!ComesBackFromAFile(form.udVal(row).Value())) form.udVal(row).SetValue(0);
  }
  if (!form.mnuCharOn.Checked() && !form.mnuCharOff.Checked()) form.mnuCharOff.OperatorClick();
  for (Control* control : form.Controls()) {
    auto* box = dynamic_cast<ComboBox*>(control);
    if (!box || box->ListCount() == 0) continue;
    const auto& list = box->List();
    if (std::find(list.begin(), list.end(), box->Text()) == list.end()) box->SetListIndex(0);
  }
}

}  // namespace

StormReport StormRun::Run() {
  rig_.dialogs.onShow = [this](const MessageBox& box) { return Answer(box); };
  try {
    Start();
    for (int i = kFewestSteps + world_.Pick(mostSteps_ - kFewestSteps); i > 0 && !Ended(); --i) {
      ExpectSound();
      Step();
      ++report_.steps;
    }
    calm_ = true;
    if (!Ended()) {
      ExpectSound();
      world_.Trace("calm");
      Calm();
    }
    Ended() ? ExpectClosed() : Judge();
  } catch (const Hang&) {
    Fault("does not end");
  }
  return std::move(report_);
}

void StormRun::Fault(const std::string& what) {
  report_.faults.push_back("step " + std::to_string(report_.steps) + " (" + world_.Last() + "): " + what);
}

BoxAnswer StormRun::Answer(const MessageBox& box) {
  world_.Trace("box '" + box.text + "'");
  ++report_.boxes[box.text];
  if (TellsOfFailure(box)) Fault(box.text);
  WhileABoxStands();
  const bool agrees = calm_ || !world_.OneIn(3);
  if (box.buttons == BoxButtons::kYesNo) return agrees ? BoxAnswer::kYes : BoxAnswer::kNo;
  return agrees || box.buttons == BoxButtons::kOk ? BoxAnswer::kOk : BoxAnswer::kCancel;
}

void StormRun::ExpectSound() {
  int modes = 0;
  for (const int mode : {0, 1, 2}) modes += form_.oVITC(mode).Value() ? 1 : 0;
  if (modes != 1) Fault(std::to_string(modes) + " numbers of VITC lines chosen");
  if (rig_.vars.VitcChanging) Fault("VitcChanging");
  if (rig_.tool.wholeSend.Running()) Fault("a send still runs");
  if (form_.InterTime.Enabled() && !form_.mnuInter.Checked()) Fault("polls off line");
  if (form_.mnuInter.Checked() == form_.mnuOff.Checked()) Fault("neither on line nor off");
  ExpectRows();
}

void StormRun::ExpectRows() {
  const int windows = static_cast<int>(rig_.vars.CharWindows.size());
  for (int row = 0; row < windows; ++row) {
    const CharWindowRec& window = At(rig_.vars.CharWindows, row);
    if (!form_.HasWindowRow(row)) {
      Fault("window " + std::to_string(row) + " has no row");
    } else if (window.Top != std::abs(form_.udVer(row).Value()) || window.Left != form_.udHor(row).Value()) {
      Fault(window.Name + " stands elsewhere");
    }
  }
  if (form_.HasWindowRow(windows)) Fault("a row without a window");
  const int parameters = static_cast<int>(rig_.vars.SystemParameters.size());
  for (int row = 0; row < parameters; ++row) {
    const SystemParameterRec& parameter = At(rig_.vars.SystemParameters, row);
    if (IsInternalClass(parameter.Class)) continue;
    if (!form_.udVal.Has(row) || form_.udVal(row).Value() != parameter.Value)
      Fault("parameter " + std::to_string(row) + " and its row differ");
  }
  if (form_.udVal.Has(parameters) && form_.udVal(parameters).Visible()) Fault("a row without a parameter");
}

void StormRun::ExpectClosed() {
  report_.closed = true;
  if (rig_.line.PortOpen()) Fault("the port is open after the end");
  if (form_.Visible()) Fault("the window is there after the end");
}

void StormRun::Mend() {
  world_.Trace("mend");
  MendWeather(world_);
  rig_.files.room.reset();
  for (Form* form : rig_.tool.Forms()) {
    if (form != &form_) form->SetVisible(false);
  }
  // A byte log that is shown costs a reply when it is full.
  if (form_.tInput.Visible()) form_.mnuCommD.OperatorClick();
  if (VideoStandardCode(form_.comVS.Text()) == 0) form_.comVS.OperatorSelect(0);
  MendPanels(form_);
  world_.Trace("let the unit have the tool's standard");
  rig_.line.Unit().SetManual(true);
  rig_.line.Unit().SetStandard(VideoStandardCode(form_.comVS.Text()));
}

void StormRun::ExpectSent() {
  const SendResult& result = rig_.tool.wholeSend.Result();
  const int unknownModel = rig_.line.Unit().Model() == kUnknownModel ? 1 : 0;
  if (result.end != SendEnd::kComplete || result.Doubtful() != unknownModel) {
    return Fault(std::string("the send ended ") + NameOf(result.end) + ", " +
                 std::to_string(result.Doubtful()) + " of " + std::to_string(result.messages) +
                 " not acknowledged");
  }
  Faults(DifferencesToTwin(rig_));
}

int RunStorms(int argc, char** argv, StormReport (*run)(unsigned seed, bool trace)) {
  const int runs = argc > 1 ? std::atoi(argv[1]) : 10000;
  const unsigned first = argc > 2 ? static_cast<unsigned>(std::strtoul(argv[2], nullptr, 10)) : 1;
  std::map<std::string, int> boxes;
  int faulty = 0, steps = 0, closed = 0;
  for (unsigned seed = first; seed < first + static_cast<unsigned>(runs); ++seed) {
    const StormReport report = run(seed, runs == 1);
    for (const auto& [text, count] : report.boxes) boxes[text] += count;
    for (const std::string& fault : report.faults) std::printf("seed %u: %s\n", seed, fault.c_str());
    faulty += report.faults.empty() ? 0 : 1;
    steps += report.steps;
    closed += report.closed ? 1 : 0;
    std::fflush(stdout);
  }
  for (const auto& [text, count] : boxes) std::printf("%8d  %s\n", count, text.c_str());
  std::printf("%d runs, %d steps, %d ended by the operator, %d with faults\n", runs, steps, closed, faulty);
  return faulty == 0 ? 0 : 1;
}

}  // namespace marlinset

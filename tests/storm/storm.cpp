// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/storm/storm.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <functional>

#include "files/panel_document.h"
#include "files/qcf_listing.h"
#include "link/replies.h"
#include "tests/storm/world.h"

namespace marlinset {
namespace {

constexpr int kFewestSteps = 20, kMostSteps = 80;
/// No step of an operator may take longer: a whole send to a silent unit, with every box left standing, takes
/// half an hour.
constexpr std::int64_t kLongestStepMs = 4 * 3600 * 1000;

/// After so long an operator goes off line, which ends the question for a firmware that nobody answers.
constexpr std::int64_t kPatienceMs = 3600 * 1000;

bool ComesBackFromAFile(int parameterValue) {
  return parameterValue >= 0 && LoadedParameterValue(parameterValue) == parameterValue;
}

/// Thrown through everything when a step does not end.
struct Hang {};

class Storm {
 public:
  Storm(unsigned seed, bool trace) : world_(seed, trace) {}

  StormReport Run() {
    rig_.tool.commands.MessageSent.Connect([this](const SentMessage& sent) {
      if (sent.verdict && *sent.verdict != Verdict::kAcknowledged)
        world_.Trace(std::string(NameOf(*sent.verdict)) + ": " + sent.meaning);
    });
    rig_.dialogs.onShow = [this](const MessageBox& box) { return Answer(box); };
    try {
      Start();
      const int steps = kFewestSteps + world_.Pick(kMostSteps - kFewestSteps);
      for (int i = 0; i < steps && !Ended(); ++i) {
        Step();
        ++report_.steps;
        ExpectSound();
      }
      Calm();
      if (Ended()) {
        ExpectClosed();
      } else {
        Mend();
        ExpectSendToReachTheUnit();
        ExpectFileToHoldEverything();
      }
    } catch (const Hang&) {
      Fault("does not end");
    }
    return std::move(report_);
  }

 private:
  void Fault(const std::string& what) {
    report_.faults.push_back("step " + std::to_string(report_.steps) + " (" + world_.Last() + "): " + what);
  }
  bool Ended() const { return rig_.pump.Ending(); }

  /// Runs one step and watches that it ends.
  void Watched(const std::function<void()>& step) {
    const int number = ++watched_;
    rig_.pump.At(rig_.pump.Now() + kPatienceMs, [this, number] {
      if (number == watched_) rig_.tool.form.mnuOff.OperatorClick();
    });
    rig_.pump.At(rig_.pump.Now() + kLongestStepMs, [this, number] {
      if (number == watched_) throw Hang{};
    });
    step();
    ++watched_;
  }

  void Start() {
    rig_.settings.SaveSetting("Load", world_.folder.Path() + "/");  // where a file without a folder goes
    constexpr std::array kNames{"InMode", "Default", "PortNum", "Status", "Width", "HardwareType"};
    constexpr std::array kValues{"On", "Off", "None", "", "3", "10", "-1", "100000", "/nowhere/x.qcf"};
    for (int i = world_.Pick(4); i > 0; --i)
      rig_.settings.SaveSetting(world_.PickOf(kNames), world_.PickOf(kValues));
    constexpr std::array kCommands{"", "", "", "HD Video Downconvert", "1", "no such mode"};
    const std::string command = world_.PickOf(kCommands);
    world_.Trace("start '" + command + "'");
    Watched([&] { rig_.tool.Start(command); });
    ExpectSound();
  }

  void Step() {
    for (int i = world_.Pick(3); i > 0; --i) Later();
    Watched([this] {
      switch (world_.Pick(12)) {
        case 0:
        case 1:
          return Time();
        case 2:
        case 3:
          return ChangeWeather(world_);
        case 4:
          return UseFiles(world_);
        case 5:
          return UseLink(world_);
        default:
          return Operate(world_);
      }
    });
  }

  /// Something that happens in the middle of whatever is done by then. An operator at a box can do nothing
  /// else.
  void Later() {
    rig_.pump.At(rig_.pump.Now() + world_.Pick(world_.OneIn(2) ? 60 : 20000), [this] {
      if (world_.OneIn(2)) return ChangeWeather(world_);
      if (!rig_.dialogs.Standing() && !Ended()) Operate(world_);
    });
  }

  void Time() {
    constexpr std::array kSpans{1, 30, 100, 300, 1000, 5001, 12000, 65000};
    const int span = world_.PickOf(kSpans);
    world_.Trace("wait " + std::to_string(span));
    rig_.pump.Pass(span);
  }

  BoxAnswer Answer(const MessageBox& box) {
    world_.Trace("box '" + box.text + "'");
    ++report_.boxes[box.text];
    if (TellsOfFailure(box)) Fault(box.text);
    if (world_.OneIn(3)) rig_.pump.Pass(world_.Pick(3000));
    const bool agrees = mending_ || !world_.OneIn(3);
    if (box.buttons == BoxButtons::kYesNo) return agrees ? BoxAnswer::kYes : BoxAnswer::kNo;
    return agrees || box.buttons == BoxButtons::kOk ? BoxAnswer::kOk : BoxAnswer::kCancel;
  }

  // What must hold.
  void ExpectSound() {
    if (Ended()) return;
    const FrmStart& form = rig_.tool.form;
    const Variables& vars = rig_.tool.variables;
    int modes = 0;
    for (const int mode : {0, 1, 2}) modes += form.oVITC(mode).Value() ? 1 : 0;
    if (modes != 1) Fault(std::to_string(modes) + " numbers of VITC lines chosen");
    if (vars.VitcChanging) Fault("VitcChanging");
    if (rig_.tool.wholeSend.Running()) Fault("a send still runs");
    if (form.InterTime.Enabled() && !form.mnuInter.Checked()) Fault("polls off line");
    if (form.mnuInter.Checked() == form.mnuOff.Checked()) Fault("neither on line nor off");
    ExpectRows();
  }

  void ExpectRows() {
    FrmStart& form = rig_.tool.form;
    const Variables& vars = rig_.tool.variables;
    for (int row = 0; row < static_cast<int>(vars.CharWindows.size()); ++row) {
      if (!form.HasWindowRow(row)) {
        Fault("window " + std::to_string(row) + " has no row");
        continue;
      }
      const CharWindowRec& window = At(vars.CharWindows, row);
      if (window.Top != std::abs(form.udVer(row).Value()) || window.Left != form.udHor(row).Value())
        Fault(window.Name + " stands elsewhere");
    }
    if (form.HasWindowRow(static_cast<int>(vars.CharWindows.size()))) Fault("a row without a window");
    const int parameters = static_cast<int>(vars.SystemParameters.size());
    for (int row = 0; row < parameters; ++row) {
      const SystemParameterRec& parameter = At(vars.SystemParameters, row);
      if (IsInternalClass(parameter.Class)) continue;
      if (!form.udVal.Has(row) || form.udVal(row).Value() != parameter.Value)
        Fault("parameter " + std::to_string(row) + " and its row differ");
    }
    if (form.udVal.Has(parameters) && form.udVal(parameters).Visible()) Fault("a row without a parameter");
  }

  void ExpectClosed() {
    report_.closed = true;
    if (rig_.line.PortOpen()) Fault("the port is open after the end");
    if (rig_.tool.form.Visible()) Fault("the window is there after the end");
  }

  /// What was to happen in a later step happens now.
  void Calm() {
    world_.Trace("calm");
    mending_ = true;
    Watched([this] { rig_.pump.Pass(60000); });
  }

  /// Everything back as it should be: line, unit, no window over the main window, a standard that can be
  /// sent.
  void Mend() {
    world_.Trace("mend");
    MendWeather(world_);
    rig_.line.SetPace(0);
    rig_.line.Unit().SetVideo(true);
    rig_.files.room.reset();
    for (Form* form : rig_.tool.Forms()) {
      if (form != &rig_.tool.form) form->SetVisible(false);
    }
    FrmStart& form = rig_.tool.form;
    // While the log of bytes is shown, the moment at which it is full costs a reply.
    if (form.tInput.Visible()) Watched([&] { form.mnuCommD.OperatorClick(); });
    if (!world_.OneIn(3)) Watched([&] { form.mnuOff.OperatorClick(); });
    if (VideoStandardCode(form.comVS.Text()) == 0) Watched([&] { form.comVS.OperatorSelect(0); });
    MendPanels();
    world_.Trace("let the unit have the tool's standard");
    rig_.line.Unit().SetManual(true);
    rig_.line.Unit().SetStandard(VideoStandardCode(form.comVS.Text()));
  }

  /// Lines that a new mode has not moved yet are moved while a file is read. Files hold not every value of a
  /// parameter, and a text that was typed into a box of fixed choices is unknown to them; an operator who
  /// wants to keep a configuration has neither.
  void MendPanels() {
    FrmStart& form = rig_.tool.form;
    for (const int first : {1, 5}) {
      Watched([&] { form.upVitc1(first).SetValue(form.upVitc1(first).Lowest()); });
      Watched([&] { form.upVitc1(first).SetValue(form.upVitc1(first).Lowest() + 2); });
    }
    for (Control* control : form.Controls()) {
      if (auto* spin = dynamic_cast<SpinControl*>(control);
          spin && spin->Name() == "udVal" && !ComesBackFromAFile(spin->Value()))
        Watched([&] { spin->SetValue(0); });
      auto* box = dynamic_cast<ComboBox*>(control);
      if (!box || box->ListCount() == 0) continue;
      const auto& list = box->List();
      if (std::find(list.begin(), list.end(), box->Text()) == list.end())
        Watched([&] { box->SetListIndex(0); });
    }
  }

  void ExpectSendToReachTheUnit() {
    FrmStart& form = rig_.tool.form;
    world_.Trace("the last send");
    // A unit that speaks on its own is told to be quiet first; what it had begun to say comes to its end.
    Watched([&] { form.bSend.Press(); });
    Watched([&] { rig_.pump.Pass(20000); });
    Watched([&] { form.bSConfig.OperatorClick(); });
    const SendResult& result = rig_.tool.wholeSend.Result();
    const int unknownModel = rig_.line.Unit().Model() == kUnknownModel ? 1 : 0;
    if (result.end != SendEnd::kComplete || result.Doubtful() != unknownModel) {
      Fault(std::string("the send ended ") + NameOf(result.end) + ", " + std::to_string(result.Doubtful()) +
            " of " + std::to_string(result.messages) + " not acknowledged");
      return;
    }
    for (const std::string& difference : DifferencesToUnit(rig_.tool, rig_.line.Unit().Memory()))
      Fault(difference);
  }

  void ExpectFileToHoldEverything() {
    world_.Trace("the last save");
    const auto content = [&] { return DocumentOfPanels(rig_.tool.variables, rig_.tool.form); };
    const QcfDocument before = content();
    const std::string name = world_.folder.File("last.qcf");
    rig_.fileDialog.choices = {name, name};
    Watched([&] { rig_.tool.form.mnuSave.OperatorClick(); });
    rig_.tool.variables.ConfigSaved = true;
    Watched([&] { rig_.tool.form.mnuNew.OperatorClick(); });
    Watched([&] { rig_.tool.form.mnuOpen.OperatorClick(); });
    if (rig_.tool.configurationFile.LastRead() != ReadEnd::kLoaded) Fault("the file was not loaded");
    for (const QcfComparison& line : Compare(before, content())) {
      if (line.difference != QcfDifference::kEqual)
        Fault("saved " + line.name + " " + line.left + ", loaded " + line.right);
    }
  }

  World world_;
  ToolRig& rig_ = world_.rig;
  StormReport report_;
  int watched_ = 0;
  bool mending_ = false;
};

}  // namespace

StormReport RunStorm(unsigned seed, bool trace) {
  return Storm(seed, trace).Run();
}

}  // namespace marlinset

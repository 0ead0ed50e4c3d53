// SPDX-License-Identifier: GPL-3.0-or-later
#include <functional>

#include "files/panel_document.h"
#include "files/qcf_listing.h"
#include "tests/storm/storm_run.h"

namespace marlinset {
namespace {

constexpr int kMostSteps = 80;
/// A whole send to a silent unit, with every box left open, takes half an hour.
constexpr std::int64_t kLongestStepMs = 14'400'000;
/// Then the operator goes off line, which ends the query for a firmware that no unit answers.
constexpr std::int64_t kPatienceMs = 3'600'000;

/// Operator, files, time and faults of the line get in each other's way.
class Storm : public StormRun {
 public:
  Storm(unsigned seed, bool trace) : StormRun(seed, trace, kMostSteps) {
    rig_.tool.commands.MessageSent.Connect([this](const SentMessage& sent) {
      if (sent.verdict && *sent.verdict != Verdict::kAcknowledged)
        world_.Trace(std::string(NameOf(*sent.verdict)) + ": " + sent.meaning);
    });
  }

 private:
  /// Runs one step and reports it if it does not end.
  void Watched(const std::function<void()>& step) {
    const int number = ++watched_;
    const auto after = [&](std::int64_t milliseconds, std::function<void()> action) {
      rig_.pump.At(rig_.pump.Now() + milliseconds, [this, number, action = std::move(action)] {
        if (number == watched_) action();
      });
    };
    after(kPatienceMs, [this] { form_.mnuOff.OperatorClick(); });
    after(kLongestStepMs, [] { throw Hang{}; });
    step();
    ++watched_;
  }
  void Click(Control& control) {
    Watched([&] { control.OperatorClick(); });
  }

  void Start() override {
    rig_.settings.SaveSetting("Load", world_.folder.Path() + "/");  // where a file without a folder goes
    constexpr std::array kNames{"InMode", "Default", "PortNum", "Status", "Width", "HardwareType"};
    constexpr std::array kValues{"On", "Off", "None", "", "3", "10", "-1", "100000", "/nowhere/x.qcf"};
    for (int i = world_.Pick(4); i > 0; --i)
      rig_.settings.SaveSetting(world_.PickOf(kNames), world_.PickOf(kValues));
    constexpr std::array kCommands{"", "", "", "HD Video Downconvert", "1", "no such mode"};
    const std::string command = world_.PickOf(kCommands);
    world_.Trace("start '" + command + "'");
    Watched([&] { rig_.tool.Start(command); });
  }

  void Step() override {
    for (int i = world_.Pick(3); i > 0; --i) Later();
    Watched([this] {
      const int what = world_.Pick(12);
      if (what < 2) return Time();
      if (what < 4) return ChangeWeather(world_);
      if (what < 5) return UseFiles(world_);
      if (what < 6) return UseLink(world_);
      world_.OneIn(5) ? GoBack(world_) : Operate(world_);
    });
  }

  /// Something happens in the middle of another action. An operator at a box can do nothing else.
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

  void WhileABoxStands() override {
    if (world_.OneIn(3)) rig_.pump.Pass(world_.Pick(3000));
  }

  void Calm() override {
    Watched([this] { rig_.pump.Pass(60000); });
  }

  void Judge() override {
    // What is mended between an undo and its redo would go with the redo.
    Watched([this] {
      while (form_.mnuRedo.OperatorClick()) {
      }
    });
    Watched([this] { Mend(); });
    Watched([this] { ExpectToGoBackAndForth(); });
    if (!world_.OneIn(3)) Click(form_.mnuOff);
    world_.Trace("the last send");
    // First silences a unit that speaks on its own and lets it finish what it has begun to say.
    Watched([this] { form_.bSend.Press(); });
    Watched([this] { rig_.pump.Pass(20000); });
    Click(form_.bSConfig);
    ExpectSent();
    ExpectFileToHoldEverything();
  }

  void ExpectToGoBackAndForth() {
    world_.Trace("back and forth");
    const QcfDocument before = DocumentOfPanels(rig_.vars, form_);
    int undone = 0;
    while (form_.mnuUndo.OperatorClick()) ++undone;
    while (undone > 0 && form_.mnuRedo.OperatorClick()) --undone;
    for (const QcfComparison& line : Compare(before, DocumentOfPanels(rig_.vars, form_))) {
      if (line.difference != QcfDifference::kEqual)
        Fault("before " + line.name + " " + line.left + ", redone " + line.right);
    }
  }

  void ExpectFileToHoldEverything() {
    world_.Trace("the last save");
    const auto content = [&] { return DocumentOfPanels(rig_.vars, form_); };
    const QcfDocument before = content();
    const std::string name = world_.folder.File("last.qcf");
    rig_.fileDialog.choices = {name, name};
    Click(form_.mnuSave);
    rig_.vars.ConfigSaved = true;
    Click(form_.mnuNew);
    Click(form_.mnuOpen);
    if (rig_.tool.configurationFile.LastRead() != ReadEnd::kLoaded) Fault("the file was not loaded");
    for (const QcfComparison& line : Compare(before, content())) {
      if (line.difference != QcfDifference::kEqual)
        Fault("saved " + line.name + " " + line.left + ", loaded " + line.right);
    }
  }

  int watched_ = 0;
};

}  // namespace
}  // namespace marlinset

int main(int argc, char** argv) {
  return marlinset::RunStorms(argc, argv,
                              [](unsigned seed, bool trace) { return marlinset::Storm(seed, trace).Run(); });
}

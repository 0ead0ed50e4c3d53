// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/whole_send.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "core/frm_start.h"
#include "core/question_facts.h"
#include "link/communications.h"
#include "link/identification.h"
#include "link/ports.h"
#include "link/replies.h"
#include "platform/dialogs.h"
#include "platform/event_pump.h"
#include "platform/finally.h"
#include "platform/ms_comm.h"
#include "platform/platform.h"

namespace marlinset {
namespace {

using enum CommandId;

constexpr const char* kNotDetectedText = "Video Standard not detected. Verify communications.";
/// In manual selection the tool has never switched a unit to this standard.
constexpr std::string_view kNotByCommand = "720p/60";
bool HasCode(const std::string& standard) {
  return VideoStandardCode(standard) != 0;
}
bool TakenByCommand(const std::string& standard) {
  return HasCode(standard) && standard != kNotByCommand;
}

/// The name of the window that shows the text message.
constexpr std::string_view kTextWindow = "Text";

/// A control by name: a row that a mark stands on may be gone when the mark is taken off.
struct ControlName {
  std::string_view name;
  int index = kNoIndex;
};

/// Shows what is being sent: yellow during `send`, white behind it.
template <class Send>
void Marked(const FrmStart& form, std::span<const ControlName> names, const Send& send) {
  const auto paint = [&](Color color) {
    for (const ControlName& name : names) {
      if (Control* control = form.Find(name.name, name.index)) control->SetBackColor(color);
    }
  };
  paint(kYellow);
  Finally(send, [&] { paint(kWhite); });
}

void PaintRows(const ControlArray<Label>& rows, Color color) {
  for (const int row : rows.Indices()) rows(row).SetBackColor(color);
}

// When a step is taken.
using Condition = bool (*)(const FrmStart& form, const Communications& comms);
bool Always(const FrmStart&, const Communications&) {
  return true;
}
bool VitcOn(const FrmStart& form, const Communications&) {
  return form.chVITC.On();
}
bool WhiteFlagOn(const FrmStart& form, const Communications&) {
  return form.chEnable.On();
}
bool CharOnTicked(const FrmStart& form, const Communications&) {
  return form.mnuCharOn.Checked();
}
bool CharOffTicked(const FrmStart& form, const Communications&) {
  return form.mnuCharOff.Checked();
}
bool PreviewOn(const FrmStart& form, const Communications&) {
  return form.chPrev.On();
}
bool ModelQ(const FrmStart&, const Communications& comms) {
  return comms.IsModelQ();
}

// Controls that more than one name stands for.
constexpr ControlName kVitcModes[] = {{"oVITC", 0}, {"oVITC", 1}, {"oVITC", 2}};
constexpr ControlName kVitcLineControls[] = {{"tLineNumber", 1}, {"tLineNumber", 2}, {"tLineNumber", 3},
                                             {"tLineNumber", 5}, {"tLineNumber", 6}, {"tLineNumber", 7},
                                             {"upVitc1", 1},     {"upVitc1", 2},     {"upVitc1", 3},
                                             {"upVitc1", 5},     {"upVitc1", 6},     {"upVitc1", 7}};

/// The controls that a step marks: none, one or several.
struct Marks {
  constexpr Marks() = default;
  constexpr Marks(std::string_view name, int index = kNoIndex) : one{name, index}, count(1) {}
  template <std::size_t kCount>
  constexpr Marks(const ControlName (&names)[kCount]) : several(names), count(kCount) {}
  std::span<const ControlName> All() const { return {several ? several : &one, count}; }

  ControlName one{};
  const ControlName* several = nullptr;
  std::size_t count = 0;
};

}  // namespace

/// A message of the sequence, sent if its condition holds. The steps of `otherwise` send that command when
/// the condition does not hold.
struct WholeSend::Step {
  CommandId command;
  Marks marks = {};
  Condition condition = Always;
  std::optional<CommandId> otherwise = {};
};

std::span<const WholeSend::Step> WholeSend::StepsBeforeWindows() {
  static constexpr Step kSteps[] = {
      {kVitcSource, kVitcModes},
      {kAssignTC, {"comTB", 0}},
      {kAssignUB, {"ComUB", 0}},
      {kAssignAT},
      {kAssignAU},
      {kAssignLI},
      {kAssignLK},
      {kAssignLTB, {"comTB", 1}},
      {kAssignLUB, {"ComUB", 1}},
      {kVitcOn, {"chVITC"}, VitcOn, kVitcOff},
      {kWhiteFlagOn, {"chEnable"}, WhiteFlagOn, kWhiteFlagOff},
      {kWhiteFlagLine, {"tLineNumber", 0}, WhiteFlagOn},
      {kAssignVTB, {"comTB", 2}},
      {kAssignVUB, {"ComUB", 2}},
      {kAssignV2, {"comTB", 3}},
      {kAssignV3TB, {"comTB", 4}},
      {kAssignV3UB, {"ComUB", 4}},
      {kVitcLines, kVitcLineControls},
      {kCharStyle, {"ComWin", 2}},
      {kCharOffForSize, {}, CharOnTicked},
      {kCharSize, {"ComWin", 3}},
      {kCharOnForSize, {}, CharOnTicked},
      {kSlateDuration, {"tLineNumber", 4}},
      {kSlateMode, {"ComWin", 1}},
      {kSdiProgramOut, {"ComWin", 4}, ModelQ},
      {kDownConverter, {"ComWin", 0}},
      {kDownConverterControl, {"ComWin", 0}, ModelQ},
  };
  return kSteps;
}

std::span<const WholeSend::Step> WholeSend::StepsAfterWindows() {
  static constexpr Step kSteps[] = {
      {kSlatePreview, {}, PreviewOn, kSlateMode},
      {kCharOff, {}, CharOffTicked},
      {kCharOn, {}, CharOnTicked},
  };
  return kSteps;
}

WholeSend::WholeSend(Platform& platform, Variables& variables, FrmStart& form, Communications& communications,
                     SettingCommands& commands)
    : platform_(platform), vars_(variables), form_(form), comms_(communications), commands_(commands) {
  form_.bSConfig.OnClick([this] { SendSetup(); });
  commands_.MessageSent.Connect([this](const SentMessage& message) {
    if (!running_) return;
    ++result_.messages;
    if (message.acknowledged == false) ++result_.unacknowledged;
  });
}

bool WholeSend::GoesOn() {
  stopped_ = stopped_ || platform_.pump.Ending() || (stopRequested && stopRequested());
  return !stopped_;
}

void WholeSend::SendSetup() {
  if (running_) return;
  running_ = true;
  stopped_ = false;
  result_ = {SendEnd::kFailed};
  Finally([this] { result_.end = SendOverPort(); }, [this] { running_ = false; });
}

SendEnd WholeSend::SendOverPort() {
  if (form_.tClearStat.Enabled()) form_.tClearStat.Restart();
  if (!platform_.ComP1.PortOpen()) form_.bOpen.Press();
  if (!platform_.ComP1.PortOpen()) return SendEnd::kPortClosed;  // Open has told why
  form_.bGetID.Press();
  commands_.Report(kGetID, UnitIsIdentified(form_));
  return SendConfiguration();
}

SendEnd WholeSend::SendConfiguration() {
  SendEnd end = SendEnd::kFailed;
  Finally(
      [&] {
        form_.InterTime.SetEnabled(false);
        EnableLinkButtons(form_, false);
        bool agreed = false;
        while (!agreed) {
          if (const auto early = AgreeOnStandard(agreed)) {
            end = *early;
            return;
          }
        }
        Sequence();
        end = Close();
      },
      [this] {
        if (form_.mnuInter.Checked()) form_.InterTime.SetEnabled(true);
        EnableLinkButtons(form_, true);
      });
  return end;
}

/// One round of the prologue: an early end, agreement, or neither when the unit was told another standard
/// and has to be asked again.
std::optional<SendEnd> WholeSend::AgreeOnStandard(bool& agreed) {
  if (!GoesOn()) return SendEnd::kStopped;
  form_.comVS.SetBackColor(kYellow);
  std::optional<SendEnd> early;
  Finally([&] { early = CompareStandards(agreed); }, [this] { form_.comVS.SetBackColor(kWindowColor); });
  return early;
}

std::optional<SendEnd> WholeSend::CompareStandards(bool& agreed) {
  if (!commands_.Send(kVideoSense, Sender::kWholeSend)) {
    if (!GoesOn()) return SendEnd::kStopped;
    platform_.dialogs.Tell(kNotDetectedText);
    return SendEnd::kNotDetected;
  }
  agreed = form_.comVS.Text() == vars_.UnitStandardText;
  if (agreed) return std::nullopt;
  return (vars_.UnitVideoStandard & kManualBit) != 0 ? CommandStandard() : LeaveAutomatic();
}

/// Asks whether the unit is to be brought to the setup's standard, which `commanded` says can be done.
/// Nothing when the operator agrees. A question that stands when the line goes is over.
std::optional<SendEnd> WholeSend::AskForChange(const char* question, bool (*commanded)(const std::string&)) {
  const std::string& standard = form_.comVS.Text();
  const char* const noSetup = "The unit cannot be told to take that standard: no setup is sent.";
  const std::string outcome = commanded(standard) ? OnAirFact("Yes") : noSetup;
  const bool agreed =
      platform_.dialogs.Ask(question, Facts({StandardsFact(standard, vars_.UnitStandardText), outcome}),
                            [this] { return comms_.LineUp(); });
  if (agreed) return std::nullopt;
  return platform_.ComP1.PortOpen() ? SendEnd::kRefused : SendEnd::kPortClosed;
}

/// The unit takes its standard by command.
std::optional<SendEnd> WholeSend::CommandStandard() {
  if (const auto end = AskForChange("Video Standard will be changed!", TakenByCommand)) return end;
  if (!TakenByCommand(form_.comVS.Text())) return SendEnd::kNoCode;
  commands_.Send(kSetVideoStandard, Sender::kWholeSend);
  return std::nullopt;
}

/// The unit follows its input.
std::optional<SendEnd> WholeSend::LeaveAutomatic() {
  if (const auto end = AskForChange("Video Standard Mismatch, Switch to Manual Mode?", HasCode)) {
    if (end == SendEnd::kRefused) {
      platform_.dialogs.Tell("Change Input Source Video, or select the appropriate Video Standard.");
    }
    return end;
  }
  commands_.Send(kManualSelection, Sender::kWholeSend);
  form_.StatBar(FrmStart::kVideoPanel).SetText("Changed to Manual Mode");
  if (!HasCode(form_.comVS.Text())) return SendEnd::kNoCode;
  commands_.Send(kSetVideoStandard, Sender::kWholeSend);
  return std::nullopt;
}

void WholeSend::Sequence() {
  SendParameters();
  RunSteps(StepsBeforeWindows());
  EndHighlights();
  SendWindows();
  RunSteps(StepsAfterWindows());
  if (GoesOn()) commands_.SendSlate();
}

SendEnd WholeSend::Close() {
  if (!GoesOn()) return SendEnd::kStopped;
  if (commands_.Send(kVideoSense, Sender::kWholeSend)) {
    form_.StatBar(FrmStart::kVideoPanel).SetText("7340 Configuration Complete. ");
    return SendEnd::kComplete;
  }
  if (!platform_.pump.Ending()) platform_.dialogs.Tell(kNotDetectedText);
  return SendEnd::kNotConfirmed;
}

void WholeSend::SendParameters() {
  // The list may change while a message is awaited, so its size is looked at each time.
  const auto sendAll = [this] {
    for (int i = 0; i < static_cast<int>(vars_.SystemParameters.size()); ++i) {
      if (!IsSendable(At(vars_.SystemParameters, i))) continue;
      if (!GoesOn()) return;
      if (form_.lDesc.Has(i)) form_.lDesc(i).SetBackColor(kYellow);
      commands_.Send(kSetParameter, Sender::kWholeSend, i);
    }
  };
  Finally(sendAll, [this] { PaintRows(form_.lDesc, kWhite); });
}

void WholeSend::RunSteps(std::span<const Step> steps) {
  for (const Step& step : steps) {
    if (!GoesOn()) return;
    RunStep(step);
  }
}

void WholeSend::RunStep(const Step& step) {
  const bool holds = step.condition(form_, comms_);
  if (!holds && !step.otherwise) return;
  const CommandId command = holds ? step.command : *step.otherwise;
  Marked(form_, step.marks.All(), [&] {
    if (command == kCharOffForSize || command == kCharOnForSize) {
      // The menu does not show the momentary off that hides the change of the font size.
      commands_.SendCharInserter(command, Sender::kWholeSend, true);
    } else {
      commands_.Send(command, Sender::kWholeSend);
    }
  });
}

void WholeSend::EndHighlights() {
  if (!GoesOn()) return;
  PaintRows(form_.lName, kWhite);
  for (int i = 0; i < static_cast<int>(vars_.CharWindows.size()) && GoesOn(); ++i) {
    commands_.SendWindowInteractive(i, kHighlightOff);
  }
}

void WholeSend::SendWindows() {
  for (int i = 0; i < static_cast<int>(vars_.CharWindows.size()) && GoesOn(); ++i) {
    if (!commands_.HasWindow(i)) continue;
    const ControlName row[] = {{"lName", i}};
    Marked(form_, row, [&] { SendWindow(i); });
  }
}

void WholeSend::SendWindow(int index) {
  if (At(vars_.CharWindows, index).Name == kTextWindow) {
    form_.tWinMess.SetText(MessageText(form_.tWinMess.Text()));
    commands_.Send(kText, Sender::kWholeSend);
    if (!GoesOn()) return;
  }
  commands_.Send(kWindow, Sender::kWholeSend, index);
}

}  // namespace marlinset

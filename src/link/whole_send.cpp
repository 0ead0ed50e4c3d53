// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/whole_send.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "base/finally.h"
#include "controls/dialogs.h"
#include "core/frm_start.h"
#include "core/question_facts.h"
#include "link/communications.h"
#include "link/held_settings.h"
#include "link/identification.h"
#include "link/ports.h"
#include "link/replies.h"
#include "link/send_steps.h"
#include "platform/event_pump.h"
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

/// Shows what is being sent: yellow during `send`, white after it.
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

int& CountOf(SendResult& result, Verdict verdict) {
  return result.count[static_cast<std::size_t>(verdict)];
}

void PaintRows(const ControlArray<Label>& rows, Color color) {
  for (const int row : rows.Indices()) rows(row).SetBackColor(color);
}

}  // namespace

const char* NameOf(SendEnd end) {
  switch (end) {
    case SendEnd::kComplete:
      return "complete";
    case SendEnd::kNotConfirmed:
      return "notConfirmed";
    case SendEnd::kPortClosed:
      return "portClosed";
    case SendEnd::kNotDetected:
      return "notDetected";
    case SendEnd::kRefused:
      return "refused";
    case SendEnd::kStopped:
      return "stopped";
    case SendEnd::kNoCode:
    case SendEnd::kNone:
    case SendEnd::kFailed:
      break;
  }
  return "failed";
}

WholeSend::WholeSend(Platform& platform, Variables& variables, FrmStart& form, Communications& communications,
                     SettingCommands& commands, HeldSettings& held, Ports& ports)
    : platform_(platform),
      vars_(variables),
      form_(form),
      comms_(communications),
      commands_(commands),
      held_(held),
      ports_(ports) {
  form_.bSConfig.OnClick([this] { SendSetup(Scope::kSetup); });
  form_.bSChanges.OnClick([this] { SendSetup(Scope::kChanges); });
  form_.bStop.OnClick([this] {
    stopPressed_ = true;
    Progressed.Emit();
  });
  held_.Changed.Connect([this] { form_.bSChanges.SetEnabled(held_.Known() && !Running()); });
  commands_.MessageSent.Connect([this](const SentMessage& message) {
    if (Running()) Count(message);
  });
  commands_.Deferred.Connect([this] { Progressed.Emit(); });
  commands_.VerdictChanged.Connect([this](const SentMessage& message, Verdict before) {
    if (!Running() || message.number < firstNumber_ || result_.messages == 0) return;
    --CountOf(result_, before);
    ++CountOf(result_, *message.verdict);
  });
}

void WholeSend::Count(const SentMessage& message) {
  if (result_.messages++ == 0) firstNumber_ = message.number;
  if (message.wentOut) ++result_.wentOut;
  if (message.verdict) ++CountOf(result_, *message.verdict);
  Plan();
  Progressed.Emit();
}

bool WholeSend::Running() const {
  return comms_.InSend();
}

/// While the characters are off for the font size, only the loss of the device ends a send at once: nobody
/// wants them to stay off on air.
bool WholeSend::GoesOn() {
  stopped_ = stopped_ || comms_.LostInSend() ||
             (!commands_.OffForSize() &&
              (platform_.pump.Ending() || stopPressed_ || (stopRequested && stopRequested())));
  return !stopped_;
}

void WholeSend::SendSetup(Scope scope) {
  if (Running()) return;
  scope_ = scope;
  result_ = {SendEnd::kFailed};
  Run([this] { return SendOverPort(); });
}

/// Runs `send` as the send in progress, which the operator sees and can stop.
void WholeSend::Run(const std::function<SendEnd()>& send) {
  stopPressed_ = stopped_ = false;
  progress_ = {};
  bool lost = false;
  const auto run = [&] {
    comms_.SetInSend(true);
    form_.bSChanges.SetEnabled(false);
    form_.bStop.SetEnabled(true);
    Progressed.Emit();
    result_.end = send();
    lost = comms_.LostInSend();
  };
  Finally(run, [this] {
    comms_.SetInSend(false);
    commands_.EndOffForSize();
    form_.bStop.SetEnabled(false);
    form_.bSChanges.SetEnabled(held_.Known());
    Progressed.Emit();
  });
  if (lost) TellLoss();
  if (result_.end == SendEnd::kComplete && scope_ != Scope::kOneAction) held_.NoteWholeSend();
  if (result_.end == SendEnd::kStopped && stopPressed_) TellStop();
}

SendEnd WholeSend::SendOverPort() {
  if (form_.tClearStat.Enabled()) form_.tClearStat.Restart();
  if (!platform_.ComP1.PortOpen()) form_.bOpen.Press();
  if (!platform_.ComP1.PortOpen()) return SendEnd::kPortClosed;  // Open has told the operator why
  Plan();
  form_.bGetID.Press();
  commands_.Report(kGetID, UnitIsIdentified(form_));
  if (comms_.LostInSend()) return SendEnd::kPortClosed;
  return SendConfiguration();
}

SendEnd WholeSend::SendConfiguration() {
  SendEnd end = SendEnd::kFailed;
  Finally(
      [&] {
        form_.InterTime.SetEnabled(false);
        EnableLinkButtons(form_, false);
        while (!progress_.agreed) {
          if (const auto early = AgreeOnStandard()) {
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

/// One round of the prologue. Returns an early end, or notes that the standards agree; does neither if the
/// unit was sent another standard and has to be asked again.
std::optional<SendEnd> WholeSend::AgreeOnStandard() {
  if (!GoesOn()) return SendEnd::kStopped;
  form_.comVS.SetBackColor(kYellow);
  std::optional<SendEnd> early;
  Finally([&] { early = CompareStandards(); }, [this] { form_.comVS.SetBackColor(kWindowColor); });
  return early;
}

std::optional<SendEnd> WholeSend::CompareStandards() {
  if (!commands_.Send(kVideoSense, Sender::kWholeSend)) {
    if (!GoesOn()) return SendEnd::kStopped;
    platform_.dialogs.Tell(kNotDetectedText);
    return SendEnd::kNotDetected;
  }
  if (comms_.LostInSend()) return SendEnd::kPortClosed;
  progress_.agreed = form_.comVS.Text() == vars_.UnitStandardText;
  if (progress_.agreed) return std::nullopt;
  if (!GoesOn()) return SendEnd::kStopped;
  return (vars_.UnitVideoStandard & kManualBit) != 0 ? CommandStandard() : LeaveAutomatic();
}

/// Asks whether to bring the unit to the setup's standard; `commanded` says whether a command can do that.
/// Returns nothing if the operator agrees. If the line goes or the operator stops the send, the question
/// closes.
std::optional<SendEnd> WholeSend::AskForChange(const char* question, bool (*commanded)(const std::string&)) {
  const std::string& standard = form_.comVS.Text();
  const char* const noSetup = "The unit cannot be told to take that standard: no setup is sent.";
  const std::string_view what = scope_ == Scope::kChanges ? "what has changed" : "the whole setup";
  const std::string outcome = commanded(standard) ? OnAirFact("Yes", what) : noSetup;
  const bool agreed =
      platform_.dialogs.Ask(question, Facts({StandardsFact(standard, vars_.UnitStandardText), outcome}),
                            [this] { return comms_.LineUp() && !stopPressed_; });
  if (stopPressed_ && !comms_.LostInSend()) return SendEnd::kStopped;
  if (agreed && !comms_.LostInSend()) return std::nullopt;
  return platform_.ComP1.PortOpen() ? SendEnd::kRefused : SendEnd::kPortClosed;
}

/// For a unit that takes its standard by command.
std::optional<SendEnd> WholeSend::CommandStandard() {
  if (const auto end = AskForChange("Video Standard will be changed!", TakenByCommand)) return end;
  if (!TakenByCommand(form_.comVS.Text())) return SendEnd::kNoCode;
  commands_.Send(kSetVideoStandard, Sender::kWholeSend);
  return std::nullopt;
}

/// For a unit that follows its input.
std::optional<SendEnd> WholeSend::LeaveAutomatic() {
  if (const auto end = AskForChange("Video Standard Mismatch, Switch to Manual Mode?", HasCode)) {
    if (end == SendEnd::kRefused) {
      platform_.dialogs.Tell("Change Input Source Video, or select the appropriate Video Standard.");
    }
    return end;
  }
  commands_.Send(kManualSelection, Sender::kWholeSend);
  if (comms_.LostInSend()) return SendEnd::kPortClosed;
  form_.StatBar(FrmStart::kVideoPanel).SetText("Changed to Manual Mode");
  if (!HasCode(form_.comVS.Text())) return SendEnd::kNoCode;
  if (!GoesOn()) return SendEnd::kStopped;
  commands_.Send(kSetVideoStandard, Sender::kWholeSend);
  return std::nullopt;
}

void WholeSend::Sequence() {
  SendParameters();
  RunSteps(StepsBeforeWindows(), progress_.step);
  EndHighlights();
  SendWindows();
  RunSteps(StepsAfterWindows(), progress_.lateStep);
  progress_.slate = true;
  if (GoesOn() && IsDue({.id = SlateCommand()})) commands_.SendSlate();
}

SendEnd WholeSend::Close() {
  if (!GoesOn()) return SendEnd::kStopped;
  progress_.closing = true;
  if (commands_.Send(kVideoSense, Sender::kWholeSend)) {
    form_.StatBar(FrmStart::kVideoPanel).SetText("7340 Configuration Complete. ");
    return SendEnd::kComplete;
  }
  if (!platform_.pump.Ending() && !comms_.LostInSend()) platform_.dialogs.Tell(kNotDetectedText);
  return SendEnd::kNotConfirmed;
}

void WholeSend::SendParameters() {
  // The list may change during a wait, so this reads its size each time.
  const auto sendAll = [this] {
    while (progress_.parameter < static_cast<int>(vars_.SystemParameters.size())) {
      const int i = progress_.parameter++;
      if (!IsSendable(At(vars_.SystemParameters, i))) continue;
      if (!GoesOn()) return;
      if (!IsDue({.id = kSetParameter, .row = i})) continue;
      if (form_.lDesc.Has(i)) form_.lDesc(i).SetBackColor(kYellow);
      commands_.Send(kSetParameter, Sender::kWholeSend, i);
    }
  };
  Finally(sendAll, [this] { PaintRows(form_.lDesc, kWhite); });
}

void WholeSend::RunSteps(std::span<const SendStep> steps, std::size_t& place) {
  while (place < steps.size() && GoesOn()) RunStep(steps[place++]);
}

void WholeSend::RunStep(const SendStep& step) {
  const std::optional<CommandId> command = CommandIn(step, form_, UnitIsQ());
  if (!command || !IsDue({.id = *command})) return;
  const Marks marks = MarksOf(step);
  Marked(form_, marks.All(), [&] {
    if (command == kCharOffForSize || command == kCharOnForSize) {
      // The menu does not show the momentary Off that hides the change of the font size. Without its
      // acknowledgement the inserter has no tick, and the On is passed over.
      const bool acknowledged = commands_.SendCharInserter(*command, Sender::kWholeSend, true);
      if (!acknowledged) {
        // Nobody will be there to switch them on.
        if (command == kCharOffForSize && platform_.pump.Ending())
          commands_.Send(kCharOnForSize, Sender::kWholeSend);
        commands_.EndOffForSize();
      }
    } else {
      commands_.Send(*command, Sender::kWholeSend);
    }
  });
}

void WholeSend::EndHighlights() {
  if (!GoesOn()) return;
  PaintRows(form_.lName, kWhite);
  while (progress_.highlight < static_cast<int>(vars_.CharWindows.size()) && GoesOn()) {
    const int row = progress_.highlight++;
    if (IsDue(EndOfHighlight(row))) commands_.SendWindowInteractive(row, kHighlightOff);
  }
}

void WholeSend::SendWindows() {
  while (progress_.window < static_cast<int>(vars_.CharWindows.size()) && GoesOn()) {
    const int row = progress_.window++;
    if (!commands_.HasWindow(row)) continue;
    const bool due = IsDue({.id = kWindow, .row = row}) || (IsTextWindow(row) && IsDue({.id = kText}));
    const ControlName name[] = {{"lName", row}};
    Marked(form_, std::span(name).first(due ? 1 : 0), [&] { SendWindow(row); });
  }
}

bool WholeSend::IsTextWindow(int row) const {
  return At(vars_.CharWindows, row).Name == kTextWindow;
}

void WholeSend::SendWindow(int row) {
  if (IsTextWindow(row)) {
    form_.tWinMess.SetText(MessageText(form_.tWinMess.Text()));
    progress_.behindText = true;
    if (IsDue({.id = kText})) commands_.Send(kText, Sender::kWholeSend);
    if (!GoesOn()) return;
    progress_.behindText = false;
  }
  if (IsDue({.id = kWindow, .row = row})) commands_.Send(kWindow, Sender::kWholeSend, row);
}

}  // namespace marlinset

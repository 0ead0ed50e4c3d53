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

PendingMessage EndOfHighlight(int row) {
  return {.id = kWindow, .sender = Sender::kPanel, .row = row, .endsHighlight = true};
}

CommandId SlateCommand(const FrmStart& form) {
  return form.chPrev.On() ? kSlatePreview : kSlateMode;
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
  form_.bSConfig.OnClick([this] { SendSetup(false); });
  form_.bSChanges.OnClick([this] { SendSetup(true); });
  held_.Changed.Connect([this] { form_.bSChanges.SetEnabled(held_.Known() && !Running()); });
  commands_.MessageSent.Connect([this](const SentMessage& message) {
    if (Running()) Count(message);
  });
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
}

bool WholeSend::Running() const {
  return comms_.InSend();
}

bool WholeSend::GoesOn() {
  stopped_ = stopped_ || platform_.pump.Ending() || comms_.LostInSend() || (stopRequested && stopRequested());
  return !stopped_;
}

void WholeSend::SendSetup(bool changesOnly) {
  if (Running()) return;
  changesOnly_ = changesOnly;
  stopped_ = false;
  progress_ = {};
  result_ = {SendEnd::kFailed};
  bool lost = false;
  const auto send = [&] {
    comms_.SetInSend(true);
    form_.bSChanges.SetEnabled(false);
    result_.end = SendOverPort();
    lost = comms_.LostInSend();
  };
  Finally(send, [this] { comms_.SetInSend(false); });
  if (lost) TellLoss();
  if (result_.end == SendEnd::kComplete) held_.NoteWholeSend();
  form_.bSChanges.SetEnabled(held_.Known());
}

/// Shows the one box of a send whose device went away.
void WholeSend::TellLoss() {
  result_.end = SendEnd::kPortClosed;
  ports_.DeviceLost();
  if (platform_.pump.Ending()) return;
  platform_.dialogs.Show({.text = kPortClosedText,
                          .icon = BoxIcon::kCritical,
                          .remedy = ports_.LossText() + ". " + std::to_string(result_.wentOut) + " of " +
                                    std::to_string(result_.planned) + " messages went out.\n" +
                                    "Check cable and adapter, then press Open and send the setup again: " +
                                    (progress_.closing ? "the unit has not confirmed that it took all of it."
                                                       : "the unit does not hold all of it.") +
                                    " The configuration is as it was."});
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

/// One round of the prologue. Returns an early end, or sets `agreed`; does neither if the unit was sent
/// another standard and has to be asked again.
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
  if (comms_.LostInSend()) return SendEnd::kPortClosed;
  agreed = form_.comVS.Text() == vars_.UnitStandardText;
  if (agreed) return std::nullopt;
  return (vars_.UnitVideoStandard & kManualBit) != 0 ? CommandStandard() : LeaveAutomatic();
}

/// Asks whether to bring the unit to the setup's standard; `commanded` says whether a command can do that.
/// Returns nothing if the operator agrees. If the line goes, the question closes.
std::optional<SendEnd> WholeSend::AskForChange(const char* question, bool (*commanded)(const std::string&)) {
  const std::string& standard = form_.comVS.Text();
  const char* const noSetup = "The unit cannot be told to take that standard: no setup is sent.";
  const std::string outcome = commanded(standard) ? OnAirFact("Yes") : noSetup;
  const bool agreed =
      platform_.dialogs.Ask(question, Facts({StandardsFact(standard, vars_.UnitStandardText), outcome}),
                            [this] { return comms_.LineUp(); });
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
  if (GoesOn() && IsDue({.id = SlateCommand(form_)})) commands_.SendSlate();
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
  const std::optional<CommandId> command = CommandIn(step, form_);
  if (!command || !IsDue({.id = *command})) return;
  const Marks marks = MarksOf(step);
  Marked(form_, marks.All(), [&] {
    if (command == kCharOffForSize || command == kCharOnForSize) {
      // The menu does not show the momentary Off that hides the change of the font size.
      commands_.SendCharInserter(*command, Sender::kWholeSend, true);
    } else {
      commands_.Send(*command, Sender::kWholeSend);
    }
  });
}

/// Counts the messages of the send anew. They depend on the panels, which answers change, so it counts what
/// is left after each message, and in the end the plan equals what was sent. Keeps the last count once the
/// device is gone, since the panels then show the loss.
void WholeSend::Plan() {
  if (comms_.LostInSend() || !platform_.ComP1.PortOpen()) return;
  // At least identification and query go before the sequence, and a query closes it.
  const std::vector<PendingMessage> pending = Pending(progress_);
  const std::size_t left =
      changesOnly_ ? ChangesIn(pending, held_.Messages(), progress_.sizeGoes).size() : pending.size();
  result_.planned = std::max(result_.messages, 2) + static_cast<int>(left) + (progress_.closing ? 0 : 1);
}

void WholeSend::AddPending(std::span<const SendStep> steps, std::vector<PendingMessage>& messages) const {
  for (const SendStep& step : steps) {
    if (const auto command = CommandIn(step, form_)) messages.push_back({.id = *command});
  }
}

/// The messages of the sequence that follow a place in it, by the panels as they are now.
std::vector<PendingMessage> WholeSend::Pending(const Progress& from) const {
  std::vector<PendingMessage> messages;
  if (from.behindText) messages.push_back({.id = kWindow, .row = from.window - 1});
  for (int i = from.parameter; i < static_cast<int>(vars_.SystemParameters.size()); ++i) {
    if (IsSendable(At(vars_.SystemParameters, i))) messages.push_back({.id = kSetParameter, .row = i});
  }
  AddPending(StepsBeforeWindows().subspan(from.step), messages);
  const int windows = static_cast<int>(vars_.CharWindows.size());
  for (int row = from.highlight; row < windows; ++row) {
    if (commands_.Highlights(row)) messages.push_back(EndOfHighlight(row));
  }
  for (int row = from.window; row < windows; ++row) {
    if (!commands_.HasWindow(row)) continue;
    if (IsTextWindow(row)) messages.push_back({.id = kText});
    messages.push_back({.id = kWindow, .row = row});
  }
  AddPending(StepsAfterWindows().subspan(from.lateStep), messages);
  if (!from.slate && commands_.Live()) messages.push_back({.id = SlateCommand(form_)});
  return messages;
}

Message WholeSend::MessageFor(const PendingMessage& pending) const {
  return MessageOf(CommandOf(pending.id), {form_, vars_, pending.sender, pending.row, kHighlightOff});
}

/// Whether Send Changes sends a message, with those that follow it. Of several messages for one thing only
/// the last goes; `sizeGoes` keeps, for the inserter's on, whether the font size went.
bool WholeSend::Goes(const PendingMessage& message, std::span<const PendingMessage> rest,
                     const LastMessages& held, bool& sizeGoes) const {
  const auto differs = [&](const PendingMessage& other) { return !held.Has(MessageFor(other).fields); };
  if (message.id == kCharOffForSize) {
    sizeGoes =
        std::ranges::any_of(rest, [&](const auto& later) { return later.id == kCharSize && differs(later); });
  }
  if (message.id == kCharOffForSize || message.id == kCharOnForSize) return sizeGoes;
  if (message.endsHighlight) return At(vars_.CharWindows, message.row).Highlighted;
  if (!differs(message)) return false;
  const auto thing = LastMessages::ThingOf(MessageFor(message).fields);
  return std::ranges::none_of(
      rest, [&](const auto& later) { return LastMessages::ThingOf(MessageFor(later).fields) == thing; });
}

bool WholeSend::IsDue(const PendingMessage& message) {
  return !changesOnly_ || Goes(message, Pending(progress_), held_.Messages(), progress_.sizeGoes);
}

std::vector<PendingMessage> WholeSend::ChangesIn(std::span<const PendingMessage> pending, LastMessages held,
                                                 bool sizeGoes) const {
  std::vector<PendingMessage> changes;
  while (!pending.empty()) {
    const PendingMessage& message = pending.front();
    pending = pending.subspan(1);
    if (!Goes(message, pending, held, sizeGoes)) continue;
    changes.push_back(message);
    held.Take(MessageFor(message).fields);
  }
  return changes;
}

std::vector<Message> WholeSend::Changes() const {
  std::vector<Message> messages;
  for (const PendingMessage& change : ChangesIn(Pending({}), held_.Messages(), false)) {
    messages.push_back(MessageFor(change));
  }
  return messages;
}

LastMessages WholeSend::Messages() const {
  LastMessages messages;
  for (const PendingMessage& message : Pending({})) {
    try {
      messages.Take(MessageFor(message).fields);
    } catch (const RuntimeError&) {
      // No message could carry it, so the unit does not hold it either.
    }
  }
  return messages;
}

void WholeSend::SendDifferences(const LastMessages& unitHolds) {
  const auto send = [&] {
    form_.InterTime.SetEnabled(false);
    for (const PendingMessage& change : ChangesIn(Pending({}), unitHolds, false)) {
      if (!commands_.Live() || !comms_.LineUp()) return;
      SendChange(change);
    }
  };
  Finally(send, [this] { form_.InterTime.SetEnabled(form_.mnuInter.Checked()); });
}

/// The rows may be others by now: the operator can do a few things even in a wait.
void WholeSend::SendChange(const PendingMessage& change) {
  if (change.endsHighlight) {
    commands_.SendWindowInteractive(change.row, kHighlightOff);
    return;
  }
  const bool ofParameter = change.id == kSetParameter;
  if (ofParameter && change.row >= static_cast<int>(vars_.SystemParameters.size())) return;
  if (change.id == kWindow && !commands_.HasWindow(change.row)) return;
  commands_.Send(change.id, Sender::kWholeSend, change.row);
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

// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/setting_commands.h"

#include <utility>

#include "base/finally.h"
#include "base/text.h"
#include "controls/dialogs.h"
#include "core/frm_start.h"
#include "link/communications.h"
#include "link/message_data.h"
#include "platform/event_pump.h"
#include "platform/ms_comm.h"
#include "platform/platform.h"
#include "wire/frame.h"

namespace marlinset {
namespace {

using enum Verdict;

constexpr int kLongAckMs = 10000;

/// Quotes the number from the packet fields as the wait leaves them (`now`), which are those of Select if the
/// unit reported Broadcast mode meanwhile; if they are too short, from the message's own.
std::string FailureText(const Manner& manner, const std::vector<PacketField>& sent,
                        const std::vector<PacketField>& now) {
  if (manner.quotedField == kNoField) return manner.failure;
  const bool isThere = manner.quotedField <= UBound(now);
  return manner.failure + SignedText(At(isThere ? now : sent, manner.quotedField).value_or(0));
}

}  // namespace

std::vector<std::uint8_t> SentMessage::Frame() const {
  return EncodeFrame(BytesOf(fields));
}

SettingCommands::SettingCommands(Platform& platform, Variables& variables, FrmStart& form,
                                 Communications& communications)
    : platform_(platform), vars_(variables), form_(form), comms_(communications) {
  comms_.answers.Belied.Connect([this](Verdict before) { Belie(before); });
}

bool SettingCommands::Send(CommandId id, Sender sender, int row, int flagBase) {
  if (id == CommandId::kCharOffForSize) offForSize_ = true;
  const SettingCommand& command = CommandOf(id);
  const bool acknowledged = Exchange(command.name, MessageOf(command, {form_, vars_, sender, row, flagBase}),
                                     command.MannerOf(sender));
  if (id == CommandId::kCharOnForSize) EndOffForSize();
  return acknowledged;
}

void SettingCommands::SendAgain() {
  if (vars_.PacketFields.empty()) return;
  Exchange("", {vars_.PacketFields, "The previous message again"},
           CommandOf(CommandId::kAssignUB).MannerOf(Sender::kPanel));
}

bool SettingCommands::Exchange(const char* name, Message message, const Manner& manner, Failure shown) {
  vars_.PacketFields = message.fields;
  const bool acknowledged = Await(manner.ack);
  SentMessage sent{++count_, name, std::move(message.meaning), std::move(message.fields)};
  sent.wentOut = comms_.WentOut();
  if (manner.ack == Ack::kReply) {
    sent.verdict = acknowledged && platform_.ComP1.PortOpen() ? kAcknowledged : kUnacknowledged;
  } else if (manner.ack != Ack::kNone) {
    sent.verdict = comms_.answers.Last();
    judged_ = sent;
  }
  if (!acknowledged) sent.failure = FailureText(manner, sent.fields, vars_.PacketFields);
  MessageSent.Emit(sent);
  if (!platform_.ComP1.PortOpen()) EndOffForSize();
  ShowFailure(sent.failure, shown);
  if (!acknowledged && endWanted_) platform_.pump.End();  // the rest, up to the On, goes out unawaited
  return acknowledged;
}

/// An extra answer came for the setting judged last.
void SettingCommands::Belie(Verdict before) {
  if (!judged_) return;
  judged_->verdict = kUncertain;
  VerdictChanged.Emit(*judged_, before);
}

void SettingCommands::ShowFailure(const std::string& text, Failure shown) {
  if (text.empty() || platform_.pump.Ending()) return;
  if (shown == Failure::kBox) {
    if (!comms_.LostInSend()) platform_.dialogs.Tell(text);
  } else {
    form_.StatBar(FrmStart::kExchangePanel).SetText(text);
  }
}

bool SettingCommands::Await(Ack ack) {
  switch (ack) {
    case Ack::kReply:
      comms_.ReplyWait(vars_.PacketFields);
      return !vars_.UnitStandardText.empty();
    case Ack::kStandard:
      return comms_.AckWait();
    case Ack::kLong:
      return LongAckWait();
    case Ack::kSlow:
      return comms_.AckWait(form_.TimerNew);
    case Ack::kLocked:
      return comms_.LockedAckWait(form_.dPause);
    case Ack::kLockedSlow:
      return comms_.LockedAckWait(form_.TimerNew);
    case Ack::kWholeInterval:
      return comms_.WholeIntervalWait();
    case Ack::kNone:
      break;
  }
  comms_.SendUnanswered();
  return true;
}

bool SettingCommands::LongAckWait() {
  const int interval = form_.dPause.Interval();
  form_.dPause.SetInterval(kLongAckMs);
  bool acknowledged = false;
  Finally([&] { acknowledged = comms_.AckWait(); }, [&] { form_.dPause.SetInterval(interval); });
  return acknowledged;
}

void SettingCommands::SendParameter(int row) {
  if (row < 0 || row >= static_cast<int>(vars_.SystemParameters.size())) return;
  if (IsSendable(At(vars_.SystemParameters, row))) Send(CommandId::kSetParameter, Sender::kPanel, row);
}

bool SettingCommands::Live() const {
  return form_.mnuInter.Checked() && !vars_.UnitLocalMode;
}

void SettingCommands::SendSlate() {
  if (!Live()) return;
  // Unlocked, unlike the slate mode's own box: the windows' handlers that lead here have sent unlocked, too.
  Send(form_.chPrev.On() ? CommandId::kSlatePreview : CommandId::kSlateMode, Sender::kWholeSend);
}

bool SettingCommands::HasWindow(int row) const {
  return form_.HasWindowRow(row) && row <= UBound(vars_.CharWindows);
}

void SettingCommands::SendWindowAll(int row) {
  if (!HasWindow(row)) return;
  Send(CommandId::kWindow, Sender::kPanel, row, kHighlightOn);
  if (form_.mnuInter.Checked()) SendSlate();
}

bool SettingCommands::Highlights(int row) const {
  return !vars_.UnitLocalMode && HasWindow(row) && form_.lName(row).Visible();
}

void SettingCommands::SendWindowInteractive(int row, int onBit) {
  if (!Highlights(row)) return;
  const SettingCommand& command = CommandOf(CommandId::kWindow);
  Message message = MessageOf(command, {form_, vars_, Sender::kPanel, row, onBit});
  message.meaning = command.meaning + WindowTitle(At(vars_.CharWindows, row)) +
                    (onBit == kHighlightOn ? " highlighted: " : " not highlighted: ") +
                    WindowWords(message.fields);
  Exchange(command.name, std::move(message), {Ack::kStandard, "ACK LOST"}, Failure::kPanel);
  if (HasWindow(row)) At(vars_.CharWindows, row).Highlighted = onBit == kHighlightOn;
}

bool SettingCommands::SendCharInserter(CommandId id, Sender sender, bool showOn) {
  const bool acknowledged = Send(id, sender);
  // Nobody asked for Off: a send would find no tick at all and leave the characters off.
  if (comms_.LostInSend()) return false;
  form_.mnuCharOff.SetChecked(acknowledged && !showOn);
  form_.mnuCharOn.SetChecked(acknowledged && showOn);
  if (!acknowledged) {
    form_.ShowTraffic(kRed);
  }
  return acknowledged;
}

void SettingCommands::EndWaits() {
  if (offForSize_ && !std::exchange(endWanted_, true)) {
    Deferred.Emit();
  } else {
    platform_.pump.End();
  }
}

bool SettingCommands::EndDeferred() const {
  return endWanted_ && !platform_.pump.Ending();
}

void SettingCommands::EndOffForSize() {
  offForSize_ = false;
  if (std::exchange(endWanted_, false)) platform_.pump.End();
}

void SettingCommands::Report(CommandId id, bool answered) {
  const SettingCommand& command = CommandOf(id);
  Message message = MessageOf(command, {form_, vars_});
  MessageSent.Emit({++count_, command.name, std::move(message.meaning), std::move(message.fields),
                    comms_.WentOut(), answered ? kAcknowledged : kUnacknowledged});
}

}  // namespace marlinset

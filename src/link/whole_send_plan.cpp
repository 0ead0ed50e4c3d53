// SPDX-License-Identifier: GPL-3.0-or-later
// What a whole send, or a send of the changes, has still to send.
#include <algorithm>

#include "base/finally.h"
#include "core/frm_start.h"
#include "link/communications.h"
#include "link/held_settings.h"
#include "link/ports.h"
#include "link/send_steps.h"
#include "link/unheld_controls.h"
#include "link/whole_send.h"
#include "platform/event_pump.h"
#include "platform/ms_comm.h"
#include "platform/platform.h"

namespace marlinset {

using enum CommandId;

PendingMessage WholeSend::EndOfHighlight(int row) {
  return {.id = kWindow, .sender = Sender::kPanel, .row = row, .endsHighlight = true};
}

CommandId WholeSend::SlateCommand() const {
  return form_.chPrev.On() ? kSlatePreview : kSlateMode;
}

/// Off line the status bar drops the model after a while, and saves and loads write over it; the memory of
/// what the unit holds keeps it. A send goes by the status bar, which its prologue has just filled.
bool WholeSend::UnitIsQ() const {
  return form_.ModelIsQ() || (!Running() && held_.Known() && held_.OfModelQ());
}

/// Counts the messages of the send anew. They depend on the panels, which answers change, so it counts what
/// is left after each message, and in the end the plan equals what was sent. Keeps the last count once the
/// device is gone, since the panels then show the loss. What one action sends is known beforehand.
void WholeSend::Plan() {
  if (scope_ == Scope::kOneAction || comms_.LostInSend() || !platform_.ComP1.PortOpen()) return;
  // At least identification and query go before the sequence, and a query closes it.
  const std::vector<PendingMessage> pending = Foreseen(progress_);
  const std::size_t left = scope_ == Scope::kChanges
                               ? ChangesIn(pending, held_.Messages(), progress_.sizeGoes).size()
                               : pending.size();
  result_.planned = std::max(result_.messages, 2) + static_cast<int>(left) + (progress_.closing ? 0 : 1);
}

void WholeSend::AddPending(std::span<const SendStep> steps, std::vector<PendingMessage>& messages) const {
  for (const SendStep& step : steps) {
    if (const auto command = CommandIn(step, form_, UnitIsQ())) messages.push_back({.id = *command});
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
  if (!from.slate && commands_.Live()) messages.push_back({.id = SlateCommand()});
  return messages;
}

/// The pending messages as they will go. On its way the sequence writes the text message back in capitals,
/// and the panel's rule then limits the position of the text's window and, in interactive mode, sends the
/// message.
std::vector<PendingMessage> WholeSend::Foreseen(const Progress& from) const {
  std::vector<PendingMessage> messages = Pending(from);
  const std::string capitals = MessageText(form_.tWinMess.Text());
  const auto text = std::ranges::find(messages, kText, &PendingMessage::id);
  if (text == messages.end() || capitals == form_.tWinMess.Text()) return messages;
  text->goesAnyway = commands_.Live();
  if (!form_.Visible() || !form_.udHor.Has(FrmStart::kTextWindowRow)) return messages;
  const SpinControl& horizontal = form_.udHor(FrmStart::kTextWindowRow);
  const auto [least, most] = std::minmax({horizontal.Min(), MaxLeftOf(capitals)});
  const auto window = std::find_if(text, messages.end(), [](const PendingMessage& message) {
    return message.id == kWindow && message.row == FrmStart::kTextWindowRow;
  });
  const int left = std::clamp(horizontal.Value(), least, most);
  if (window != messages.end() && left != horizontal.Value()) window->left = left;
  return messages;
}

Message WholeSend::MessageFor(const PendingMessage& pending) const {
  return MessageOf(CommandOf(pending.id),
                   {form_, vars_, pending.sender, pending.row, kHighlightOff, pending.left});
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
  if (message.goesAnyway) return true;
  if (!differs(message)) return false;
  const auto thing = LastMessages::ThingOf(MessageFor(message).fields);
  return std::ranges::none_of(
      rest, [&](const auto& later) { return LastMessages::ThingOf(MessageFor(later).fields) == thing; });
}

bool WholeSend::IsDue(const PendingMessage& message) {
  return scope_ != Scope::kChanges || Goes(message, Pending(progress_), held_.Messages(), progress_.sizeGoes);
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

std::vector<UnheldMessage> WholeSend::Changes() const {
  std::vector<UnheldMessage> changes;
  for (const PendingMessage& pending : ChangesIn(Foreseen({}), held_.Messages(), false)) {
    Message message = MessageFor(pending);
    const auto held = held_.Messages().LastFor(message.fields);
    const std::vector<std::uint8_t> bytes = BytesOf(message.fields);
    const bool isChange = !pending.endsHighlight && !std::ranges::equal(bytes, held);
    auto controls =
        isChange ? UnheldControls(pending.id, pending.row, bytes, held) : std::vector<ControlName>();
    changes.push_back({std::move(message), std::move(controls), isChange});
  }
  return changes;
}

LastMessages WholeSend::Messages() const {
  LastMessages messages;
  for (const PendingMessage& message : Pending({})) messages.Take(MessageFor(message).fields);
  return messages;
}

void WholeSend::SendChangesOf(const std::function<void()>& change) {
  const bool live = commands_.Live();
  const LastMessages before = live ? Messages() : LastMessages();
  change();
  if (live) SendDifferences(held_.Known() ? held_.Messages() : before);
}

/// For a single message, progress and Stop would only flicker.
void WholeSend::SendDifferences(const LastMessages& unitHolds) {
  const std::vector<PendingMessage> changes = ChangesIn(Pending({}), unitHolds, false);
  const bool several = changes.size() > 1;
  const auto send = [&] {
    SendEnd end = SendEnd::kFailed;
    form_.InterTime.SetEnabled(false);
    // A click that waited for the end would send what was stopped.
    if (several) EnableLinkButtons(form_, false);
    Finally([&] { end = SendEach(changes); },
            [&] {
              form_.InterTime.SetEnabled(form_.mnuInter.Checked());
              if (several) EnableLinkButtons(form_, true);
            });
    return end;
  };
  if (!several) {
    send();
    return;
  }
  scope_ = Scope::kOneAction;
  result_ = {.end = SendEnd::kFailed, .planned = static_cast<int>(changes.size())};
  Run(send);
}

SendEnd WholeSend::SendEach(std::span<const PendingMessage> changes) {
  for (const PendingMessage& change : changes) {
    const bool goesOn = Running() ? platform_.ComP1.PortOpen() && GoesOn() : comms_.LineUp();
    if (!goesOn || !(commands_.Live() || commands_.OffForSize())) return SendEnd::kStopped;
    SendChange(change);
  }
  return SendEnd::kComplete;
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

}  // namespace marlinset

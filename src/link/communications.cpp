// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/communications.h"

#include "core/frm_start.h"
#include "link/frame.h"
#include "link/ports.h"
#include "platform/dialogs.h"
#include "platform/event_pump.h"
#include "platform/finally.h"
#include "platform/ms_comm.h"
#include "platform/platform.h"
#include "platform/reply_gate.h"
#include "platform/text.h"

namespace marlinset {
namespace {

/// A whole firmware reply has at least this many bytes; the query reads nothing shorter.
constexpr std::size_t kFullReplyBytes = 20;
/// The byte log is emptied when it grows beyond this many characters.
constexpr std::size_t kLogCharacters = 200;
/// More bytes than this behind a full log: the unit floods the line and is taken out of broadcast mode.
constexpr std::size_t kFloodBytes = 50;
constexpr int kReplyMs = 100;
constexpr int kUnaskedAnswerMs = 25;

static_assert(ReplyGate::kLongestReply == kLongestFrame, "what is longer than a frame is a flood");

}  // namespace

Communications::Communications(Platform& platform, Variables& variables, FrmStart& form)
    : platform_(platform), vars_(variables), form_(form), replies_(platform, variables, form) {
  form_.dPause.OnTick([this] { form_.dPause.SetEnabled(false); });
  form_.TimerNew.OnTick([this] { form_.TimerNew.SetEnabled(false); });
  form_.timeRes.OnTick([this] {
    SendPacket(vars_.PacketFields);
    ReceivePacket();
    form_.timeRes.SetEnabled(false);
  });
}

void Communications::SendPacket(const std::vector<PacketField>& fields) {
  std::vector<std::uint8_t> bytes;
  for (const PacketField& field : fields) {
    const int value = field.value_or(0);
    if (value > 255) throw Overflow();
    bytes.push_back(static_cast<std::uint8_t>(value & 255));
  }
  vars_.TxBytes = EncodeFrame(bytes);
  if (platform_.ComP1.PortOpen()) {
    Transmit();
  } else {
    RefusePacket();
  }
}

void Communications::Transmit() {
  platform_.ComP1.Output(vars_.TxBytes);
  form_.ShowTraffic(kGreen);
  form_.StatBar(FrmStart::kVideoPanel).SetText("Packet Out");
  while (LineUp() && platform_.ComP1.OutBufferCount() >= 1) platform_.pump.Pump();
  if (!platform_.ComP1.PortOpen()) return;  // it went away meanwhile, and shows that
  form_.ShowTraffic(kYellow);
}

void Communications::RefusePacket() {
  form_.StatBar(FrmStart::kStandardPanel).SetText("Port Closed");
  form_.ShowTraffic(kRed);
  form_.ShowVideoPicture(2);
  form_.StatBar(FrmStart::kExchangePanel).SetText("Ack In");
  platform_.dialogs.Tell("Open Com Port before sending cmmands.");
  EnableLinkButtons(form_, true);
}

void Communications::ReceivePacket() {
  MSComm& line = platform_.ComP1;
  if (line.InBufferCount() < 1) return;
  if (vars_.WaitFullReply && line.InBufferCount() < kFullReplyBytes) return;
  vars_.WaitFullReply = false;
  try {
    const std::vector<std::uint8_t> message = DrainInput();
    if (message.empty()) return;
    HandleMessage(message);
    form_.pComBut.SetBackColor(kGreen);
  } catch (const RuntimeError&) {
    form_.StatBar(FrmStart::kVideoPanel).SetText("Buff Over");
    form_.ShowTraffic(kYellow);
    line.DiscardInput();
  }
}

/// The bytes that lay in the buffer at the beginning; empty when more came in the meantime than were
/// expected, which loses what was read.
std::vector<std::uint8_t> Communications::DrainInput() {
  MSComm& line = platform_.ComP1;
  std::vector<std::uint8_t> message(line.InBufferCount());
  std::size_t i = 0;
  while (line.InBufferCount() >= 1) {
    const std::uint8_t byte = line.Input();
    if (LogByte(byte)) i = 0;
    if (i >= message.size()) return {};
    message[i++] = byte;
  }
  return message;
}

/// Takes a unit that floods the line out of Broadcast mode. The flood goes on arriving, and fills the log,
/// while the message that ends it waits for its way out.
void Communications::QuietenUnit() {
  if (quietening_) return;
  quietening_ = true;
  Finally([this] { form_.bSend.Press(); }, [this] { quietening_ = false; });
}

/// Appends a byte to the log if it is shown; true when the log was full and has been emptied.
bool Communications::LogByte(std::uint8_t byte) {
  if (!form_.tInput.Visible()) return false;
  const std::string text = form_.tInput.Text() + HexText(byte) + ",";
  form_.tInput.SetText(text);
  if (LengthOf(text) <= kLogCharacters) return false;
  if (platform_.ComP1.InBufferCount() > kFloodBytes) QuietenUnit();
  form_.tInput.SetText("");
  return true;
}

void Communications::HandleMessage(std::span<const std::uint8_t> message) {
  switch (message[0]) {
    case kStartMark:
      HandleFrame(message);
      break;
    case kAck:
      form_.StatBar(FrmStart::kExchangePanel).SetText("Ack In");
      vars_.UnitLocalMode = false;
      break;
    case kNak:
      form_.StatBar(FrmStart::kExchangePanel).SetText("Nack In");
      vars_.UnitLocalMode = false;
      break;
    case kLocalMode:
      form_.StatBar(FrmStart::kExchangePanel).SetText("Local Mode");
      vars_.UnitLocalMode = true;
      break;
    default:
      break;
  }
}

void Communications::HandleFrame(std::span<const std::uint8_t> frame) {
  if (frame.size() < 2) throw SubscriptOutOfRange();
  switch (CheckFrame(frame)) {
    case FrameCheck::kWrongLength:
      form_.StatBar(FrmStart::kVideoPanel)
          .SetText("Packet Length Mismatch");  // gone at once; operators know only the second text
      form_.StatBar(FrmStart::kVideoPanel).SetText("Mode Switched to Select");
      break;
    case FrameCheck::kWrongChecksum:
      form_.StatBar(FrmStart::kVideoPanel).SetText("Checksum Error");
      break;
    case FrameCheck::kGood:
      form_.timeRes.SetEnabled(false);
      DispatchPacket(frame);
      break;
  }
}

void Communications::DispatchPacket(std::span<const std::uint8_t> frame) {
  struct Route {
    int address;
    int packetId;
    void (Replies::*decode)(std::span<const std::uint8_t>);
  };
  static constexpr Route kRoutes[] = {{15, 0, &Replies::DecodeQueryReply},
                                      {0, 1, &Replies::DecodeAddr0Reply},
                                      {1, 5, &Replies::DecodeAddr1Reply},
                                      {2, 8, &Replies::DecodeAddr2Reply}};
  const int address = At(frame, 2);
  const int packetId = At(frame, 3);
  for (const Route& route : kRoutes) {
    if (route.address != address) continue;
    if (route.packetId == packetId) {
      (replies_.*route.decode)(frame);
    } else {
      platform_.dialogs.Tell("Packet ID Error" + SignedText(packetId));
    }
    return;
  }
  platform_.dialogs.Tell("Address Incorrect " + SignedText(address));
}

bool Communications::LineUp() const {
  return platform_.ComP1.PortOpen() && !platform_.pump.Ending();
}

void Communications::WaitOn(Timer& timer, const std::function<bool()>& done) {
  timer.SetEnabled(true);
  while (timer.Enabled() && !timer.InHandler()) {
    ReceivePacket();
    if (done() || !LineUp()) {
      timer.SetEnabled(false);
    } else if (timer.Enabled()) {  // a whole frame that was just taken in stops the timer of its wait
      platform_.pump.Pump();
    }
  }
  ReceivePacket();
}

bool Communications::AckWait(Timer& timer) {
  form_.StatBar(FrmStart::kExchangePanel).SetText("Sent");
  SendPacket(vars_.PacketFields);
  const auto acknowledged = [this] { return form_.StatBar(FrmStart::kExchangePanel).Text() == "Ack In"; };
  WaitOn(timer, acknowledged);
  return acknowledged();
}

bool Communications::AckWait() {
  return AckWait(form_.dPause);
}

bool Communications::LockedAckWait(Timer& timer) {
  form_.StatBar(FrmStart::kExchangePanel).SetText("Sent");
  SendPacket(vars_.PacketFields);
  vars_.UnitLocalMode = true;
  const auto acknowledged = [this] { return form_.StatBar(FrmStart::kExchangePanel).Text() == "Ack In"; };
  WaitOn(timer, acknowledged);
  vars_.UnitLocalMode = false;
  return acknowledged();
}

void Communications::ReplyWait(std::vector<PacketField> fields) {
  vars_.PacketFields = std::move(fields);
  form_.timeRes.SetInterval(kReplyMs);
  vars_.UnitStandardText.clear();
  SendPacket(vars_.PacketFields);
  WaitOn(form_.timeRes, [this] { return platform_.ComP1.InBufferCount() >= 1; });
}

void Communications::LetAnswerIn() {
  if (LineUp()) platform_.pump.Pass(kUnaskedAnswerMs);
}

bool Communications::IsModelQ() const {
  return RightOf(form_.StatBar(FrmStart::kModelPanel).Text(), 5) == "7340Q";
}

}  // namespace marlinset

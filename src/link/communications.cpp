// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/communications.h"

#include <algorithm>
#include <utility>

#include "base/finally.h"
#include "base/text.h"
#include "controls/dialogs.h"
#include "core/frm_start.h"
#include "link/command_table.h"
#include "link/ports.h"
#include "platform/event_pump.h"
#include "platform/ms_comm.h"
#include "platform/platform.h"
#include "wire/frame.h"
#include "wire/reply_gate.h"

namespace marlinset {
namespace {

/// A complete firmware reply has at least this many bytes; the query reads nothing shorter.
constexpr std::size_t kFullReplyBytes = 20;
/// The byte log is emptied when it grows beyond this many characters.
constexpr std::size_t kLogCharacters = 200;
/// If more bytes than this wait behind a full log, the unit floods the line, and the tool takes it out of
/// Broadcast mode.
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
  wentOut_ = false;
  if (platform_.ComP1.PortOpen()) {
    Transmit(fields);
  } else if (!LostInSend()) {
    RefusePacket();
  }
}

void Communications::Transmit(const std::vector<PacketField>& fields) {
  answers.Leaves(IsQuery(fields));
  const MSComm& line = platform_.ComP1;
  const int discardsBefore = line.OutputDiscards();
  platform_.ComP1.Output(vars_.TxBytes);
  FrameSent.Emit(vars_.TxBytes);
  form_.ShowTraffic(kGreen);
  form_.StatBar(FrmStart::kVideoPanel).SetText("Packet Out");
  while (LineUp() && line.OutBufferCount() >= 1) platform_.pump.Pump();
  wentOut_ = line.PortOpen() && line.OutBufferCount() == 0 && line.OutputDiscards() == discardsBefore;
  if (line.PortOpen()) form_.ShowTraffic(kYellow);  // otherwise it went away meanwhile, and shows that
}

void Communications::RefusePacket() {
  form_.StatBar(FrmStart::kStandardPanel).SetText("Port Closed");
  form_.ShowTraffic(kRed);
  form_.ShowVideoPicture(FrmStart::kVideoUnknown);
  form_.StatBar(FrmStart::kExchangePanel).SetText(kAckText);
  platform_.dialogs.Tell(kPortClosedText);
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

/// The bytes that were in the buffer at the beginning. Empty if more than those arrived during the read,
/// which loses what was read.
std::vector<std::uint8_t> Communications::DrainInput() {
  MSComm& line = platform_.ComP1;
  std::vector<std::uint8_t> message(line.InBufferCount());
  std::vector<std::uint8_t> read;
  std::size_t i = 0;
  while (line.InBufferCount() >= 1) {
    const std::uint8_t byte = line.Input();
    read.push_back(byte);
    if (LogByte(byte)) i = 0;
    if (i >= message.size()) {
      message.clear();
      break;
    }
    message[i++] = byte;
  }
  BytesRead.Emit(read);
  answers.Take(read, line.OutBufferCount() >= 1);
  return message;
}

/// Takes a unit that floods the line out of Broadcast mode. While the message that ends the flood waits to
/// leave, the flood keeps arriving and fills the log again.
void Communications::QuietenUnit() {
  if (quietening_) return;
  quietening_ = true;
  Finally([this] { form_.bSend.Press(); }, [this] { quietening_ = false; });
}

/// Appends a byte to the log if the log is shown; returns true if the log was full and has been emptied.
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
      form_.StatBar(FrmStart::kExchangePanel).SetText(kAckText);
      vars_.UnitLocalMode = false;
      break;
    case kNak:
      form_.StatBar(FrmStart::kExchangePanel).SetText(kNakText);
      vars_.UnitLocalMode = false;
      break;
    case kLocalMode:
      form_.StatBar(FrmStart::kExchangePanel).SetText(kLocalModeText);
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
          .SetText("Packet Length Mismatch");  // replaced at once; operators know only the second text
      form_.StatBar(FrmStart::kVideoPanel).SetText("Mode Switched to Select");
      break;
    case FrameCheck::kWrongChecksum:
      form_.StatBar(FrmStart::kVideoPanel).SetText("Checksum Error");
      break;
    case FrameCheck::kGood:
      form_.timeRes.SetEnabled(false);
      replies_.Decode(frame);
      break;
  }
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
    } else if (timer.Enabled()) {  // a complete frame just taken in stops its wait's timer
      platform_.pump.Pump();
    }
  }
  ReceivePacket();
  WaitOver.Emit();
}

/// Reads what system and port already hold, since it cannot answer a message that is yet to be sent. Handling
/// it may send a reply, which overwrites `PacketFields`; this restores them.
void Communications::ReadWhatCame() {
  const std::vector<PacketField> fields = vars_.PacketFields;
  platform_.ComP1.LookForInput();
  ReceivePacket();
  vars_.PacketFields = fields;
}

bool Communications::AckIn() const {
  return form_.StatBar(FrmStart::kExchangePanel).Text() == kAckText;
}

/// Sends `PacketFields` as a setting and runs `wait` for its answer. Returns whether an Ack ended it.
bool Communications::AckEnds(const std::function<void()>& wait) {
  ReadWhatCame();
  form_.StatBar(FrmStart::kExchangePanel).SetText(kSentText);
  answers.Expect();
  const auto sendAndWait = [&] {
    SendPacket(vars_.PacketFields);
    wait();
  };
  Finally(sendAndWait, [this] { answers.Judge(AckIn()); });
  return AckIn();
}

bool Communications::AckWait(Timer& timer) {
  return AckEnds([&] { WaitOn(timer, [this] { return AckIn(); }); });
}

bool Communications::AckWait() {
  return AckWait(form_.dPause);
}

bool Communications::LockedAckWait(Timer& timer) {
  return AckEnds([&] {
    vars_.UnitLocalMode = true;
    WaitOn(timer, [this] { return AckIn(); });
    vars_.UnitLocalMode = false;
  });
}

bool Communications::WholeIntervalWait() {
  return AckEnds([this] {
    form_.dPause.SetEnabled(true);
    while (form_.dPause.Enabled() && LineUp()) platform_.pump.Pump();
    form_.dPause.SetEnabled(false);
    ReceivePacket();
  });
}

void Communications::SendUnanswered() {
  ReadWhatCame();
  SendPacket(vars_.PacketFields);
  LetAnswerIn();
}

void Communications::ReplyWait(std::vector<PacketField> fields) {
  ReadWhatCame();
  vars_.PacketFields = std::move(fields);
  form_.timeRes.SetInterval(kReplyMs);
  vars_.UnitStandardText.clear();
  SendPacket(vars_.PacketFields);
  WaitOn(form_.timeRes, [this] { return platform_.ComP1.InBufferCount() >= 1; });
}

void Communications::LetAnswerIn() {
  if (LineUp()) platform_.pump.Pass(kUnaskedAnswerMs);
}

bool Communications::LostInSend() const {
  return inSend_ && platform_.ComP1.DeviceGone();
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/replies.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string>

#include "base/text.h"
#include "controls/dialogs.h"
#include "core/frm_start.h"
#include "core/variables.h"
#include "platform/platform.h"

namespace marlinset {
namespace {

constexpr auto kStandards = std::to_array<std::string_view>(
    {"", "NTSC", "PAL", "1080p/24", "1080i/60", "1080i/50", "525i/60", "625i/50", "720p/60"});

/// First and last number of a run of commands that units are known to send unasked.
struct Run {
  int first;
  int last;
};
constexpr Run kQueryPass[] = {{2, 2}, {4, 4}, {8, 13}, {16, 17}, {49, 49}, {56, 58}, {208, 208}};
constexpr Run kAddr0Pass[] = {{44, 44}};
constexpr Run kAddr1Pass[] = {{22, 22},   {24, 31},   {67, 67},   {69, 70},   {72, 72},   {74, 74},
                              {76, 77},   {79, 79},   {81, 81},   {83, 83},   {85, 85},   {87, 95},
                              {102, 102}, {104, 107}, {120, 126}, {142, 159}, {176, 189}, {208, 208}};
constexpr Run kAddr2Pass[] = {{48, 59}};

bool Passes(std::span<const Run> runs, int command) {
  return std::any_of(runs.begin(), runs.end(),
                     [command](const Run& run) { return command >= run.first && command <= run.last; });
}

/// The frames of an address: its packet id, and the commands that mean nothing to the tool.
struct Route {
  int address;
  int packetId;
  std::span<const Run> passes;
};
constexpr int kQueryAddress = 15;
constexpr Route kRoutes[] = {
    {kQueryAddress, 0, kQueryPass}, {0, 1, kAddr0Pass}, {1, 5, kAddr1Pass}, {2, 8, kAddr2Pass}};

/// The commands that mean something, all of kQueryAddress; each reply has the command of its query.
struct Meant {
  int command;
  ReplyKind kind;
};
constexpr Meant kMeant[] = {{52, ReplyKind::kVideoStatus},
                            {kIdentificationReply, ReplyKind::kIdentification},
                            {kFirmwareReply, ReplyKind::kFirmware},
                            {187, ReplyKind::kBroadcastNotice}};

constexpr int kNoVideoBit = 0x40;
constexpr int kStandardBits = 0x3F;

struct Model {
  int code;
  const char* text;
  MenuItem FrmStart::*menu;
};
constexpr Model kModels[] = {{2, "HD7340", &FrmStart::mnuHD7340},
                             {8, "HD7340", &FrmStart::mnuHD7340},
                             {10, "HDSD7340", &FrmStart::mnuHD7340},
                             {32, "HD7340Q", &FrmStart::mnuHD7340Q}};

const Model* ModelOf(int code) {
  const auto* found = std::ranges::find(kModels, code, &Model::code);
  return found == std::end(kModels) ? nullptr : found;
}

std::string StatusWords(int status) {
  const std::string_view standard = VideoStandardText(status & kStandardBits);
  return (standard.empty() ? "no standard" : std::string(standard)) +
         ((status & kManualBit) != 0 ? ", manual" : ", automatic") +
         ((status & kNoVideoBit) != 0 ? ", no video" : ", video present");
}

std::string IdentificationWords(int code) {
  const std::string_view model = ModelText(code);
  return model.empty() ? "unknown model " + std::to_string(code) : std::string(model);
}

std::string WordsFor(ReplyKind kind, std::span<const std::uint8_t> frame) {
  switch (kind) {
    case ReplyKind::kVideoStatus:
      return "Video status: " + StatusWords(At(frame, 5));
    case ReplyKind::kIdentification:
      return "Identification: " + IdentificationWords(At(frame, 5));
    case ReplyKind::kFirmware: {
      std::string text;
      ReadFirmwareText(frame, text);
      return "Firmware: " + text;
    }
    case ReplyKind::kBroadcastNotice:
      return "Broadcast mode is on";
    case ReplyKind::kIgnored:
      return "Notice that the tool does not use";
    case ReplyKind::kUnknown:
      return "Unknown command";
    case ReplyKind::kWrongPacketId:
      return "Wrong packet ID";
    case ReplyKind::kWrongAddress:
      return "Unknown address";
  }
  return {};
}

}  // namespace

std::string_view VideoStandardText(int code) {
  return code >= 1 && code < static_cast<int>(kStandards.size()) ? kStandards[static_cast<std::size_t>(code)]
                                                                 : std::string_view();
}

std::string_view ModelText(int code) {
  const Model* model = ModelOf(code);
  return model ? model->text : std::string_view();
}

void ReadFirmwareText(std::span<const std::uint8_t> frame, std::string& text) {
  text.clear();
  for (int i = 5; i <= 12; ++i) text += FromCodePage({At(frame, i)});
  text += ' ';
  for (int i = 13; i <= 15; ++i) text += HexByte(At(frame, i));
  const std::string marker = FromCodePage({At(frame, 16)});
  if (marker == "R") return;
  text += " " + marker + " ";
  for (int i = 17; i <= 19; ++i) text += HexByte(At(frame, i));
}

int VideoStandardCode(std::string_view text) {
  if (text.empty()) return 0;
  const auto* found = std::find(kStandards.begin(), kStandards.end(), text);
  return found == kStandards.end() ? 0 : static_cast<int>(found - kStandards.begin());
}

Replies::Replies(Platform& platform, Variables& variables, FrmStart& form)
    : platform_(platform), vars_(variables), form_(form) {}

ReplyKind KindOf(std::span<const std::uint8_t> frame) {
  const int address = At(frame, 2);
  const int packetId = At(frame, 3);
  const auto* route = std::ranges::find(kRoutes, address, &Route::address);
  if (route == std::end(kRoutes)) return ReplyKind::kWrongAddress;
  if (route->packetId != packetId) return ReplyKind::kWrongPacketId;
  const int command = At(frame, 4);
  if (address == kQueryAddress) {
    const auto* meant = std::ranges::find(kMeant, command, &Meant::command);
    if (meant != std::end(kMeant)) return meant->kind;
  }
  return Passes(route->passes, command) ? ReplyKind::kIgnored : ReplyKind::kUnknown;
}

int QueryAnsweredBy(std::span<const std::uint8_t> frame) {
  constexpr std::size_t kCommand = 4;
  if (frame.size() <= kCommand + 1) return 0;
  const ReplyKind kind = KindOf(frame);
  const auto* meant = std::ranges::find(kMeant, kind, &Meant::kind);
  return meant == std::end(kMeant) || kind == ReplyKind::kBroadcastNotice ? 0 : meant->command;
}

std::string MeaningOfReply(std::span<const std::uint8_t> frame) {
  try {
    return WordsFor(KindOf(frame), frame);
  } catch (const RuntimeError&) {
    return "Frame that is too short";
  }
}

void Replies::Decode(std::span<const std::uint8_t> frame) {
  switch (KindOf(frame)) {
    case ReplyKind::kVideoStatus:
      ShowVideoStatus(frame);
      break;
    case ReplyKind::kIdentification:
      ShowIdentification(frame);
      break;
    case ReplyKind::kFirmware:
      TakeFirmwareText(frame);
      break;
    case ReplyKind::kBroadcastNotice:
      LeaveBroadcast();
      break;
    case ReplyKind::kIgnored:
      break;
    case ReplyKind::kUnknown:
      ShowUnknown(frame);
      break;
    case ReplyKind::kWrongPacketId:
      platform_.dialogs.Tell("Packet ID Error" + SignedText(At(frame, 3)));
      break;
    case ReplyKind::kWrongAddress:
      platform_.dialogs.Tell("Address Incorrect " + SignedText(At(frame, 2)));
      break;
  }
}

void Replies::ShowVideoStatus(std::span<const std::uint8_t> frame) {
  const int status = At(frame, 5);
  vars_.UnitVideoStandard = status;
  const bool manual = (status & kManualBit) != 0;
  if (manual) form_.StatBar(FrmStart::kVideoPanel).SetText("Auto Disable");
  form_.mnuAuto.SetChecked(!manual);
  form_.mnuMan.SetChecked(manual);
  const bool noVideo = (status & kNoVideoBit) != 0;
  form_.StatBar(FrmStart::kVideoPanel).SetText(noVideo ? "No Video Present " : "Video Present ");
  form_.ShowVideoPicture(noVideo ? FrmStart::kNoVideo : FrmStart::kVideoPresent);
  const std::string_view standard = VideoStandardText(status & kStandardBits);
  if (!standard.empty()) vars_.UnitStandardText = standard;
  form_.StatBar(FrmStart::kStandardPanel).SetText(vars_.UnitStandardText);
}

void Replies::ShowIdentification(std::span<const std::uint8_t> frame) {
  const int code = At(frame, 5);
  if (const Model* model = ModelOf(code)) {
    form_.StatBar(FrmStart::kModelPanel).SetText(model->text);
    vars_.UnitLocalMode = false;
    (form_.*model->menu).Press();
    return;
  }
  platform_.dialogs.Tell("Invalid Identification Recieved, verify com port and retry. " + SignedText(code) +
                         SignedText(At(frame, 6)));
}

void Replies::TakeFirmwareText(std::span<const std::uint8_t> frame) {
  form_.AboutTimer1.SetEnabled(false);
  ReadFirmwareText(frame, vars_.UnitIdText);
}

void Replies::LeaveBroadcast() {
  form_.StatBar(FrmStart::kVideoPanel).SetText("Broadcast Packet In");
  form_.bSend.Press();
  platform_.dialogs.Tell("Broadcast Mode detected, switched to Select Mode");
}

void Replies::ShowUnknown(std::span<const std::uint8_t> frame) {
  platform_.dialogs.Tell("Unknown Command " + SignedText(At(frame, 2)) + SignedText(At(frame, 3)) +
                         SignedText(At(frame, 4)));
}

}  // namespace marlinset

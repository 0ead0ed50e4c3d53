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

constexpr int kVideoStatus = 52;
constexpr int kBroadcastNotice = 187;

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

}  // namespace

std::string_view VideoStandardText(int code) {
  return code >= 1 && code < static_cast<int>(kStandards.size()) ? kStandards[static_cast<std::size_t>(code)]
                                                                 : std::string_view();
}

std::string_view ModelText(int code) {
  const auto* found = std::find_if(std::begin(kModels), std::end(kModels),
                                   [code](const Model& model) { return model.code == code; });
  return found == std::end(kModels) ? std::string_view() : found->text;
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

void Replies::DecodeQueryReply(std::span<const std::uint8_t> frame) {
  const int command = At(frame, 4);
  switch (command) {
    case kVideoStatus:
      ShowVideoStatus(frame);
      break;
    case kIdentificationReply:
      ShowIdentification(frame);
      break;
    case kFirmwareReply:
      TakeFirmwareText(frame);
      break;
    case kBroadcastNotice:
      LeaveBroadcast();
      break;
    default:
      if (!Passes(kQueryPass, command)) ShowUnknown(frame);
  }
}

void Replies::DecodeAddr0Reply(std::span<const std::uint8_t> frame) {
  if (!Passes(kAddr0Pass, At(frame, 4))) ShowUnknown(frame);
}

void Replies::DecodeAddr1Reply(std::span<const std::uint8_t> frame) {
  if (!Passes(kAddr1Pass, At(frame, 4))) ShowUnknown(frame);
}

void Replies::DecodeAddr2Reply(std::span<const std::uint8_t> frame) {
  if (!Passes(kAddr2Pass, At(frame, 4))) ShowUnknown(frame);
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
  for (const Model& model : kModels) {
    if (model.code != code) continue;
    form_.StatBar(FrmStart::kModelPanel).SetText(model.text);
    vars_.UnitLocalMode = false;
    (form_.*model.menu).Press();
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

// SPDX-License-Identifier: GPL-3.0-or-later
// What the operator reads when a send ends early.
#include <array>
#include <set>
#include <string>

#include "controls/dialogs.h"
#include "core/frm_start.h"
#include "link/communications.h"
#include "link/held_settings.h"
#include "link/ports.h"
#include "link/whole_send.h"
#include "platform/event_pump.h"
#include "platform/platform.h"

namespace marlinset {
namespace {

using enum CommandId;

/// The parts of a setup as operators speak of them, in the order of a send.
enum Area : std::size_t { kParameters, kInputsAndOutputs, kCharacters, kDownConverters, kWindows, kAreas };
constexpr std::array<const char*, kAreas> kAreaNames = {"Parameters", "Inputs and outputs",
                                                        "Characters and slate", "Down converter", "Windows"};

Area AreaOf(CommandId id, std::span<const PacketField> fields) {
  constexpr int kVideoAddress = 1;
  switch (id) {
    case kSetParameter:
      return kParameters;
    case kWindow:
      return kWindows;
    case kDownConverter:
    case kDownConverterControl:
      return kDownConverters;
    default:
      return fields.front() == kVideoAddress ? kInputsAndOutputs : kCharacters;
  }
}

/// So many of all.
struct Share {
  int part = 0;
  int all = 0;
};

std::string TextOf(const Share& share) {
  return std::to_string(share.part) + " of " + std::to_string(share.all);
}

}  // namespace

/// How many of the setup's settings the unit holds, in all and by area, and what to do about the rest. Where
/// several messages set one thing, the last decides.
std::string WholeSend::HeldText() const {
  Share whole;
  std::array<Share, kAreas> areas;
  std::set<LastMessages::Thing> seen;
  const std::vector<PendingMessage> messages = Pending({});
  for (auto pending = messages.rbegin(); pending != messages.rend(); ++pending) {
    const Message message = MessageFor(*pending);
    const auto thing = LastMessages::ThingOf(message.fields);
    if (!thing || !seen.insert(*thing).second) continue;
    const int held = held_.Messages().Has(message.fields) ? 1 : 0;
    for (Share* share : {&whole, &areas[AreaOf(pending->id, message.fields)]}) {
      ++share->all;
      share->part += held;
    }
  }
  std::string text = "The unit holds " + TextOf(whole) + " settings of this setup:\n";
  for (std::size_t area = 0; area < areas.size(); ++area) {
    if (areas[area].all > 0) text += std::string(kAreaNames[area]) + ": " + TextOf(areas[area]) + "\n";
  }
  if (!form_.mnuCharOn.Checked() && !form_.mnuCharOff.Checked()) {
    text += "The characters may be off: choose Options > Char Inserter > Char On.\n";
  }
  if (whole.part < whole.all || scope_ == Scope::kOneAction) {
    return text +
           (held_.Known() ? "Press Send Changes to send the rest." : "Press Send Setup to send all of it.");
  }
  if (progress_.agreed) return text + "Only the closing check is missing.";
  return text + "Its video standard may be another than the setup's: press Send Setup to compare them.";
}

/// The one box of a send whose device went away.
void WholeSend::TellLoss() {
  result_.end = SendEnd::kPortClosed;
  ports_.DeviceLost();
  if (platform_.pump.Ending()) return;
  const bool allSent = progress_.closing || result_.wentOut == result_.planned;
  const char* const unit =
      allSent ? "the unit has not confirmed that it took all of it." : "the unit does not hold all of it.";
  const char* const panels =
      scope_ == Scope::kOneAction ? "The panels keep the changes." : "The configuration is as it was.";
  platform_.dialogs.Show({.text = kPortClosedText,
                          .icon = BoxIcon::kCritical,
                          .remedy = ports_.LossText() + ". " + TextOf({result_.wentOut, result_.planned}) +
                                    " messages went out.\nCheck " + ports_.Suspects() +
                                    ", then press Open and send the setup again: " + unit + " " + panels});
}

/// The one box of a send that the operator stopped.
void WholeSend::TellStop() {
  if (platform_.pump.Ending()) return;
  platform_.dialogs.Show(
      {.text = "The send was stopped after " + TextOf({result_.wentOut, result_.planned}) + " messages.",
       .icon = BoxIcon::kInformation,
       .remedy = HeldText()});
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
// Puts any bytes on the line while the tool exchanges messages with a unit. Afterwards, on a sound line, the
// tool must understand the unit as if nothing had happened.
//
// The first byte holds the Settings. Each step is: what the tool does meanwhile, and kFramed if the bytes are
// the fields of a sound frame; after how many milliseconds they arrive; their number; the bytes.
#include <cassert>
#include <cstdint>
#include <functional>
#include <span>

#include "tests/support/link_rig.h"

namespace {

using namespace marlinset;
using Input = std::span<const std::uint8_t>;

constexpr std::size_t kHead = 3;
constexpr int kFramed = 16;
/// A whole send to a silent unit takes some minutes.
constexpr std::int64_t kLongestStepMs = 30 * 60 * 1000;

enum Setting : unsigned {
  kAgrees = 1,
  kMute = 2,
  kNoGate = 4,
  kFullLog = 8,
  kIdentified = 16,
  kPaced = 32,
  kManual = 64,
};

class Fuzz {
 public:
  explicit Fuzz(unsigned settings) {
    const auto has = [settings](Setting setting) { return (settings & setting) != 0; };
    rig_.dialogs.onShow = [agrees = has(kAgrees)](const MessageBox& box) {
      assert(!TellsOfFailure(box));
      if (!agrees) return FakeDialogs::Default(box.buttons);
      return box.buttons == BoxButtons::kYesNo ? BoxAnswer::kYes : BoxAnswer::kOk;
    };
    rig_.line.Unit().Faults().mute = has(kMute);
    rig_.line.SetGate(!has(kNoGate));
    rig_.form.tInput.SetVisible(has(kFullLog));
    if (has(kIdentified)) rig_.OpenIdentified();
    if (has(kPaced)) rig_.line.SetPace(57600);
    if (has(kManual)) rig_.line.Unit().SetManual(true);
    rig_.Open();
  }

  void Step(Input& input) {
    const Input bytes = input.subspan(kHead).first(std::min<std::size_t>(input[2], input.size() - kHead));
    const std::int64_t begin = rig_.pump.Now();
    const bool framed = (input[0] & kFramed) != 0;
    rig_.line.Inject(framed ? EncodeFrame(bytes) : Bytes(bytes.begin(), bytes.end()), begin + input[1]);
    actions_[input[0] % kFramed % std::size(actions_)]();
    assert(rig_.pump.Now() - begin < kLongestStepMs);
    input = input.subspan(kHead + bytes.size());
  }

  void ExpectUnderstanding() {
    UnitModel& unit = rig_.line.Unit();
    unit.Faults() = {};
    rig_.line.SetGate(true);
    rig_.form.tInput.SetVisible(false);  // a byte log that is full costs a reply
    rig_.form.bSend.Press();
    rig_.pump.Pass(20000);
    rig_.form.bGetID.Press();
    assert(rig_.Panel(FrmStart::kModelPanel) == "HD7340");
    assert(Send(CommandId::kVideoSense));
    assert(rig_.vars.UnitStandardText == VideoStandardText(unit.Standard()));
    rig_.identification.GetFirmware();
    assert(rig_.vars.UnitIdText == "MARLIN40 020E00");
    assert(Send(CommandId::kSetParameter));
  }

 private:
  bool Send(CommandId id) { return rig_.commands.Send(id, Sender::kWholeSend, 1); }

  LinkRig rig_;
  const std::function<void()> actions_[10] = {[this] { rig_.pump.Pass(300); },
                                              [this] { rig_.pump.Pass(5); },
                                              [] {},
                                              [this] { rig_.form.bGetID.Press(); },
                                              [this] { rig_.form.bBroad.Press(); },
                                              [this] { rig_.form.bSend.Press(); },
                                              [this] { rig_.form.bSConfig.Press(); },
                                              [this] { rig_.identification.GetFirmware(); },
                                              [this] { Send(CommandId::kVideoSense); },
                                              [this] { Send(CommandId::kSetParameter); }};
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  Fuzz fuzz(data[0]);
  for (Input input(data + 1, size - 1); input.size() >= kHead;) fuzz.Step(input);
  fuzz.ExpectUnderstanding();
  return 0;
}

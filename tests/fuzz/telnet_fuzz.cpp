// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes from a device server: the tool's end stays within bounds, answers no more than it was asked, and
// understands the same however the bytes are cut. On a connection that is set, data comes out as it went in.
#include <cassert>
#include <cstdint>
#include <span>
#include <vector>

#include "wire/com_port_control.h"

namespace {

using namespace marlinset;
using Bytes = std::vector<std::uint8_t>;

const Bytes kConfirmed = {255, 240, 255, 253, 44,  255, 250, 44,  101, 0,   0,   225, 0,   255, 240,
                          255, 250, 44,  102, 8,   255, 240, 255, 250, 44,  103, 1,   255, 240, 255,
                          250, 44,  104, 1,   255, 240, 255, 250, 44,  105, 1,   255, 240};

struct Heard {
  Bytes data, output;
  ComPortControl::State state;
  bool operator==(const Heard&) const = default;
};

Heard Hear(ComPortControl& control, std::span<const std::uint8_t> bytes, std::size_t piece) {
  control.TakeOutput();
  Heard heard;
  while (!bytes.empty()) {
    const auto part = bytes.first(std::min(piece, bytes.size()));
    const Bytes data = control.Receive(part);
    const Bytes output = control.TakeOutput();
    heard.data.insert(heard.data.end(), data.begin(), data.end());
    heard.output.insert(heard.output.end(), output.begin(), output.end());
    bytes = bytes.subspan(part.size());
  }
  heard.state = control.Progress();
  return heard;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::span<const std::uint8_t> input(data, size);
  for (const bool set : {false, true}) {
    ComPortControl control;
    ComPortControl same;
    if (set) {
      for (ComPortControl* each : {&control, &same}) {
        Hear(*each, kConfirmed, kConfirmed.size());
        assert(each->Progress() == ComPortControl::State::kReady);
      }
      const Heard back = Hear(control, Telnet::Escaped(input), 7);
      assert(std::equal(input.begin(), input.end(), back.data.begin(), back.data.end()));
      assert(back.output.empty());
    }
    const Heard heard = Hear(control, input, 1);
    assert(heard == Hear(same, input, 5));
    assert(heard.data.size() <= size && heard.output.size() <= size + 62);
    assert(control.Trouble() == same.Trouble());
  }
  return 0;
}

// SPDX-License-Identifier: GPL-3.0-or-later
// Executes whatever lines come as a script, on the whole tool with a virtual unit, files in memory and the
// virtual clock. Each line is answered with one JSON object that tells whether it was understood, comes to
// its end, and fails in no way that nobody expected.
#include <cassert>
#include <sstream>
#include <string>

#include "cli/queued_dialogs.h"
#include "cli/script.h"
#include "tests/fuzz/memory_files.h"
#include "tests/support/tool_rig.h"

namespace {

using namespace marlinset;

constexpr int kLongestWaitMs = 10 * 1000;
/// A whole send to a unit that does not answer takes some minutes, and a line can bring about several.
constexpr std::int64_t kLongestLineMs = 4 * 3600 * 1000;

/// A script may wait as long as it wants; here nobody does.
class ImpatientPump : public VirtualPump {
 public:
  void Pass(std::int64_t milliseconds) override {
    VirtualPump::Pass(std::min<std::int64_t>(milliseconds, kLongestWaitMs));
  }
};

/// Opens the reference database once for all inputs.
DataEngine& SharedEngine() {
  static SqliteEngine engine;
  return engine;
}

class Fuzz {
 public:
  Fuzz() {
    dialogs_.onShown = [](const MessageBox& box, BoxAnswer) { assert(!TellsOfFailure(box)); };
    unit_.SetPorts({1, 2, 3, 4});
    assert(tool_.Start("") && !script_.StartAnswer(true).empty());
  }

  void Execute(const std::string& line) {
    const std::int64_t begin = pump_.Now();
    const std::string text = script_.Execute(line);
    assert(pump_.Now() - begin < kLongestLineMs);
    if (text.empty()) return;
    const Json answer = Json::parse(text);
    assert(text.find('\n') == std::string::npos && answer.at("messages").is_array());
    assert(answer.at("ok").get<bool>() != answer.contains("error"));
  }
  bool Ended() const { return script_.Ended(); }

 private:
  ImpatientPump pump_;
  UnitLine unit_{pump_};
  RecordingLine line_{unit_, pump_};
  QueuedDialogs dialogs_;
  QueuedFileDialog fileDialog_{dialogs_};
  MemorySettings settings_;
  Guard guard_{dialogs_};
  MemoryFiles files_;
  FakePrinter printer_;
  FakeDesktop desktop_;
  Tool tool_{{pump_, line_, SharedEngine(), dialogs_, settings_, guard_, fileDialog_, files_, printer_,
              desktop_, SHIPPED_DATABASE_FOLDER}};
  Script script_{tool_, dialogs_, fileDialog_, line_};
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::istringstream lines(std::string(data, data + size));
  Fuzz fuzz;
  for (std::string line; !fuzz.Ended() && std::getline(lines, line);) fuzz.Execute(line);
  return 0;
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/unit/unit_console.h"

#include <algorithm>
#include <charconv>
#include <exception>
#include <iterator>
#include <optional>
#include <sstream>
#include <utility>

#include "app/unit/unit_json.h"
#include "unit/unit_state_text.h"

namespace marlinset {
namespace {

constexpr std::size_t kMostFramesKept = 100000;
constexpr int kHighestCode = 63;
constexpr int kMostMilliseconds = 3600000;
constexpr int kMostCount = 1000000;

enum class Argument { kNone, kOnOff, kNumber, kMaybeNumber, kForm };
/// How to print a state; kAsSuits, the default, depends on who asks. A number, as all arguments are.
enum StateForm : int { kAsSuits, kText, kJson };

std::optional<int> ReadArgument(Argument kind, const std::string& word, int highest) {
  switch (kind) {
    case Argument::kNone:
      return word.empty() ? std::optional(0) : std::nullopt;
    case Argument::kOnOff:
      if (word == "on") return 1;
      return word == "off" ? std::optional(0) : std::nullopt;
    case Argument::kForm:
      if (word == "text") return kText;
      if (word == "json") return kJson;
      return word.empty() ? std::optional<int>(kAsSuits) : std::nullopt;
    case Argument::kMaybeNumber:
      if (word.empty()) return 0;
      break;
    case Argument::kNumber:
      break;
  }
  int number = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  const bool good = error == std::errc{} && end == word.data() + word.size() && number >= 0;
  return good && number <= highest ? std::optional(number) : std::nullopt;
}

}  // namespace

struct UnitConsole::Command {
  std::string_view word;
  Argument argument;
  int highest;
  void (*run)(UnitConsole&, int argument, LineTime now);
};

const UnitConsole::Command UnitConsole::kCommands[] = {
    {"local", Argument::kOnOff, 1, [](UnitConsole& c, int on, LineTime) { c.unit_.SetLocal(on != 0); }},
    {"standard", Argument::kNumber, kHighestCode,
     [](UnitConsole& c, int code, LineTime) { c.unit_.SetStandard(code); }},
    {"manual", Argument::kOnOff, 1, [](UnitConsole& c, int on, LineTime) { c.unit_.SetManual(on != 0); }},
    {"video", Argument::kOnOff, 1, [](UnitConsole& c, int on, LineTime) { c.unit_.SetVideo(on != 0); }},
    {"mute", Argument::kOnOff, 1, [](UnitConsole& c, int on, LineTime) { c.unit_.Faults().mute = on != 0; }},
    {"drop", Argument::kNumber, kMostCount,
     [](UnitConsole& c, int n, LineTime) { c.unit_.Faults().drop = n; }},
    {"nak", Argument::kNumber, kMostCount, [](UnitConsole& c, int n, LineTime) { c.unit_.Faults().nak = n; }},
    {"stray", Argument::kNumber, kMostMilliseconds,
     [](UnitConsole& c, int ms, LineTime) { c.unit_.Faults().stray = std::chrono::milliseconds{ms}; }},
    {"late", Argument::kNumber, kMostMilliseconds,
     [](UnitConsole& c, int ms, LineTime) { c.unit_.Faults().lateAcks = std::chrono::milliseconds{ms}; }},
    {"corrupt", Argument::kNumber, kMostCount,
     [](UnitConsole& c, int n, LineTime) { c.unit_.Faults().corrupt = n; }},
    {"broadcast", Argument::kNone, 0, [](UnitConsole& c, int, LineTime now) { c.unit_.StartBroadcast(now); }},
    {"flood", Argument::kNumber, kMostCount,
     [](UnitConsole& c, int n, LineTime now) { c.unit_.Flood(static_cast<std::size_t>(n), now); }},
    {"unplug", Argument::kMaybeNumber, kMostCount, [](UnitConsole& c, int n, LineTime) { c.Unplug(n); }},
    {"plug", Argument::kNone, 0, [](UnitConsole& c, int, LineTime) { c.Plug(); }},
    {"state", Argument::kForm, 0, [](UnitConsole& c, int form, LineTime) { c.PrintState(form); }},
    {"trace", Argument::kNone, 0, [](UnitConsole& c, int, LineTime) { c.PrintTrace(); }},
};

UnitConsole::UnitConsole(UnitModel& unit, UnitCable cable, bool readable, std::ostream& out,
                         std::ostream& errors)
    : unit_(unit), cable_(std::move(cable)), readable_(readable), out_(out), errors_(errors) {}

void UnitConsole::Execute(std::string_view line, LineTime now) {
  std::istringstream words{std::string(line)};
  std::string word;
  std::string argument;
  std::string rest;
  words >> word >> argument >> rest;
  if (word.empty()) return;
  const auto* command = std::find_if(std::begin(kCommands), std::end(kCommands),
                                     [&](const Command& row) { return row.word == word; });
  const bool known = command != std::end(kCommands);
  const auto value = known ? ReadArgument(command->argument, argument, command->highest) : std::nullopt;
  if (!value || !rest.empty()) {
    errors_ << "marlinset-unit: not understood: " << line << std::endl;
    return;
  }
  command->run(*this, *value, now);
}

void UnitConsole::Remember(const Bytes& frame) {
  frames_.push_back(frame);
  if (frames_.size() > kMostFramesKept) frames_.pop_front();
  if (unplugIn_ > 0 && --unplugIn_ == 0) cable_.unplug();
}

/// At once, or after so many messages.
void UnitConsole::Unplug(int messages) {
  unplugIn_ = messages;
  if (messages == 0) cable_.unplug();
}

void UnitConsole::Plug() {
  unplugIn_ = 0;
  try {
    const std::string device = cable_.plug();
    out_ << "ready " << device << std::endl;
  } catch (const std::exception& error) {
    errors_ << "marlinset-unit: " << error.what() << std::endl;
  }
}

void UnitConsole::PrintState(int form) {
  const bool text = form == kText || (form == kAsSuits && readable_);
  out_ << (text ? StateText(unit_) : StateJson(unit_) + "\n") << std::flush;
}

void UnitConsole::PrintTrace() {
  const char* separator = "";
  out_ << '[';
  for (const Bytes& frame : frames_) out_ << std::exchange(separator, ",") << '"' << HexOf(frame) << '"';
  out_ << ']' << std::endl;
  frames_.clear();
}

}  // namespace marlinset

// SPDX-License-Identifier: GPL-3.0-or-later
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <string>

#include "base/printable.h"
#include "base/text.h"
#include "cli/output.h"
#include "cli/terminal_run.h"
#include "platform/posix/end_signals.h"

namespace marlinset {
namespace {

volatile std::sig_atomic_t interrupted = 0;  // the number of the signal

/// The previous handlers.
std::array<struct sigaction, kEndSignals.size()> dispositions;

/// Ctrl-C and the like ask the send to stop between two messages; a second one ends the program at once.
void CatchInterrupt() {
  struct sigaction action = {};
  action.sa_handler = [](int number) {
    interrupted = number;
    for (std::size_t i = 0; i < kEndSignals.size(); ++i)
      ::sigaction(kEndSignals[i], &dispositions[i], nullptr);
  };
  for (std::size_t i = 0; i < kEndSignals.size(); ++i) {
    ::sigaction(kEndSignals[i], nullptr, &dispositions[i]);
    if (dispositions[i].sa_handler != SIG_IGN) ::sigaction(kEndSignals[i], &action, nullptr);
  }
}

/// A message's frame as it went over the line.
std::string FrameText(const SentMessage& message) {
  std::string text;
  for (const std::uint8_t byte : message.Frame()) text += (text.empty() ? "" : " ") + HexByte(byte);
  return text;
}

/// Makes everything except plain success stand out.
const char* OutcomeOf(const SentMessage& message) {
  static constexpr const char* kOutcomes[kVerdicts] = {"acknowledged", "REFUSED", "NOT ACKNOWLEDGED",
                                                       "UNCERTAIN"};
  return message.verdict ? kOutcomes[static_cast<std::size_t>(*message.verdict)] : "sent";
}

/// Reports the messages of a send: all of them with their bytes, or one line that moves on a terminal.
/// Reports a message again, under its number, if its verdict changes.
class Progress {
 public:
  explicit Progress(bool verbose) : verbose_(verbose) {}

  void Show(const SentMessage& message) {
    told_.push_back(message);
    if (verbose_) {
      Print(told_.size(), message);
    } else if (::isatty(STDERR_FILENO)) {
      // A line that wraps could not be replaced by the next one.
      constexpr std::size_t kCharacters = 72;
      std::fprintf(stderr, "\r\033[K%zu %s", told_.size(),
                   LeftOf(Printable(message.meaning), kCharacters).c_str());
    }
  }
  void Correct(const SentMessage& message) {
    for (std::size_t i = 0; i < told_.size(); ++i) {
      if (told_[i].number != message.number) continue;
      told_[i] = message;
      if (verbose_) Print(i + 1, message);
    }
  }
  void Finish() const {
    if (!verbose_ && !told_.empty() && ::isatty(STDERR_FILENO)) std::fprintf(stderr, "\r\033[K");
  }
  /// Which messages were not acknowledged beyond doubt.
  void List() const {
    for (const SentMessage& message : told_) {
      if (!message.verdict || *message.verdict == Verdict::kAcknowledged) continue;
      std::fprintf(stderr, "%-15s  %s\n", NameOf(*message.verdict), Printable(message.meaning).c_str());
    }
  }

 private:
  static void Print(std::size_t number, const SentMessage& message) {
    std::printf("%4zu  %-16s  %-64s  %s\n", number, OutcomeOf(message), Printable(message.meaning).c_str(),
                FrameText(message).c_str());
    std::fflush(stdout);
  }

  bool verbose_;
  std::vector<SentMessage> told_;
};

/// How many messages were not acknowledged beyond doubt, by verdict: "1 refused, 2 uncertain"; empty for
/// none.
std::string DoubtText(const SendResult& result) {
  std::string text;
  for (const Verdict verdict : {Verdict::kRefused, Verdict::kUnacknowledged, Verdict::kUncertain}) {
    if (result.Count(verdict) == 0) continue;
    text += (text.empty() ? "" : ", ") + std::to_string(result.Count(verdict)) + " " + NameOf(verdict);
  }
  return text;
}

/// Prints how it ended, with what is wrong in the last line.
void Summarize(const SendResult& result, const std::string& doubts) {
  if (!doubts.empty()) {
    std::fprintf(stderr, "%d of %d messages were not acknowledged: %s.\n", result.Doubtful(), result.messages,
                 doubts.c_str());
  }
  if (result.end == SendEnd::kStopped) std::fprintf(stderr, "Stopped between two messages.\n");
  if (result.end == SendEnd::kComplete) return;
  std::fprintf(stderr, "Ended as %s: ", NameOf(result.end));
  if (result.planned > 0) {
    std::fprintf(stderr, "%d of %d messages went out.\n", result.wentOut, result.planned);
  } else {
    std::fprintf(stderr, "%d messages went out, none of the setup.\n", result.wentOut);
  }
}

int StatusOf(const SendResult& result, bool portOpen) {
  switch (result.end) {
    case SendEnd::kComplete:
      if (result.Count(Verdict::kUnacknowledged) + result.Count(Verdict::kRefused) > 0)
        return kExitUnacknowledged;
      return result.Count(Verdict::kUncertain) > 0 ? kExitUncertain : kExitDone;
    case SendEnd::kPortClosed:
      return kExitPort;
    case SendEnd::kNotConfirmed:
    case SendEnd::kNotDetected:
      return portOpen ? kExitReply : kExitPort;
    case SendEnd::kStopped:
      return kExitSignal + interrupted;
    case SendEnd::kNone:
    case SendEnd::kRefused:
    case SendEnd::kNoCode:
    case SendEnd::kFailed:
      return kExitNotDone;
  }
  return kExitNotDone;
}

/// How it ended, for programs.
struct SendReport {
  std::string end = NameOf(SendEnd::kFailed);
  std::string model;  ///< empty until the unit was identified
  int messages = 0;
  int unacknowledged = 0;

  /// Counts as Summarize does.
  void Take(const SendResult& result) {
    end = NameOf(result.end);
    messages = result.end == SendEnd::kComplete ? result.messages : result.wentOut;
    unacknowledged = result.Doubtful();
  }
  void Print() const {
    PrintJson({{"end", end},
               {"model", model.empty() ? Json() : Json(model)},
               {"messages", messages},
               {"unacknowledged", unacknowledged}});
    std::fflush(stdout);
  }
};

int Send(TerminalRun& run, const CliOptions& options, SendReport& report) {
  if (!run.Started()) return kExitStart;
  Tool& tool = run.tool;
  if (!run.LoadConfiguration(options)) return kExitNotDone;
  Progress progress(options.verbose);
  tool.commands.MessageSent.Connect([&](const SentMessage& message) {
    progress.Show(message);
    if (UnitIsIdentified(tool.form)) report.model = tool.form.StatBar(FrmStart::kModelPanel).Text();
  });
  tool.commands.VerdictChanged.Connect(
      [&](const SentMessage& message, Verdict /*before*/) { progress.Correct(message); });
  tool.wholeSend.stopRequested = [] { return interrupted != 0; };
  CatchInterrupt();
  tool.form.bSConfig.OperatorClick();
  progress.Finish();
  const SendResult& result = tool.wholeSend.Result();
  const int status = StatusOf(result, run.PortOpen());
  report.Take(result);
  if (result.end == SendEnd::kComplete && !options.json)
    std::printf("%s\n", tool.form.StatBar(FrmStart::kVideoPanel).Text().c_str());
  std::fflush(stdout);
  progress.List();
  Summarize(result, DoubtText(result));
  return status;
}

}  // namespace

int RunSend(const CliOptions& options) {
  TerminalRun run(options);
  SendReport report;
  const int status = Send(run, options, report);
  if (options.json) report.Print();  // while signals are still caught, so that a late one loses nothing
  return status;
}

int RunIdentify(const CliOptions& options) {
  TerminalRun run(options);
  if (!run.Started()) return kExitStart;
  Tool& tool = run.tool;
  tool.form.bGetID.Press();
  if (!run.PortOpen()) return kExitPort;
  const std::string model = tool.form.StatBar(FrmStart::kModelPanel).Text();
  if (!UnitIsIdentified(tool.form)) return kExitReply;
  std::printf("Model: %s\n", model.c_str());
  tool.communications.ReplyWait(FieldsOf(CommandId::kVideoSense));
  if (tool.variables.UnitStandardText.empty()) {
    std::fprintf(stderr, "The unit did not tell its video standard.\n");
    return run.PortOpen() ? kExitReply : kExitPort;
  }
  std::printf("Video standard: %s, %s selection\n", tool.variables.UnitStandardText.c_str(),
              tool.form.mnuMan.Checked() ? "manual" : "automatic");
  std::printf("Video: %s\n", Trim(tool.form.StatBar(FrmStart::kVideoPanel).Text()).c_str());
  tool.identification.GetFirmware();
  if (!tool.variables.UnitIdText.empty()) std::printf("Firmware: %s\n", tool.variables.UnitIdText.c_str());
  return kExitDone;
}

}  // namespace marlinset

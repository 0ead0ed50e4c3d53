// SPDX-License-Identifier: GPL-3.0-or-later
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <string>

#include "app/cli/terminal_run.h"
#include "link/frame.h"
#include "platform/text.h"

namespace marlinset {
namespace {

volatile std::sig_atomic_t interrupted = 0;  // the number of the signal

constexpr std::array<int, 3> kStopSignals{SIGINT, SIGTERM, SIGHUP};
std::array<struct sigaction, kStopSignals.size()> endSignals;

/// Ctrl-C and the like ask the send to stop between two messages; a second one ends the program at once.
void CatchInterrupt() {
  struct sigaction action = {};
  action.sa_handler = [](int number) {
    interrupted = number;
    for (std::size_t i = 0; i < kStopSignals.size(); ++i)
      ::sigaction(kStopSignals[i], &endSignals[i], nullptr);
  };
  for (std::size_t i = 0; i < kStopSignals.size(); ++i) {
    ::sigaction(kStopSignals[i], nullptr, &endSignals[i]);
    if (endSignals[i].sa_handler != SIG_IGN) ::sigaction(kStopSignals[i], &action, nullptr);
  }
}

/// The frame of a message as it went over the line.
std::string FrameText(const std::vector<PacketField>& fields) {
  std::vector<std::uint8_t> bytes;
  bytes.reserve(fields.size());
  for (const PacketField& field : fields) bytes.push_back(static_cast<std::uint8_t>(field.value_or(0)));
  std::string text;
  for (const std::uint8_t byte : EncodeFrame(bytes)) text += (text.empty() ? "" : " ") + HexByte(byte);
  return text;
}

const char* OutcomeOf(const SentMessage& message) {
  if (!message.acknowledged) return "sent";
  return *message.acknowledged ? "acknowledged" : "NOT ACKNOWLEDGED";
}

/// Reports the messages of a send: all of them with their bytes, or one line that moves on a terminal.
class Progress {
 public:
  explicit Progress(bool verbose) : verbose_(verbose) {}

  void Show(const SentMessage& message) {
    ++count_;
    if (verbose_) {
      std::printf("%4d  %-16s  %-46s  %s\n", count_, OutcomeOf(message), message.meaning.c_str(),
                  FrameText(message.fields).c_str());
      std::fflush(stdout);
    } else if (::isatty(STDERR_FILENO)) {
      std::fprintf(stderr, "\r\033[K%d %s", count_, message.meaning.c_str());
    }
  }
  void Finish() const {
    if (!verbose_ && count_ > 0 && ::isatty(STDERR_FILENO)) std::fprintf(stderr, "\r\033[K");
  }

 private:
  bool verbose_;
  int count_ = 0;
};

int StatusOf(const SendResult& result, bool portOpen) {
  switch (result.end) {
    case SendEnd::kComplete:
      return result.unacknowledged > 0 ? kExitUnacknowledged : kExitDone;
    case SendEnd::kPortClosed:
      return kExitPort;
    case SendEnd::kNotConfirmed:
    case SendEnd::kNotDetected:
      return portOpen ? kExitReply : kExitPort;
    case SendEnd::kStopped:
      return kExitInterrupted - SIGINT + interrupted;
    case SendEnd::kNone:
    case SendEnd::kRefused:
    case SendEnd::kNoCode:
    case SendEnd::kFailed:
      return kExitNotDone;
  }
  return kExitNotDone;
}

}  // namespace

int RunSend(const CliOptions& options) {
  TerminalRun run(options);
  if (!run.Started()) return kExitStart;
  Tool& tool = run.tool;
  if (!run.LoadConfiguration(options)) return kExitNotDone;
  Progress progress(options.verbose);
  tool.commands.MessageSent.Connect([&](const SentMessage& message) { progress.Show(message); });
  tool.wholeSend.stopRequested = [] { return interrupted != 0; };
  CatchInterrupt();
  tool.form.bSConfig.OperatorClick();
  progress.Finish();
  const SendResult& result = tool.wholeSend.Result();
  const int status = StatusOf(result, run.PortOpen());
  if (result.end == SendEnd::kComplete)
    std::printf("%s\n", tool.form.StatBar(FrmStart::kVideoPanel).Text().c_str());
  if (result.unacknowledged > 0) {
    std::fprintf(stderr, "%d of %d messages were not acknowledged.\n", result.unacknowledged,
                 result.messages);
  }
  if (result.end == SendEnd::kStopped) std::fprintf(stderr, "Stopped between two messages.\n");
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

// SPDX-License-Identifier: GPL-3.0-or-later
// marlinset-unit: a virtual unit behind a pseudo terminal, controlled by lines on standard input.

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/signalfd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <array>
#include <cerrno>
#include <fstream>
#include <iomanip>
#include <iostream>

#include "app/command_line.h"
#include "app/unit/pty.h"
#include "app/unit/unit_console.h"
#include "app/unit/unit_server.h"
#include "platform/posix/file_failure.h"
#include "platform/posix/file_place.h"
#include "platform/posix/streams.h"
#include "unit/unit_model.h"
#include "unit/unit_state_text.h"

namespace marlinset {
namespace {

struct Options {
  UnitSettings unit;
  std::string link;
  std::string trace;
  int pace = 0;
  std::size_t pieces = 0;
};

constexpr int kUsageError = 2;
constexpr int kSystemError = 1;

// Returns the exit status if the program ends here.
std::optional<int> ReadOptions(int argc, char** argv, Options& options) {
  CLI::App app{"A virtual 7340 unit behind a pseudo terminal."};
  bool noVideo = false;
  int ackMs = 0;
  std::string firmware;
  app.set_version_flag("--version", MARLINSET_VERSION);
  app.add_option("--link", options.link, "symbolic link to make to the pseudo terminal");
  app.add_option("--model", options.unit.model, "model code: 2 or 8 HD7340, 10 HDSD7340, 32 HD7340Q")
      ->check(CLI::IsMember({kModelHd7340, kModelHd7340Old, kModelHdSd7340, kModelHd7340Q}));
  app.add_option("--standard", options.unit.standard,
                 "code of the video standard, 1 to 8; 0 for none, others for one that the tool does not know")
      ->check(CLI::Range(0, 63));
  app.add_flag("--manual", options.unit.manual, "the standard is set by command, not taken from the input");
  app.add_flag("--no-video", noVideo, "no video at the input");
  app.add_option("--firmware", firmware, "firmware as About shows it: \"MARLIN40 020E00 B 000017\"")
      ->check([](const std::string& text) {
        return ParseFirmware(text) ? std::string() : "not a firmware text: " + text;
      });
  app.add_option("--ack-ms", ackMs, "milliseconds until a setting is acknowledged")
      ->check(CLI::Range(0, 3600000));
  app.add_option("--pace", options.pace, "bits a second, 57600 as on the real line")
      ->check(CLI::Range(300, 4000000));
  app.add_option("--pieces", options.pieces, "answers leave in pieces of so many bytes")
      ->check(CLI::Range(1, 258));
  app.add_option("--trace", options.trace, "file for all frames both ways; they go behind what it holds");
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return EndOfOptions(app, error, kUsageError);
  }
  options.unit.video = !noVideo;
  options.unit.ackTime = std::chrono::milliseconds{ackMs};
  if (!firmware.empty()) options.unit.firmware = *ParseFirmware(firmware);
  return std::nullopt;
}

// A descriptor that becomes readable when the program is asked to end, so that it can clean up.
int EndSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&signals, number);
  sigprocmask(SIG_BLOCK, &signals, nullptr);
  signal(SIGPIPE, SIG_IGN);
  return signalfd(-1, &signals, SFD_CLOEXEC);
}

// The lines of standard input. Blocks only if there is nothing to read.
class InputLines {
 public:
  // False at the end of the input.
  bool Read(const std::function<void(std::string_view)>& take) {
    std::array<char, 4096> portion;
    const ssize_t count = read(STDIN_FILENO, portion.data(), portion.size());
    if (count < 0 && errno == EINTR) return true;
    if (count > 0) text_.append(portion.data(), static_cast<std::size_t>(count));
    if (count <= 0 && !text_.empty()) text_ += '\n';  // a last line without its end
    for (auto end = text_.find('\n'); end != std::string::npos; end = text_.find('\n')) {
      const std::string line = text_.substr(0, end);
      text_.erase(0, end + 1);
      take(line);
    }
    return count > 0;
  }

 private:
  std::string text_;
};

void Serve(UnitServer& server, Pty& line, UnitConsole& console) {
  const int endSignals = EndSignals();
  InputLines input;
  for (;;) {
    const auto quiet = server.RunDue();
    timespec timeout{};
    if (quiet) {
      const auto seconds = std::chrono::floor<std::chrono::seconds>(*quiet);
      timeout = {static_cast<time_t>(seconds.count()), static_cast<long>((*quiet - seconds).count())};
    }
    std::array<pollfd, 3> events{
        {{STDIN_FILENO, POLLIN, 0}, {endSignals, POLLIN, 0}, {line.Descriptor(), POLLIN, 0}}};
    if (ppoll(events.data(), events.size(), quiet ? &timeout : nullptr, nullptr) <= 0) continue;
    if (events[1].revents != 0) return;
    if (events[2].revents != 0) server.ReadLine();
    if (events[0].revents == 0) continue;
    if (!input.Read([&](std::string_view text) { console.Execute(text, server.Now()); })) return;
  }
}

/// Appends to the file, which may be the record of an earlier run. Not open without a name.
std::ofstream OpenTrace(const std::string& file) {
  std::ofstream trace;
  if (file.empty()) return trace;
  struct stat status {};
  if (!OwnStream(file) && ::stat(file.c_str(), &status) == 0) RequireRegular(file, status);
  trace.open(file, std::ios::app);
  if (!trace) throw WriteFailure(file, errno);
  trace << std::fixed << std::setprecision(3);
  return trace;
}

int Run(const Options& options) {
  UnitModel unit(options.unit);
  unit.Faults().pieceBytes = options.pieces;
  Pty line;
  if (!options.link.empty()) line.Link(options.link);
  std::ofstream trace = OpenTrace(options.trace);
  UnitServer server(unit, line, options.pace);
  const UnitCable cable{.unplug =
                            [&] {
                              line.Close();
                              server.LoseLine();
                            },
                        .plug =
                            [&] {
                              line.Reopen();
                              return line.Device();
                            }};
  const bool readable = isatty(STDIN_FILENO) == 1 && isatty(STDOUT_FILENO) == 1;
  UnitConsole console(unit, cable, readable, std::cout, std::cerr);
  server.OnFrame([&](LineTime at, UnitServer::Direction direction, const Bytes& bytes) {
    const bool received = direction == UnitServer::Direction::kReceived;
    if (received) console.Remember(bytes);
    const std::chrono::duration<double, std::milli> milliseconds = at;
    if (!trace.is_open()) return;
    trace << milliseconds.count() << (received ? " rx " : " tx ") << HexOf(bytes) << std::endl;
    if (!trace) throw WriteFailure(options.trace, errno);
  });
  // Without this the kernel may let a sleep end 50 us late, a third of a byte at 57600.
  prctl(PR_SET_TIMERSLACK, 1UL, 0UL, 0UL, 0UL);
  std::cout << "ready " << line.Device() << std::endl;
  if (!std::cout) throw std::runtime_error("the device cannot be told: the output cannot be written");
  Serve(server, line, console);
  return 0;
}

}  // namespace
}  // namespace marlinset

int main(int argc, char** argv) {
  marlinset::HoldStandardStreams();
  signal(SIGXFSZ, SIG_IGN);  // a trace at its size limit is reported
  try {
    marlinset::Options options;
    if (const auto status = marlinset::ReadOptions(argc, argv, options)) return *status;
    return marlinset::Run(options);
  } catch (const marlinset::RuntimeError& failure) {
    std::cerr << "marlinset-unit: " << marlinset::InOneLine(failure) << std::endl;
    return marlinset::kSystemError;
  } catch (const std::exception& error) {
    std::cerr << "marlinset-unit: " << error.what() << std::endl;
    return marlinset::kSystemError;
  }
}

// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/posix/child_process.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <system_error>
#include <utility>

namespace marlinset {
namespace {

constexpr int kNotStarted = 127;

std::system_error Failure(const char* what) {
  return {errno, std::generic_category(), what};
}

struct Pipe {
  Pipe() {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw Failure("no pipe");
    out = Descriptor(ends[0]);
    in = Descriptor(ends[1]);
  }
  Descriptor out;
  Descriptor in;
};

bool TakeStream(int stream, const Descriptor& from) {
  return ::dup2(from.Number(), stream) >= 0;
}

/// What the child inherits and must not: signals that this program blocks or ignores for its own reasons.
void ResetSignals() {
  sigset_t none;
  ::sigemptyset(&none);
  ::sigprocmask(SIG_SETMASK, &none, nullptr);
  ::signal(SIGPIPE, SIG_DFL);
}

/// In the child, where only calls that a signal handler may make are safe. Returns only if it cannot become
/// the program.
void Become(char* const* words, const Descriptor& input, const Pipe& output, const Pipe& errors,
            pid_t parent) {
  ::setsid();  // a terminal that is its line must not stop it as a background program
  ::prctl(PR_SET_PDEATHSIG, SIGTERM);
  if (::getppid() != parent) ::_exit(kNotStarted);  // it died before it could be watched
  if (!TakeStream(STDIN_FILENO, input) || !TakeStream(STDOUT_FILENO, output.in) ||
      !TakeStream(STDERR_FILENO, errors.in))
    return;
  ResetSignals();
  ::execv(words[0], words);
}

/// What the child reports through a pipe that its start closes: an errno, or nothing after a good start.
int ReadError(Pipe& report) {
  report.in = Descriptor();
  int error = 0;
  ssize_t count = 0;
  do {
    count = ::read(report.out.Number(), &error, sizeof(error));
  } while (count < 0 && errno == EINTR);
  return count == sizeof(error) ? error : 0;
}

}  // namespace

ChildProcess::ChildProcess(const std::vector<std::string>& words) {
  std::vector<std::string> texts = words;
  std::vector<char*> arguments;
  arguments.reserve(texts.size() + 1);
  for (std::string& text : texts) arguments.push_back(text.data());
  arguments.push_back(nullptr);
  const Descriptor input(::open("/dev/null", O_RDONLY | O_CLOEXEC));
  if (!input.IsOpen()) throw Failure("/dev/null");
  Pipe output;
  Pipe errors;
  Pipe report;
  const pid_t parent = ::getpid();
  process_ = ::fork();
  if (process_ < 0) throw Failure("no process");
  if (process_ == 0) {
    Become(arguments.data(), input, output, errors, parent);
    const int error = errno;
    (void)!::write(report.in.Number(), &error, sizeof(error));
    ::_exit(kNotStarted);
  }
  output_ = std::move(output.out);
  errors_ = std::move(errors.out);
  if (const int error = ReadError(report); error != 0) {
    Wait();
    throw std::system_error(error, std::generic_category(), "no program");
  }
}

ChildProcess::~ChildProcess() {
  if (process_ < 0) return;
  Send(SIGTERM);
  Wait();
}

void ChildProcess::Send(int signal) const {
  if (process_ > 0) ::kill(process_, signal);
}

ChildEnd ChildProcess::Wait() {
  int status = 0;
  while (::waitpid(process_, &status, 0) < 0 && errno == EINTR) {
  }
  process_ = -1;
  if (WIFSIGNALED(status)) return {.signal = WTERMSIG(status)};
  return {.status = WEXITSTATUS(status)};
}

}  // namespace marlinset

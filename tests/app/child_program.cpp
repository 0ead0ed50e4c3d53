// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/app/child_program.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <stdexcept>
#include <utility>

namespace marlinset {
namespace {

constexpr int kLimitMs = 20000;

struct Pipe {
  Pipe() {
    if (pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  }
  std::array<int, 2> ends{};
};

}  // namespace

ChildProgram::ChildProgram(const char* program, const std::vector<std::string>& options) {
  const Pipe in;
  const Pipe out;
  const Pipe errors;
  std::vector<std::string> words{program};
  words.insert(words.end(), options.begin(), options.end());
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, in.ends[0], STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, out.ends[1], STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, errors.ends[1], STDERR_FILENO);
  const int failure = posix_spawn(&process_, program, &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  for (const int end : {in.ends[0], out.ends[1], errors.ends[1]}) close(end);
  input_ = in.ends[1];
  output_ = out.ends[0];
  errors_ = errors.ends[0];
  if (failure != 0) throw std::runtime_error(std::string(program) + " does not start");
}

ChildProgram::~ChildProgram() {
  End();
  close(output_);
  close(errors_);
}

void ChildProgram::Interrupt() const {
  kill(process_, SIGINT);
}

void ChildProgram::Tell(const std::string& line) const {
  const std::string text = line + "\n";
  if (write(input_, text.data(), text.size()) != static_cast<ssize_t>(text.size()))
    throw std::runtime_error("the program takes no input");
}

std::string ChildProgram::NextLine(int descriptor, std::string& text) {
  pollfd event{descriptor, POLLIN, 0};
  while (text.find('\n') == std::string::npos) {
    std::array<char, 4096> portion{};
    if (poll(&event, 1, kLimitMs) <= 0) return "";
    const ssize_t count = read(descriptor, portion.data(), portion.size());
    if (count <= 0) return "";
    text.append(portion.data(), static_cast<std::size_t>(count));
  }
  const auto end = text.find('\n');
  std::string line = text.substr(0, end);
  text.erase(0, end + 1);
  return line;
}

int ChildProgram::End() {
  if (input_ >= 0) close(std::exchange(input_, -1));
  const pid_t process = std::exchange(process_, -1);
  if (process < 0) return -1;
  // The diagnostics end when the program does.
  pollfd event{errors_, 0, 0};
  if (poll(&event, 1, kLimitMs) <= 0) kill(process, SIGKILL);
  int status = 0;
  waitpid(process, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace marlinset
